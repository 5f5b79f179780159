#include "rename/RenameEditing.h"

#include <algorithm>

#include "base/Text.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

constexpr const char* kAutoApplyCaption = "自動適応モード";
constexpr std::size_t kStatusPathLength = 40;  // characters

}  // namespace

RenameEditing::RenameEditing(FileList& list, const OptionValues& options, const ApplyMode& mode, RenameEngine& engine,
                             TitleRename& titles, Ports ports, PathStyle style)
    : list_(list), options_(options), mode_(mode), engine_(engine), titles_(titles), ports_(ports), style_(style) {}

void RenameEditing::Load(int index) {
  editingItemIndex_ = index;
  const std::string text = index == 0 ? std::string() : WithReplacementCharacters(list_.Row(index).renameName);
  if (ports_.box.Text() != text) ports_.box.SetText(text);
  ports_.box.SetEnabled(index != 0);
  lastGoodRenameText_ = text;
}

void RenameEditing::Refresh() {
  const int selected = list_.SelectedIndex();
  const bool agrees = selected == editingItemIndex_ &&
                      (selected == 0 || ports_.box.Text() == WithReplacementCharacters(list_.Row(selected).renameName));
  if (!agrees) Load(selected);
}

void RenameEditing::Changed() {
  const int selected = list_.SelectedIndex();
  if (!ports_.box.IsEnabled() || selected == 0) return;
  if (ports_.box.Text() == WithReplacementCharacters(list_.Row(selected).renameName)) {
    lastGoodRenameText_ = ports_.box.Text();
    return;
  }
  if (mode_.automatic) ReplaceInvalidText();
  WriteTo(SelectedRows(), ports_.box.Text());
  if (!mode_.automatic) return;
  if (!Trim(ports_.box.Text()).empty()) ApplyTyped();
  if (!ports_.box.Text().empty()) lastGoodRenameText_ = ports_.box.Text();
}

void RenameEditing::ReplaceInvalidText() {
  if (AddedInvalidCharacterPosition(ports_.box.Text(), PresentName(list_.SelectedIndex())) == 0) return;
  ports_.box.Beep();
  const int caret = ports_.box.Caret();
  ports_.box.SetText(lastGoodRenameText_);
  ports_.box.SetCaret(std::max(caret - 1, 0));
}

std::vector<int> RenameEditing::SelectedRows() const {
  std::vector<int> rows;
  const auto count = static_cast<std::size_t>(list_.SelectedCount());
  rows.reserve(count);
  for (int index = list_.SelectedIndex(); rows.size() < count; ++index) {
    if (list_.Row(index).selected) rows.push_back(index);
  }
  return rows;
}

void RenameEditing::WriteTo(const std::vector<int>& rows, const std::string& name) {
  for (const int index : rows) list_.SetRenameName(index, name);
}

void RenameEditing::ApplyTyped() {
  const int index = list_.SelectedIndex();
  // Showing a failed row selects it alone, and loads what was typed.
  const std::vector<int> typedInto = SelectedRows();
  const std::string lastGood = lastGoodRenameText_;
  if (engine_.ApplyRenameName(index) != apply_code::kApplied) {
    ports_.box.TakeFocus();
    ports_.box.SetText(lastGood);
    ports_.box.SelectWholeText();
    WriteTo(typedInto, lastGood);
    lastGoodRenameText_ = lastGood;
    if (options_.update.checkFailedRows) list_.SetChecked(index, true);
  }
  const std::string& location = list_.Row(index).location;
  ports_.player.Choose(location);
  ports_.status.ShowSelection(ShortenPath(location, kStatusPathLength, style_));
}

void RenameEditing::EnterPressed() {
  RenameBox& box = ports_.box;
  if (mode_.automatic && box.Text().empty()) {
    box.SetText(lastGoodRenameText_);
    Changed();
    box.SelectWholeText();
    box.Beep();
    return;
  }
  if (editingItemIndex_ >= list_.Count()) {
    box.Beep();
    return;
  }
  const int next = editingItemIndex_ + 1;
  list_.SelectOnly(next);
  ports_.filePanel.ShowRow(next);
  box.TakeFocus();
  box.SelectWholeText();
}

// A row that came without a name (its file has no extension) may be left as it is: there is nothing to fall back to.
bool RenameEditing::MayNotBeLeft() const {
  return ports_.box.IsEnabled() && mode_.automatic && ports_.box.Text().empty() && !lastGoodRenameText_.empty();
}

