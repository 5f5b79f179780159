#pragma once

#include <wx/dnd.h>
#include <wx/window.h>

#include <functional>
#include <memory>
#include <string>

#include "filelist/FileList.h"

namespace quillon {

/// Follows a pending rename name where assistive technology reads it; on the screen such a name is bold.
inline constexpr const char* kPendingSpoken = "（未適応）";

/// The list of files on the screen: rows with check box, small icon and six columns, which it reads from the FileList
/// when it shows them. There are two implementations: the system's virtual list view on Windows, a tree view with a
/// virtual model on GTK, because assistive technology can read these. Row indices are 1-based, as in FileList.
///
/// What the user selects and checks is in the FileList before a handler is called. What logic selects or changes there
/// is shown after the messages pending at that time. Handlers are never called for changes by logic.
class lvwFiles : public FileListObserver {
 public:
  struct Handlers {
    std::function<void()> selectionChanged;    ///< once for many rows; also when a selected row is clicked again
    std::function<void(int index)> typed;      ///< the row that typing leads to; see TypeAhead
    std::function<void(int index)> activated;  ///< a double click, or Enter
    std::function<void(Column column)> headerClicked;
    std::function<void(int index, const std::string& name)> renamed;  ///< a label edit ended with this text
    std::function<void(wxPoint screen)> menuWanted;                   ///< right button, menu key, Shift+F10
    std::function<bool(wxKeyEvent& event)> keyPressed;                ///< true when it was used; not while editing
    std::function<void(const wxArrayString& paths)> dropped;          ///< files and folders
    std::function<void(bool over)> dragged;                           ///< files are dragged over the list, or no longer
    std::function<wxBitmap(const FileRow& row, int pixels)> iconOf;   ///< asked once per icon number and size
  };

  /// The window is a child of `parent`, which deletes it; the returned object must live as long. The caller registers
  /// it with `list`, directly or through an observer that passes the changes on.
  [[nodiscard]] static std::unique_ptr<lvwFiles> Make(wxWindow& parent, FileList& list, Handlers handlers);

  [[nodiscard]] virtual wxWindow& Window() = 0;

  /// A drop target for a window over the list: what is dropped there is dropped on the list.
  [[nodiscard]] virtual wxDropTarget* MakeDropTarget() = 0;

  /// The width of one of FileItem.h's six columns, in pixels of the window.
  [[nodiscard]] virtual int ColumnWidth(Column column) const = 0;
  virtual void SetColumnWidth(Column column, int pixels) = 0;
  /// The width that shows the whole heading, and in the column of types every type of four letters.
  [[nodiscard]] virtual int NeededWidth(Column column) const = 0;
  /// The widths that the six columns together may have without a horizontal scroll bar, however many rows there are.
  [[nodiscard]] virtual int RoomForColumns() const = 0;

  /// Scrolls the row into view and makes it the keyboard's current row; the selection stays.
  virtual void ShowRow(int index) = 0;

  /// Starts editing the row's rename name in place; ends with `renamed`, or with nothing when it is cancelled.
  virtual void EditLabel(int index) = 0;
  [[nodiscard]] virtual bool IsEditing() const = 0;

  /// Whether header clicks, label edits and so on are accepted; off while a command runs. Painting and scrolling stay
  /// possible.
  virtual void SetInputEnabled(bool enabled) = 0;
};

}  // namespace quillon
