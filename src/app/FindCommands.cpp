#include "app/FindCommands.h"

#include <algorithm>

#include "base/Text.h"

namespace quillon {

FindCommands::FindCommands(const Session& session, RenameEditing& editing, FindLine& line, const Screen& screen)
    : session_(session), editing_(editing), line_(line), screen_(screen), rows_(session.list) {}

void FindCommands::mnuFind() {
  if (!editing_.MayLeaveRow()) return;
  line_.OpenFindLine();
  Refresh();
}

void FindCommands::mnuFindNext() {
  GoOn(Direction::kNext);
}

void FindCommands::mnuFindPrevious() {
  GoOn(Direction::kPrevious);
}

void FindCommands::GoOn(Direction direction) {
  if (rows_.Text().empty()) return mnuFind();
  const int selected = session_.list.SelectedIndex();
  GoTo(direction == Direction::kNext ? rows_.Next(selected) : rows_.Previous(selected));
  Refresh();
}

void FindCommands::TextChanged(const std::string& text) {
  const int selected = session_.list.SelectedIndex();
  if (selected != typed_) start_ = std::max(selected, 1);
  rows_.SetText(text);
  GoTo(rows_.From(start_));
  typed_ = session_.list.SelectedIndex();
  Refresh();
}

void FindCommands::Close() {
  line_.CloseFindLine();
}

void FindCommands::Refresh() {
  if (line_.IsFindLineOpen()) line_.ShowFound(FoundText());
}

void FindCommands::GoTo(int index) {
  if (index == 0 || !editing_.MayLeaveRow()) return;
  if (index == session_.list.SelectedIndex() && session_.list.SelectedCount() == 1) {
    screen_.window.ScrollToRow(index);  // it may be out of view
    return;
  }
  session_.list.SelectOnly(index);
  screen_.filePanel.ShowRow(index);
}

std::string FindCommands::FoundText() {
  if (rows_.Text().empty()) return {};
  const auto count = static_cast<std::size_t>(rows_.Count());
  if (count == 0) return "見つかりません";
  const auto number = static_cast<std::size_t>(rows_.NumberOf(session_.list.SelectedIndex()));
  return number == 0 ? FormatThousands(count) + " 件" : FormatThousands(number) + " / " + FormatThousands(count);
}

}  // namespace quillon
