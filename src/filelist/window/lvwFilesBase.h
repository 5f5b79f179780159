#pragma once

#include <wx/bitmap.h>
#include <wx/event.h>
#include <wx/weakref.h>

#include <string>
#include <vector>

#include "filelist/window/lvwFiles.h"

namespace quillon {

/// What the two faces of the list share: changes of rows are gathered and shown in one go, what the user selects goes
/// into the FileList, keys mean the same. All row indices are 1-based.
class lvwFilesBase : public lvwFiles {
 public:
  void RowChanged(int index) final;
  void RowsChanged() final;
  void SetInputEnabled(bool enabled) final { inputEnabled_ = enabled; }
  [[nodiscard]] bool IsEditing() const final { return editedRow_ != 0; }

 protected:
  /// Up to so many changed rows are told apart; beyond that all that show are looked at again.
  static constexpr std::size_t kFewRows = 64;
  static constexpr int kIconSize = 16;  // in DIP

  struct Changes {
    bool moved = false;     ///< rows came, went or stand elsewhere
    bool many = false;      ///< more rows changed than are told apart
    std::vector<int> rows;  ///< else these
  };

  lvwFilesBase(FileList& list, Handlers handlers);

  /// Until another one is set, in DIP.
  [[nodiscard]] static int FirstWidth(Column column);

  /// For the end of the derived constructor: `window` is complete, what the list holds shows soon.
  void Start(wxWindow& window);
  /// Stops listening to the window, and deletes it if its parent has not; for the derived destructor.
  void Stop();

  // What a face does for itself; while IsShowing, its native events mean nothing.
  /// Shows the rows of the FileList. False when the control's selection is another one now.
  virtual bool ShowRows(const Changes& changes) = 0;
  /// The rows that the control shows as selected, in rising order.
  [[nodiscard]] virtual std::vector<int> NativeSelection() const = 0;
  /// Selects these rows, in rising order, and no others.
  virtual void SelectNative(const std::vector<int>& rows) = 0;
  virtual void SelectNativeRow(int index, bool selected) = 0;
  /// 0 for none.
  [[nodiscard]] virtual int FocusedRow() const = 0;

  /// Shows now what has not been shown yet.
  void ShowPending();
  /// When the user may have selected something: the FileList's selection becomes the control's.
  void TakeSelection() { TakeSelection(NativeSelection()); }
  void TakeSelection(std::vector<int> native);
  /// Picks up selection changes that raised no event yet. Does nothing where every change raises an event at once.
  virtual void SyncSelection() {}
  /// The user has clicked this row. Its selection may have been the same before, and is told all the same: what follows
  /// the clicked row, the player above all, may have gone on to another one.
  void TakeClick(int index);
  /// Calls `selectionChanged` if it is due; AnnounceSoon does after the pending messages.
  void Announce();
  void AnnounceSoon();

  /// Whether the key is used up.
  bool UseKey(wxKeyEvent& event);
  void Activate(int index);
  void ClickHeader(int column) const;
  void WantMenu(wxPoint screen);
  void SetChecked(int index, bool checked);

  void BeginEdit(int index) { editedRow_ = index; }
  void CancelEdit() { editedRow_ = 0; }
  /// The edit ended with this text; tells `renamed` when the native callback is over.
  void EndEdit(const wxString& text);

  [[nodiscard]] bool IsRow(int index) const { return index >= 1 && index <= list_.Count(); }
  [[nodiscard]] bool InputEnabled() const { return inputEnabled_; }
  [[nodiscard]] bool IsShowing() const { return showing_; }
  [[nodiscard]] const FileList& List() const { return list_; }
  /// The text on one line; empty for a row that is gone.
  [[nodiscard]] wxString CellText(int index, Column column) const;
  /// The row's icon in exactly this size, or an invalid bitmap.
  [[nodiscard]] wxBitmap IconOf(int index, int pixels) const;

 private:
  class DropTarget;

  void ShowSoon();
  void ShowSelection(bool kept, const Changes& changes);
  void PutSelection(const std::vector<int>& rows);
  void SelectAll();
  void ToggleChecks();

  FileList& list_;
  Handlers handlers_;
  wxWeakRef<wxWindow> window_;
  Changes pending_;
  std::vector<int> shown_;  // what the control showed as selected when it was last asked or told
  bool scheduled_ = false;
  bool showing_ = false;  // the control is being changed, not by the user
  bool taking_ = false;   // the FileList takes over what the control shows already
  bool announcing_ = false;
  bool inputEnabled_ = true;
  int editedRow_ = 0;
};

}  // namespace quillon
