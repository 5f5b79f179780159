#include "filelist/EditHistory.h"

#include <algorithm>
#include <utility>

#include "filelist/FileItem.h"

namespace quillon {
namespace {

std::size_t BytesOf(const EditHistory::Changes& changes) {
  std::size_t bytes = 0;
  for (const EditHistory::Change& change : changes) bytes += sizeof(change) + change.name.capacity();
  return bytes;
}

bool AreOfSameRows(const EditHistory::Changes& left, const EditHistory::Changes& right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](const auto& one, const auto& other) { return one.row == other.row; });
}

}  // namespace

void EditHistory::Begin(Merging merging) {
  merging_ = merging;
  if (merging != Merging::kTyping) typing_ = false;
  isOpen_ = true;
}

void EditHistory::Record(FileItem& row) {
  if (!isOpen_ || !recorded_.insert(&row).second) return;
  open_.push_back({&row, row.renameName});
}

void EditHistory::End() {
  Purge();
  if (!std::exchange(isOpen_, false)) return;
  recorded_.clear();
  Changes changes = std::exchange(open_, {});
  const bool typed = merging_ == Merging::kTyping;
  if (typed && typing_ && !undo_.empty() && AreOfSameRows(undo_.back(), changes)) {
    redo_.clear();
    DropUnchanged(undo_.back());
    if (undo_.back().empty()) {
      undo_.pop_back();
      typing_ = false;
    }
    return;
  }
  DropUnchanged(changes);
  if (changes.empty()) return;
  redo_.clear();
  undo_.push_back(std::move(changes));
  typing_ = typed;
  Trim();
}

void EditHistory::DropUnchanged(Changes& changes) {
  std::erase_if(changes, [](const Change& change) { return change.row->renameName == change.name; });
}

void EditHistory::Trim() {
  std::size_t bytes = 0;
  for (const Steps* steps : {&undo_, &redo_}) {
    for (const Changes& step : *steps) bytes += BytesOf(step);
  }
  while (undo_.size() > kMostSteps || bytes > kMostBytes) {
    Steps& steps = undo_.empty() ? redo_ : undo_;
    bytes -= BytesOf(steps.front());
    steps.pop_front();
  }
  if (undo_.empty()) typing_ = false;
}

void EditHistory::Forget(FileItem& row) {
  if (CanUndo() || CanRedo() || isOpen_) forgotten_.insert(&row);
}

void EditHistory::Purge() {
  if (forgotten_.empty()) return;
  const auto purge = [this](Changes& changes) {
    std::erase_if(changes, [this](const Change& change) { return forgotten_.contains(change.row); });
    return changes.empty();
  };
  purge(open_);
  std::erase_if(undo_, purge);
  std::erase_if(redo_, purge);
  for (const FileItem* row : forgotten_) recorded_.erase(row);
  forgotten_.clear();
  typing_ = false;
}

void EditHistory::Clear() {
  undo_.clear();
  redo_.clear();
  open_.clear();
  recorded_.clear();
  forgotten_.clear();
  typing_ = false;
}

std::vector<FileItem*> EditHistory::Exchange(Steps& from, Steps& to) {
  std::vector<FileItem*> rows;
  if (from.empty()) return rows;
  Changes step = std::move(from.back());
  from.pop_back();
  rows.reserve(step.size());
  for (Change& change : step) {
    std::swap(change.row->renameName, change.name);
    rows.push_back(change.row);
  }
  to.push_back(std::move(step));
  typing_ = false;
  Trim();
  return rows;
}

}  // namespace quillon
