#include "filelist/EditHistory.h"

#include <algorithm>
#include <utility>

namespace quillon {

bool EditHistory::RowSet::Insert(Row row) {
  if (Contains(row)) return false;
  if (row >= has_.size()) has_.resize(std::max<std::size_t>(row + std::size_t{1}, 2 * has_.size()));
  has_[row] = true;
  ++count_;
  return true;
}

void EditHistory::RowSet::Erase(Row row) {
  if (!Contains(row)) return;
  has_[row] = false;
  --count_;
}

void EditHistory::RowSet::Clear() {
  has_.clear();
  count_ = 0;
}

void EditHistory::Step::Add(Row row, std::string_view name) {
  names += name;
  changes.push_back({row, static_cast<std::uint32_t>(name.size())});
}

template <class Use>
void EditHistory::Step::ForEach(const Use& use) const {
  std::size_t at = 0;
  for (const Change& change : changes) {
    use(change.row, std::string_view(names).substr(at, change.length));
    at += change.length;
  }
}

template <class Unwanted>
void EditHistory::Step::EraseIf(const Unwanted& unwanted) {
  std::size_t read = 0;
  std::size_t written = 0;
  std::erase_if(changes, [&](const Change& change) {
    const std::string_view name =
        std::string_view(names).substr(std::exchange(read, read + change.length), change.length);
    if (unwanted(change.row, name)) return true;
    std::char_traits<char>::move(names.data() + written, name.data(), name.size());
    written += change.length;
    return false;
  });
  names.resize(written);
}

bool EditHistory::Step::IsOfSameRows(const Step& other) const {
  return std::equal(changes.begin(), changes.end(), other.changes.begin(), other.changes.end(),
                    [](const Change& one, const Change& two) { return one.row == two.row; });
}

void EditHistory::Begin(Merging merging) {
  merging_ = merging;
  if (merging != Merging::kTyping) typing_ = false;
  isOpen_ = true;
}

void EditHistory::Record(Row row) {
  if (isOpen_ && recorded_.Insert(row)) open_.Add(row, rows_.RenameName(row));
}

void EditHistory::End() {
  Purge();
  if (!std::exchange(isOpen_, false)) return;
  recorded_.Clear();
  Step step = std::exchange(open_, {});
  const bool typed = merging_ == Merging::kTyping;
  if (typed && typing_ && !undo_.empty() && undo_.back().IsOfSameRows(step)) {
    redo_.clear();
    DropUnchanged(undo_.back());
    if (undo_.back().changes.empty()) {
      undo_.pop_back();
      typing_ = false;
    }
    return;
  }
  DropUnchanged(step);
  if (step.changes.empty()) return;
  step.changes.shrink_to_fit();
  step.names.shrink_to_fit();
  redo_.clear();
  undo_.push_back(std::move(step));
  typing_ = typed;
  Trim();
}

void EditHistory::DropUnchanged(Step& step) const {
  step.EraseIf([this](Row row, std::string_view name) { return rows_.RenameName(row) == name; });
}

void EditHistory::Trim() {
  std::size_t bytes = 0;
  for (const Steps* steps : {&undo_, &redo_}) {
    for (const Step& step : *steps) bytes += step.Bytes();
  }
  while (undo_.size() > kMostSteps || bytes > kMostBytes) {
    Steps& steps = undo_.empty() ? redo_ : undo_;
    bytes -= steps.front().Bytes();
    steps.pop_front();
  }
  if (undo_.empty()) typing_ = false;
}

void EditHistory::Forget(Row row) {
  if (CanUndo() || CanRedo() || isOpen_) forgotten_.Insert(row);
}

void EditHistory::Purge() {
  if (forgotten_.Empty()) return;
  const auto purge = [this](Step& step) {
    step.EraseIf([this](Row row, std::string_view) { return forgotten_.Contains(row); });
    return step.changes.empty();
  };
  for (const Step::Change& change : open_.changes) {
    if (forgotten_.Contains(change.row)) recorded_.Erase(change.row);
  }
  purge(open_);
  std::erase_if(undo_, purge);
  std::erase_if(redo_, purge);
  forgotten_.Clear();
  typing_ = false;
}

void EditHistory::Clear() {
  undo_.clear();
  redo_.clear();
  open_ = {};
  recorded_.Clear();
  forgotten_.Clear();
  typing_ = false;
}

std::vector<EditHistory::Row> EditHistory::Exchange(Steps& from, Steps& to) {
  std::vector<Row> rows;
  if (from.empty()) return rows;
  const Step step = std::move(from.back());
  from.pop_back();
  rows.reserve(step.changes.size());
  Step back;
  back.changes.reserve(step.changes.size());
  step.ForEach([&](Row row, std::string_view name) {
    back.Add(row, rows_.RenameName(row));
    rows_.SetRenameName(row, name);
    rows.push_back(row);
  });
  back.names.shrink_to_fit();
  to.push_back(std::move(back));
  typing_ = false;
  Trim();
  return rows;
}

}  // namespace quillon
