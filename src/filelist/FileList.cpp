#include "filelist/FileList.h"

#include <algorithm>
#include <utility>

#include "filelist/ColumnOrder.h"

namespace quillon {

FileList::FileList(PathStyle style) : rows_(style) {}

int FileList::SelectedIndex() const {
  if (SelectedCount() == 0) return 0;
  if (!firstSelected_) {
    const auto found = std::find_if(order_.begin(), order_.end(), [this](Id row) { return rows_.IsSelected(row); });
    firstSelected_ = static_cast<int>(found - order_.begin()) + 1;
  }
  return *firstSelected_;
}

std::vector<int> FileList::SelectedRows() const {
  std::vector<int> rows;
  const auto wanted = static_cast<std::size_t>(SelectedCount());
  rows.reserve(wanted);
  for (int index = SelectedIndex(); rows.size() < wanted; ++index) {
    if (rows_.IsSelected(At(index))) rows.push_back(index);
  }
  return rows;
}

int FileList::FirstCheckedIndex() const {
  if (CheckedCount() == 0) return 0;
  if (!firstChecked_) {
    const auto found = std::find_if(order_.begin(), order_.end(), [this](Id row) { return rows_.IsChecked(row); });
    firstChecked_ = static_cast<int>(found - order_.begin()) + 1;
  }
  return *firstChecked_;
}

int FileList::IndexOf(std::string_view location) const {
  const std::vector<Id> rows = rows_.RowsAt(location);
  if (rows.empty()) return 0;
  const auto found = std::find_first_of(order_.begin(), order_.end(), rows.begin(), rows.end());
  return static_cast<int>(found - order_.begin()) + 1;
}

void FileList::Reserve(std::size_t more) {
  if (more < order_.size()) return;  // the containers' own growth costs less than many small steps
  order_.reserve(order_.size() + more);
  rows_.Reserve(more);
}

void FileList::Add(const FileItem& item) {
  ++revision_;
  order_.emplace_back();
  try {
    order_.back() = rows_.Add(item);
  } catch (...) {
    order_.pop_back();
    throw;
  }
  if (quiet_ == 0 && observer_ != nullptr) observer_->RowsChanged();
}

void FileList::Replace(int index, const FileItem& item) {
  ++revision_;
  rows_.Replace(At(index), item);
  edits_.Forget(At(index));
  firstChecked_.reset();
  RowTouched(index);
}

void FileList::EndChanges() {
  if (--quiet_ == 0) RowsTouched();
}

void FileList::SetRenameName(int index, std::string_view name) {
  ++revision_;
  edits_.Record(At(index));
  rows_.SetRenameName(At(index), name);
  RowTouched(index);
}

std::vector<int> FileList::Restored(const std::vector<Id>& changed) {
  ++revision_;
  std::vector<int> indices;
  if (changed.empty()) return indices;
  indices.reserve(changed.size());
  std::vector<bool> wanted(rows_.Bound());
  for (const Id row : changed) wanted[row] = true;
  for (int index = 1; indices.size() < changed.size(); ++index) {
    if (wanted[At(index)]) indices.push_back(index);
  }
  RowsTouched();
  return indices;
}

int FileList::NextPending(int after) const {
  if (PendingCount() == 0) return 0;
  int index = after;
  do {
    index = index % Count() + 1;
  } while (!rows_.IsPending(At(index)));
  return index;
}

void FileList::SetTexts(int index, std::string_view title, std::string_view artist) {
  ++revision_;
  rows_.SetTexts(At(index), title, artist);
  RowTouched(index);
}

void FileList::SetLocation(int index, std::string_view location) {
  ++revision_;
  rows_.SetLocation(At(index), location);
  RowTouched(index);
}

void FileList::SetChecked(int index, bool checked) {
  if (rows_.IsChecked(At(index)) == checked) return;
  rows_.SetChecked(At(index), checked);
  if (firstChecked_ && (checked ? index < *firstChecked_ : index == *firstChecked_)) firstChecked_.reset();
  if (checked && CheckedCount() == 1) firstChecked_ = index;
  RowTouched(index);
}

void FileList::SetSelected(int index, bool selected) {
  if (rows_.IsSelected(At(index)) == selected) return;
  rows_.SetSelected(At(index), selected);
  if (firstSelected_ && (selected ? index < *firstSelected_ : index == *firstSelected_)) firstSelected_.reset();
  if (selected && SelectedCount() == 1) firstSelected_ = index;
  RowTouched(index);
}

void FileList::SelectOnly(int index) {
  if (SelectedCount() > 1) return SelectRows({index});
  if (SelectedIndex() != index) SelectNone();
  SetSelected(index, true);
}

void FileList::SelectNone() {
  if (SelectedCount() == 1) return SetSelected(SelectedIndex(), false);
  if (SelectedCount() != 0) SelectRows({});
}

void FileList::SelectAll() {
  if (SelectedCount() == Count()) return;
  for (const Id row : order_) rows_.SetSelected(row, true);
  firstSelected_ = 1;
  MarksTouched();
}

void FileList::SelectRows(const std::vector<int>& rows) {
  for (int index = SelectedIndex(); SelectedCount() != 0; ++index) rows_.SetSelected(At(index), false);
  for (const int index : rows) rows_.SetSelected(At(index), true);
  firstSelected_.reset();
  if (!rows.empty()) firstSelected_ = rows.front();
  MarksTouched();
}

template <class Wanted>
void FileList::SetAllChecked(const Wanted& wanted) {
  for (const Id row : order_) rows_.SetChecked(row, wanted(row));
  firstChecked_.reset();
  MarksTouched();
}

void FileList::CheckAll() {
  SetAllChecked([](Id) { return true; });
}

void FileList::UncheckAll() {
  SetAllChecked([](Id) { return false; });
}

void FileList::InvertChecks() {
  SetAllChecked([this](Id row) { return !rows_.IsChecked(row); });
}

void FileList::RemoveWhere(const std::function<bool(int index, const FileRow& row)>& unwanted) {
  std::vector<bool> leaves(order_.size());
  for (std::size_t i = 0; i < order_.size(); ++i) leaves[i] = unwanted(static_cast<int>(i) + 1, rows_.Row(order_[i]));
  if (std::find(leaves.begin(), leaves.end(), true) == leaves.end()) return;
  ++revision_;
  for (std::size_t i = 0; i < order_.size(); ++i) {
    if (leaves[i]) edits_.Forget(order_[i]);
  }
  edits_.Purge();  // a later row may get the number of one that goes
  std::size_t i = 0;
  std::erase_if(order_, [&](Id row) {
    if (!leaves[i++]) return false;
    rows_.Remove(row);
    return true;
  });
  RowsTouched();
}

void FileList::Clear() {
  ++revision_;
  order_ = {};
  rows_.Clear();
  edits_.Clear();
  RowsTouched();
}

void FileList::Sort(Column column, const Collation& order, Progress* progress) {
  Unwatched unwatched;
  const bool falling = !descending_;
  std::optional<std::vector<std::uint32_t>> places =
      PlacesInOrder(rows_, order_, column, falling, order, progress == nullptr ? unwatched : *progress);
  if (!places) return;
  ++revision_;
  descending_ = falling;
  for (std::uint32_t& place : *places) place = order_[place];
  order_ = *std::move(places);
  RowsTouched();
}

std::string FileList::IconKey(std::uint32_t number) {
  return "ICONKEY" + std::to_string(number);
}

void FileList::RowTouched(int index) const {
  if (quiet_ == 0 && observer_ != nullptr) observer_->RowChanged(index);
}

void FileList::RowsTouched() {
  firstSelected_.reset();
  firstChecked_.reset();
  if (quiet_ == 0 && observer_ != nullptr) observer_->RowsChanged();
}

void FileList::MarksTouched() const {
  if (quiet_ == 0 && observer_ != nullptr) observer_->MarksChanged();
}

std::string CheckCountText(const FileList& list) {
  return "チェック数： " + std::to_string(list.CheckedCount());
}

std::string ItemCountText(const FileList& list) {
  return "アイテム数：  " + std::to_string(list.Count());
}

std::string PendingCountText(const FileList& list) {
  return "未適応： " + std::to_string(list.PendingCount());
}

}  // namespace quillon