void RenameEditing::AskForName() {
  Tell("リネーム名を入力してください");
  // What took the focus may have been a click on another row.
  if (list_.SelectedIndex() != editingItemIndex_) static_cast<void>(MayLeaveRow());
  ports_.box.TakeFocus();
}

void RenameEditing::Clicked() {
  if (MayNotBeLeft()) return;
  const std::string text = ports_.box.Text();
  for (int index = 1; index <= list_.Count(); ++index) {
    if (list_.Row(index).renameName != text) continue;
    if (!list_.Row(index).selected) list_.SelectOnly(index);  // several selected rows stay so
    ports_.filePanel.ShowRow(index);
    return;
  }
}

bool RenameEditing::MayLeaveRow() {
  if (!MayNotBeLeft()) return true;
  if (editingItemIndex_ >= 1 && editingItemIndex_ <= list_.Count()) list_.SelectOnly(editingItemIndex_);
  ports_.box.SetText(lastGoodRenameText_);
  Changed();
  ports_.box.Beep();
  return false;
}

void RenameEditing::LabelEdited(int index, const std::string& name) {
  if (!mode_.automatic) {
    list_.SetRenameName(index, name);
    Refresh();
    return;
  }
  if (AddedInvalidCharacterPosition(name, PresentName(index)) != 0)
    return Tell("不正な文字が含まれているため適応できません");
  if (name.empty()) return Tell("リネーム名が入力されていないため適応できません");
  const std::string before = list_.Row(index).renameName;
  list_.SetRenameName(index, name);
  if (!ApplyOrCheck(index)) list_.SetRenameName(index, before);
  ports_.status.ShowSelection(std::string(FileName(list_.Row(index).location, style_)));
  Refresh();
}

// True when the row was applied; a row that was not is checked as the options say.
bool RenameEditing::ApplyOrCheck(int index) {
  if (engine_.ApplyRenameName(index) == apply_code::kApplied) return true;
  if (options_.update.checkFailedRows) list_.SetChecked(index, true);
  return false;
}

void RenameEditing::mnuThisRename() {
  const int index = list_.SelectedIndex();
  if (index == 0) return;
  const std::string accepted = lastGoodRenameText_;
  list_.SetRenameName(index, list_.Row(index).title);
  Load(index);
  if (!mode_.automatic) return;
  if (Trim(list_.Row(index).title).empty()) {
    lastGoodRenameText_ = accepted;
    return Tell("タイトルが存在しないため適応できません");
  }
  if (!ApplyOrCheck(index)) lastGoodRenameText_ = accepted;
}

void RenameEditing::mnuAllRename() {
  if (Confirmed("タイトルにリネーム", "全アイテムのリネーム名を、それぞれのタイトルに変更します",
                MessageIcon::kQuestion)) {
    titles_.RenameToTitles(true);
  }
}

void RenameEditing::mnuRename() {
  if (Confirmed("タイトルにリネーム", "チェックアイテムのリネーム名を、それぞれのタイトルに変更します",
                MessageIcon::kQuestion)) {
    titles_.RenameToTitles(false);
  }
}

std::string_view RenameEditing::PresentName(int index) const {
  return BaseName(list_.Row(index).location, style_);
}

void RenameEditing::GoBack(int index) {
  list_.SetRenameName(index, std::string(PresentName(index)));
}

void RenameEditing::mnuThisUndo() {
  const int index = list_.SelectedIndex();
  if (index == 0) return;
  GoBack(index);
  Load(index);
}

void RenameEditing::mnuAllUndo() {
  if (!Confirmed("元に戻す", "全アイテムのリネーム名を現在のファイル名に戻します", MessageIcon::kInformation)) return;
  for (int index = 1; index <= list_.Count(); ++index) GoBack(index);
}

void RenameEditing::mnuUndo() {
  if (!Confirmed("元に戻す", "チェックアイテムのリネーム名を現在のファイル名に戻します", MessageIcon::kInformation)) {
    return;
  }
  for (int index = 1; index <= list_.Count(); ++index) {
    if (list_.Row(index).checked) GoBack(index);
  }
}

bool RenameEditing::Confirmed(const char* caption, const char* text, MessageIcon icon) {
  return options_.system.suppressConfirmations || ports_.boxes.Show({caption, text, icon, MessageButtons::kOkCancel});
}

void RenameEditing::Tell(const char* text) {
  ports_.boxes.Show({kAutoApplyCaption, text, MessageIcon::kExclamation, MessageButtons::kOk});
}

}  // namespace quillon
