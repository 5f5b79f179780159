#pragma once

#include <wx/bitmap.h>
#include <wx/event.h>
#include <wx/weakref.h>

#include <string>
#include <vector>

#include "filelist/TypeAhead.h"
#include "filelist/window/lvwFiles.h"

namespace quillon {

/// The code that both implementations of the list share: it collects row changes and shows them together, copies the
/// user's selection into the FileList, and handles keys. All row indices are 1-based.
class lvwFilesBase : public lvwFiles {
 public:
  void RowChanged(int index) final;
  void RowsChanged() final;
  void MarksChanged() final;
  [[nodiscard]] wxDropTarget* MakeDropTarget() final;
  void SetInputEnabled(bool enabled) final { inputEnabled_ = enabled; }
  [[nodiscard]] bool IsEditing() const final { return editedRow_ != 0; }

 protected:
  /// Up to this number, changed rows are refreshed one by one; beyond it, all visible rows are refreshed at once.
  static constexpr std::size_t kFewRows = 64;
  static constexpr int kIconSize = 16;  // in DIP

  struct Changes {
    bool moved = false;     ///< rows were added, removed or reordered
    bool many = false;      ///< more than kFewRows rows changed
    std::vector<int> rows;  ///< otherwise the changed rows
  };

  lvwFilesBase(FileList& list, Handlers handlers);

  /// The column's initial width, in DIP.
  [[nodiscard]] static int FirstWidth(Column column);

  /// The width of the widest text that NeededWidth counts for the column's cells, in this window's font.
  [[nodiscard]] static int CellTextWidth(const wxWindow& window, Column column);

  /// Call it at the end of the derived constructor, when `window` is complete. The list's rows are shown soon.
  void Start(wxWindow& window);
  /// Call it in the derived destructor. Deletes the window if its parent has not.
  void Stop();

  // Implemented for each system. While IsShowing, native events are ignored.
  /// Shows the rows of the FileList. Returns false when the control's selection may have changed.
  virtual bool ShowRows(const Changes& changes) = 0;
  /// The rows that the control shows as selected, in rising order.
  [[nodiscard]] virtual std::vector<int> NativeSelection() const = 0;
  /// Selects these rows, in rising order, and no others.
  virtual void SelectNative(const std::vector<int>& rows) = 0;
  virtual void SelectNativeRow(int index, bool selected) = 0;
  /// 0 for none.
  [[nodiscard]] virtual int FocusedRow() const = 0;

  /// Shows pending changes at once.
  void ShowPending();
  /// Copies the control's selection to the FileList. Call it when the user may have selected something.
  void TakeSelection() { TakeSelection(NativeSelection()); }
  void TakeSelection(std::vector<int> native);
  /// Picks up selection changes that raised no event yet. Does nothing where every change raises an event at once.
  virtual void SyncSelection() {}
  /// Call it when the user has clicked this row. `selectionChanged` is then due even when the selection is the same,
  /// because what follows the clicked row, such as the player, may have moved on to another one.
  void TakeClick(int index);
  /// Calls `selectionChanged` if it is due; AnnounceSoon does so after the pending messages.
  void Announce();
  void AnnounceSoon();

  /// Returns true when the key was used.
  bool UseKey(wxKeyEvent& event);
  /// The same for a character, whose key was not used.
  bool UseCharacter(const wxKeyEvent& event);
  void Activate(int index);
  void ClickHeader(int column) const;
  void WantMenu(wxPoint screen);
  void SetChecked(int index, bool checked);

  void BeginEdit(int index) { editedRow_ = index; }
  void CancelEdit() { editedRow_ = 0; }
  /// Call it when the edit ended with this text. Calls `renamed` after the native callback.
  void EndEdit(const wxString& text);

  [[nodiscard]] bool IsRow(int index) const { return index >= 1 && index <= list_.Count(); }
  [[nodiscard]] bool InputEnabled() const { return inputEnabled_; }
  [[nodiscard]] bool IsShowing() const { return showing_; }
  [[nodiscard]] const FileList& List() const { return list_; }
  /// The text on one line; empty for a row that is gone.
  [[nodiscard]] wxString CellText(int index, Column column) const;
  /// The text for assistive technology: it also says whether the rename name is pending.
  [[nodiscard]] wxString SpokenText(int index, Column column) const;
  [[nodiscard]] bool IsPending(int index) const { return IsRow(index) && list_.Row(index).pending; }
  /// Call it when the mouse is over this cell, `pixels` wide; index 0 for none. Its tool tip is the text, if it is cut
  /// off, and what a pending row's file is going to be called.
  void PointAt(int index, Column column, int pixels);
  /// The row's icon in exactly this size, or an invalid bitmap.
  [[nodiscard]] wxBitmap IconOf(int index, int pixels) const;

 private:
  class DropTarget;

  [[nodiscard]] wxString TipOf(int index, Column column, int pixels) const;
  void ShowSoon();
  void ShowSelection(bool kept, const Changes& changes);
  void PutSelection(const std::vector<int>& rows);
  void SelectAll();
  void ToggleChecks();
  [[nodiscard]] bool TypeAheadBy(const wxString& character);

  FileList& list_;
  Handlers handlers_;
  TypeAhead typeAhead_;
  wxWeakRef<wxWindow> window_;
  Changes pending_;
  std::vector<int> shown_;  // the rows that the control had selected when they were last read or set
  bool scheduled_ = false;
  bool showing_ = false;  // the program, not the user, is changing the control
  bool taking_ = false;   // the control's selection is being copied to the FileList
  bool announcing_ = false;
  bool inputEnabled_ = true;
  int editedRow_ = 0;
  wxString tip_;
};

}  // namespace quillon
