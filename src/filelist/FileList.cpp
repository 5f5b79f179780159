#include "filelist/FileList.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "paths/basFileControl.h"

namespace quillon {

std::size_t FileList::LocationHash::operator()(std::string_view location) const {
  if (style == PathStyle::kLinux) return std::hash<std::string_view>()(location);
  return std::hash<std::string>()(PathIdentity(location, style));
}

bool FileList::LocationEqual::Equal(std::string_view left, std::string_view right) const {
  return style == PathStyle::kLinux ? left == right : PathIdentity(left, style) == PathIdentity(right, style);
}

FileList::FileList(PathStyle style) : style_(style), locations_(0, LocationHash{style}, LocationEqual{style}) {}

int FileList::SelectedIndex() const {
  if (selectedCount_ == 0) return 0;
  if (!firstSelected_) {
    const auto found = std::find_if(rows_.begin(), rows_.end(), [](const auto& row) { return row->selected; });
    firstSelected_ = static_cast<int>(found - rows_.begin()) + 1;
  }
  return *firstSelected_;
}

std::vector<int> FileList::SelectedRows() const {
  std::vector<int> rows;
  const auto wanted = static_cast<std::size_t>(selectedCount_);
  rows.reserve(wanted);
  for (int index = SelectedIndex(); rows.size() < wanted; ++index) {
    if (Row(index).selected) rows.push_back(index);
  }
  return rows;
}

int FileList::FirstCheckedIndex() const {
  if (checkedCount_ == 0) return 0;
  if (!firstChecked_) {
    const auto found = std::find_if(rows_.begin(), rows_.end(), [](const auto& row) { return row->checked; });
    firstChecked_ = static_cast<int>(found - rows_.begin()) + 1;
  }
  return *firstChecked_;
}

int FileList::IndexOf(std::string_view location) const {
  if (!ContainsFile(location)) return 0;
  const LocationEqual equal{style_};
  const auto found =
      std::find_if(rows_.begin(), rows_.end(), [&](const auto& row) { return equal.Equal(row->location, location); });
  return static_cast<int>(found - rows_.begin()) + 1;
}

bool FileList::ContainsFile(std::string_view location) const {
  return locations_.find(location) != locations_.end();
}

bool FileList::ContainsFolder(std::string_view folder) const {
  if (style_ == PathStyle::kLinux) return folders_.find(folder) != folders_.end();
  return folders_.find(PathIdentity(folder, style_)) != folders_.end();
}

void FileList::CountFolder(std::string_view location, int change) {
  std::string identity;
  std::string_view folder = FolderPart(location, style_);
  if (style_ != PathStyle::kLinux) folder = identity = PathIdentity(folder, style_);
  auto found = folders_.find(folder);
  if (found == folders_.end()) found = folders_.emplace(folder, 0).first;
  found->second += change;
  if (found->second == 0) folders_.erase(found);
}

void FileList::Register(FileItem& item) {
  const auto place = locations_.insert(&item);
  try {
    CountFolder(item.location, 1);
  } catch (...) {
    locations_.erase(place);
    throw;
  }
  if (item.checked) ++checkedCount_;
  if (item.selected) ++selectedCount_;
  item.pending = IsPendingName(item, style_);
  if (item.pending) ++pendingCount_;
}

void FileList::Unregister(FileItem& item) {
  const auto [first, last] = locations_.equal_range(&item);
  const auto place = std::find(first, last, &item);
  if (place == last) return;
  CountFolder(item.location, -1);
  locations_.erase(place);
  if (item.checked) --checkedCount_;
  if (item.selected) --selectedCount_;
  if (item.pending) --pendingCount_;
  edits_.Forget(item);
}

void FileList::Reserve(std::size_t more) {
  if (more < rows_.size()) return;  // the containers' own growth costs less than many small steps
  rows_.reserve(rows_.size() + more);
  locations_.reserve(locations_.size() + more);
}

void FileList::Add(FileItem item) {
  ++revision_;
  rows_.push_back(std::make_unique<FileItem>(std::move(item)));
  try {
    Register(*rows_.back());
  } catch (...) {
    rows_.pop_back();
    throw;
  }
  if (quiet_ == 0 && observer_ != nullptr) observer_->RowsChanged();
}

void FileList::Replace(int index, FileItem item) {
  ++revision_;
  FileItem& row = MutableRow(index);
  if (row.location != item.location) Relocate(row, item.location);
  checkedCount_ += static_cast<int>(item.checked) - static_cast<int>(row.checked);
  item.selected = row.selected;
  item.pending = row.pending;
  row = std::move(item);
  UpdatePending(row);
  edits_.Forget(row);
  firstChecked_.reset();
  RowTouched(index);
}

void FileList::EndChanges() {
  if (--quiet_ == 0) RowsTouched();
}

void FileList::SetRenameName(int index, std::string name) {
  ++revision_;
  FileItem& row = MutableRow(index);
  edits_.Record(row);
  row.renameName = std::move(name);
  UpdatePending(row);
  RowTouched(index);
}

void FileList::UpdatePending(FileItem& row) {
  const bool pending = IsPendingName(row, style_);
  pendingCount_ += static_cast<int>(pending) - static_cast<int>(row.pending);
  row.pending = pending;
}

std::vector<int> FileList::Restored(const std::vector<FileItem*>& changed) {
  ++revision_;
  for (FileItem* row : changed) UpdatePending(*row);
  std::vector<int> indices;
  if (changed.empty()) return indices;
  indices.reserve(changed.size());
  const std::unordered_set<const FileItem*> wanted(changed.begin(), changed.end());
  for (int index = 1; indices.size() < changed.size(); ++index) {
    if (wanted.contains(&Row(index))) indices.push_back(index);
  }
  RowsTouched();
  return indices;
}

int FileList::NextPending(int after) const {
  if (pendingCount_ == 0) return 0;
  int index = after;
  do {
    index = index % Count() + 1;
  } while (!Row(index).pending);
  return index;
}

void FileList::SetTexts(int index, std::string title, std::string artist) {
  ++revision_;
  MutableRow(index).title = std::move(title);
  MutableRow(index).artist = std::move(artist);
  RowTouched(index);
}

void FileList::SetLocation(int index, std::string location) {
  ++revision_;
  Relocate(MutableRow(index), std::move(location));
  RowTouched(index);
}

// Counting comes first: it allocates memory for a new folder, and a failure must leave the row unchanged.
void FileList::Relocate(FileItem& row, std::string location) {
  const auto [first, last] = locations_.equal_range(&row);
  const auto place = std::find(first, last, &row);
  if (FolderPart(row.location, style_) != FolderPart(location, style_)) {
    CountFolder(location, 1);
    CountFolder(row.location, -1);
  }
  auto node = locations_.extract(place);
  row.location = std::move(location);
  locations_.insert(std::move(node));
  UpdatePending(row);
}

void FileList::SetChecked(int index, bool checked) {
  FileItem& row = MutableRow(index);
  if (row.checked == checked) return;
  row.checked = checked;
  checkedCount_ += checked ? 1 : -1;
  if (firstChecked_ && (checked ? index < *firstChecked_ : index == *firstChecked_)) firstChecked_.reset();
  if (checked && checkedCount_ == 1) firstChecked_ = index;
  RowTouched(index);
}

void FileList::SetSelected(int index, bool selected) {
  FileItem& row = MutableRow(index);
  if (row.selected == selected) return;
  row.selected = selected;
  selectedCount_ += selected ? 1 : -1;
  if (firstSelected_ && (selected ? index < *firstSelected_ : index == *firstSelected_)) firstSelected_.reset();
  if (selected && selectedCount_ == 1) firstSelected_ = index;
  RowTouched(index);
}

void FileList::SelectOnly(int index) {
  if (selectedCount_ != 1 || SelectedIndex() != index) SelectNone();
  SetSelected(index, true);
}

void FileList::SelectNone() {
  for (int index = SelectedIndex(); selectedCount_ > 0; ++index) SetSelected(index, false);
}

void FileList::SetAllChecked(const std::function<bool(const FileItem&)>& wanted) {
  checkedCount_ = 0;
  for (const auto& row : rows_) {
    row->checked = wanted(*row);
    if (row->checked) ++checkedCount_;
  }
  firstChecked_.reset();
  RowsTouched();
}

void FileList::CheckAll() {
  SetAllChecked([](const FileItem&) { return true; });
}

void FileList::UncheckAll() {
  SetAllChecked([](const FileItem&) { return false; });
}

void FileList::InvertChecks() {
  SetAllChecked([](const FileItem& row) { return !row.checked; });
}

void FileList::RemoveWhere(const std::function<bool(int index, const FileItem&)>& unwanted) {
  std::vector<bool> leaves(rows_.size());
  for (std::size_t i = 0; i < rows_.size(); ++i) leaves[i] = unwanted(static_cast<int>(i) + 1, *rows_[i]);
  if (std::find(leaves.begin(), leaves.end(), true) == leaves.end()) return;
  ++revision_;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (leaves[i]) Unregister(*rows_[i]);
  }
  edits_.Purge();  // a later row may get the address of one that goes
  std::size_t i = 0;
  std::erase_if(rows_, [&](const auto&) { return leaves[i++]; });
  RowsTouched();
}

