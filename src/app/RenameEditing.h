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
  /// Does not count as typing.
  virtual void SetText(const std::string& text) = 0;
  [[nodiscard]] virtual int Caret() const = 0;
  virtual void SetCaret(int position) = 0;
  virtual void SelectWholeText() = 0;
  [[nodiscard]] virtual bool IsEnabled() const = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual void TakeFocus() = 0;
  virtual void Beep() = 0;
};

/// Every way in which a rename name changes by hand: typing in the box, editing in the list, titles, going back to the
/// present name. In auto-apply mode a change is applied to the file at once, and names that cannot be given are
/// refused.
class RenameEditing {
 public:
  RenameEditing(const Session& session, ApplyCommands& applying, NameCommands& names, RenameBox& box,
                const Screen& screen);

  /// The box shows this row's rename name; 0: it is empty and disabled.
  void Load(int index);
  /// The box follows what a command did to the selected row's name; nothing when they agree.
  void Refresh();

  // Events of the box.
  void Changed();
  void EnterPressed();
  /// True when the box is empty in auto-apply mode and must not be left so: the caller then calls `AskForName` as soon
  /// as a message can be shown.
  [[nodiscard]] bool NeedsName() const;
  void AskForName();
  void GotFocus() { box_.SelectWholeText(); }
  void Clicked();

  /// Asked before another row becomes current and before a sort. False in auto-apply mode with an empty box: the row
  /// being edited is selected again then, and the box has its last accepted text back.
  [[nodiscard]] bool MayLeaveRow();

  /// A name that was typed in the list itself.
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
  bool Confirmed(const char* caption, const char* text, MessageIcon icon);
  void Tell(const char* text);
  [[nodiscard]] std::string_view PresentName(int index) const;
  void GoBack(int index);

  Session session_;
  ApplyCommands& applying_;
  NameCommands& names_;
  RenameBox& box_;
  Screen screen_;
  std::string lastGoodRenameText_;
  int editingItemIndex_ = 0;  // the row that the box shows
};

}  // namespace quillon
