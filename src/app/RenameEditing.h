#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/ApplyCommands.h"
#include "app/NameCommands.h"
#include "app/Screen.h"

namespace quillon {

/// The text box under the list, txtAlterTitle. Positions count characters.
class RenameBox {
 public:
  virtual ~RenameBox() = default;
  [[nodiscard]] virtual std::string Text() const = 0;
  /// Does not raise a change event, unlike typing.
  virtual void SetText(const std::string& text) = 0;
  [[nodiscard]] virtual int Caret() const = 0;
  virtual void SetCaret(int position) = 0;
  virtual void SelectWholeText() = 0;
  [[nodiscard]] virtual bool IsEnabled() const = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual void TakeFocus() = 0;
  virtual void Beep() = 0;
};

/// Changes rename names as the user asks: by typing in the box, editing in the list, taking the title, or going back to
/// the present name. In auto-apply mode a change is applied to the file at once, and invalid names are refused.
class RenameEditing {
 public:
  RenameEditing(const Session& session, ApplyCommands& applying, NameCommands& names, RenameBox& box,
                const Screen& screen);

  /// Shows this row's rename name in the box; for index 0 the box is emptied and disabled.
  void Load(int index);
  /// Updates the box when a command has changed the selection or the selected row's rename name.
  void Refresh();

  // Events of the box.
  void Changed();
  void EnterPressed();
  /// True when the box is empty in auto-apply mode and must not stay so: the caller then calls `AskForName` as soon as
  /// a message can be shown.
  [[nodiscard]] bool NeedsName() const;
  void AskForName();
  void GotFocus() { box_.SelectWholeText(); }
  void Clicked();

  /// Call it before another row becomes current and before a sort. In auto-apply mode with an empty box it selects the
  /// edited row again, restores the box's last accepted text and returns false.
  [[nodiscard]] bool MayLeaveRow();

  /// Takes a name that was typed in the list.
  void LabelEdited(int index, const std::string& name);

  void mnuThisRename();
  void mnuAllRename();
  void mnuRename();
  void mnuThisUndo();
  void mnuAllUndo();
  void mnuUndo();

 private:
  void ReplaceInvalidText();
  void WriteTo(const std::vector<int>& rows, const std::string& name);
  void ApplyTyped();
  bool ApplyOrCheck(int index);
  bool TitlesConfirmed(const char* text);
  bool Confirmed(const char* caption, const char* text, MessageIcon icon);
  void Tell(const char* text);
  [[nodiscard]] std::string_view PresentName(int index) const;

  Session session_;
  ApplyCommands& applying_;
  NameCommands& names_;
  RenameBox& box_;
  Screen screen_;
  std::string lastGoodRenameText_;
  int editingItemIndex_ = 0;  // the row that the box shows
};

}  // namespace quillon