void FileList::Clear() {
  ++revision_;
  locations_.clear();
  folders_.clear();
  rows_.clear();
  checkedCount_ = 0;
  selectedCount_ = 0;
  pendingCount_ = 0;
  edits_.Clear();
  RowsTouched();
}

void FileList::Sort(Column column, const Collation& order) {
  ++revision_;
  struct Keyed {
    std::string key;
    FileItem* row = nullptr;
  };
  std::vector<Keyed> keyed;
  keyed.reserve(rows_.size());
  for (const auto& row : rows_) keyed.push_back({order.KeyOf(ToLower(ColumnText(*row, column))), row.get()});
  descending_ = !descending_;
  std::stable_sort(keyed.begin(), keyed.end(), [this](const Keyed& left, const Keyed& right) {
    return descending_ ? right.key < left.key : left.key < right.key;
  });
  for (auto& row : rows_) (void)row.release();
  for (std::size_t i = 0; i < keyed.size(); ++i) rows_[i].reset(keyed[i].row);
  RowsTouched();
}

std::uint32_t FileList::IconNumber(std::string_view type) {
  const auto found = iconNumbers_.find(type);
  if (found != iconNumbers_.end()) return found->second;
  const auto number = static_cast<std::uint32_t>(iconNumbers_.size() + 1);
  iconNumbers_.emplace(type, number);
  return number;
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
