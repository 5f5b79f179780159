#include "app/RenameEditing.h"

#include <algorithm>

#include "base/Text.h"
#include "paths/basFileControl.h"
#include "rename/RestoreNames.h"

namespace quillon {
namespace {

constexpr const char* kAutoApplyCaption = "自動適応モード";
constexpr std::size_t kStatusPathLength = 40;  // characters

}  // namespace

RenameEditing::RenameEditing(const Session& session, ApplyCommands& applying, NameCommands& names, RenameBox& box,
                             const Screen& screen)
    : session_(session), applying_(applying), names_(names), box_(box), screen_(screen) {}

void RenameEditing::Load(int index) {
  editingItemIndex_ = index;
  const std::string text = index == 0 ? std::string() : WithReplacementCharacters(session_.list.Row(index).renameName);
  if (box_.Text() != text) box_.SetText(text);
  box_.SetEnabled(index != 0);
  lastGoodRenameText_ = text;
}

void RenameEditing::Refresh() {
  const int selected = session_.list.SelectedIndex();
  const bool agrees =
      selected == editingItemIndex_ &&
      (selected == 0 || box_.Text() == WithReplacementCharacters(session_.list.Row(selected).renameName));
  if (!agrees) Load(selected);
}

void RenameEditing::Changed() {
  const int selected = session_.list.SelectedIndex();
  if (!box_.IsEnabled() || selected == 0) return;
  if (box_.Text() == WithReplacementCharacters(session_.list.Row(selected).renameName)) {
    lastGoodRenameText_ = box_.Text();
    return;
  }
  if (session_.mode.automatic) ReplaceInvalidText();
  WriteTo(session_.list.SelectedRows(), box_.Text());
  if (!session_.mode.automatic) return;
  if (!Trim(box_.Text()).empty()) ApplyTyped();
  if (!box_.Text().empty()) lastGoodRenameText_ = box_.Text();
}

void RenameEditing::ReplaceInvalidText() {
  if (AddedInvalidCharacterPosition(box_.Text(), PresentName(session_.list.SelectedIndex())) == 0) return;
  box_.Beep();
  const int caret = box_.Caret();
  box_.SetText(lastGoodRenameText_);
  box_.SetCaret(std::max(caret - 1, 0));
}

void RenameEditing::WriteTo(const std::vector<int>& rows, const std::string& name) {
  for (const int index : rows) session_.list.SetRenameName(index, name);
}

void RenameEditing::ApplyTyped() {
  const int index = session_.list.SelectedIndex();
  // Saved first, because showing a failed row selects only that row and reloads the box.
  const std::vector<int> typedInto = session_.list.SelectedRows();
  const std::string lastGood = lastGoodRenameText_;
  if (applying_.ApplyRenameName(index) != ApplyCode::kApplied) {
    box_.TakeFocus();
    box_.SetText(lastGood);
    box_.SelectWholeText();
    WriteTo(typedInto, lastGood);
    lastGoodRenameText_ = lastGood;
    if (session_.options.update.checkFailedRows) session_.list.SetChecked(index, true);
  }
  const std::string location = session_.list.Row(index).Location();
  session_.player.Choose(location);
  screen_.status.ShowSelection(ShortenPath(location, kStatusPathLength, session_.style));
}

void RenameEditing::EnterPressed() {
  if (session_.mode.automatic && box_.Text().empty()) {
    box_.SetText(lastGoodRenameText_);
    Changed();
    box_.SelectWholeText();
    box_.Beep();
    return;
  }
  if (editingItemIndex_ >= session_.list.Count()) {
    box_.Beep();
    return;
  }
  const int next = editingItemIndex_ + 1;
  session_.list.SelectOnly(next);
  screen_.filePanel.ShowRow(next);
  box_.TakeFocus();
  box_.SelectWholeText();
}

// A row that was loaded without a name (its file has no extension) may stay empty, because there is no name to restore.
bool RenameEditing::NeedsName() const {
  return box_.IsEnabled() && session_.mode.automatic && box_.Text().empty() && !lastGoodRenameText_.empty();
}

void RenameEditing::AskForName() {
  Tell("リネーム名を入力してください");
  // The focus may have been lost by a click on another row.
  if (session_.list.SelectedIndex() != editingItemIndex_) static_cast<void>(MayLeaveRow());
  box_.TakeFocus();
}

void RenameEditing::Clicked() {
  if (NeedsName()) return;
  const std::string text = box_.Text();
  for (int index = 1; index <= session_.list.Count(); ++index) {
    if (session_.list.Row(index).renameName != text) continue;
    if (!session_.list.Row(index).selected) session_.list.SelectOnly(index);  // keeps several selected rows
    screen_.filePanel.ShowRow(index);
    return;
  }
}

bool RenameEditing::MayLeaveRow() {
  if (!NeedsName()) return true;
  if (editingItemIndex_ >= 1 && editingItemIndex_ <= session_.list.Count()) session_.list.SelectOnly(editingItemIndex_);
  box_.SetText(lastGoodRenameText_);
  Changed();
  box_.Beep();
  return false;
}

void RenameEditing::LabelEdited(int index, const std::string& name) {
  if (!session_.mode.automatic) {
    session_.list.SetRenameName(index, name);
    Refresh();
    return;
  }
  if (AddedInvalidCharacterPosition(name, PresentName(index)) != 0)
    return Tell("不正な文字が含まれているため適応できません");
  if (name.empty()) return Tell("リネーム名が入力されていないため適応できません");
  const std::string before(session_.list.Row(index).renameName);
  session_.list.SetRenameName(index, name);
  if (!ApplyOrCheck(index)) session_.list.SetRenameName(index, before);
  screen_.status.ShowSelection(std::string(session_.list.Row(index).name));
  Refresh();
}

// Returns true when the row was applied; otherwise checks the row if the options say so.
bool RenameEditing::ApplyOrCheck(int index) {
  if (applying_.ApplyRenameName(index) == ApplyCode::kApplied) return true;
  if (session_.options.update.checkFailedRows) session_.list.SetChecked(index, true);
  return false;
}

void RenameEditing::mnuThisRename() {
  const int index = session_.list.SelectedIndex();
  if (index == 0) return;
  const std::string accepted = lastGoodRenameText_;
  session_.list.SetRenameName(index, session_.list.Row(index).title);
  Load(index);
  if (!session_.mode.automatic) return;
  if (Trim(session_.list.Row(index).title).empty()) {
    lastGoodRenameText_ = accepted;
    return Tell("タイトルが存在しないため適応できません");
  }
  if (!ApplyOrCheck(index)) lastGoodRenameText_ = accepted;
}

void RenameEditing::mnuAllRename() {
  if (TitlesConfirmed("全アイテムのリネーム名を、それぞれのタイトルに変更します")) names_.RenameToTitles(Rows::kAll);
}

void RenameEditing::mnuRename() {
  if (TitlesConfirmed("チェックアイテムのリネーム名を、それぞれのタイトルに変更します")) {
    names_.RenameToTitles(Rows::kChecked);
  }
}

bool RenameEditing::TitlesConfirmed(const char* text) {
  constexpr const char* kCaption = "タイトルにリネーム";
  if (!session_.mode.automatic) return Confirmed(kCaption, text, MessageIcon::kQuestion);
  return session_.options.system.suppressConfirmations ||
         screen_.boxes.AskQuestion({.message = {kCaption, text, MessageIcon::kQuestion, MessageButtons::kOkCancel},
                                    .details = kAppliesAtOnceText}) == QuestionAnswer::kYes;
}

std::string_view RenameEditing::PresentName(int index) const {
  return session_.list.Row(index).BaseName();
}

void RenameEditing::mnuThisUndo() {
  const int index = session_.list.SelectedIndex();
  if (index == 0) return;
  RestoreName(session_.list, index);
  Load(index);
}

void RenameEditing::mnuAllUndo() {
  if (Confirmed("元に戻す", "全アイテムのリネーム名を現在のファイル名に戻します", MessageIcon::kInformation)) {
    RestoreNames(session_.list, Rows::kAll);
  }
}

void RenameEditing::mnuUndo() {
  if (Confirmed("元に戻す", "チェックアイテムのリネーム名を現在のファイル名に戻します", MessageIcon::kInformation)) {
    RestoreNames(session_.list, Rows::kChecked);
  }
}

bool RenameEditing::Confirmed(const char* caption, const char* text, MessageIcon icon) {
  return session_.options.system.suppressConfirmations ||
         screen_.boxes.Show({caption, text, icon, MessageButtons::kOkCancel});
}

void RenameEditing::Tell(const char* text) {
  screen_.boxes.Show({kAutoApplyCaption, text, MessageIcon::kExclamation, MessageButtons::kOk});
}

}  // namespace quillon
