#include "filelist/FolderTable.h"

#include "paths/basFileControl.h"

namespace quillon {

// Everything that can fail comes first, so that a failure changes nothing.
FolderTable::Id FolderTable::EnterEntry(std::string_view text) {
  if (const Id* known = FindEntry(text)) {
    ++entries_[*known].uses;
    return *known;
  }
  if (firstUnused_ == kNone) {
    entries_.push_back({nullptr, kNone, 0});
    firstUnused_ = static_cast<Id>(entries_.size() - 1);
  }
  const auto place = ids_.emplace(text, firstUnused_).first;
  const Id id = firstUnused_;
  firstUnused_ = entries_[id].identity;
  entries_[id] = {&place->first, id, 1};
  return id;
}

FolderTable::Id FolderTable::Enter(std::string_view folder) {
  if (style_ == PathStyle::kLinux) return EnterEntry(folder);
  const Id id = EnterEntry(folder);
  if (entries_[id].uses > 1) return id;
  try {
    const std::string identity = PathIdentity(folder, style_);
    if (identity != folder) entries_[id].identity = EnterEntry(identity);
  } catch (...) {
    Leave(id);
    throw;
  }
  return id;
}

void FolderTable::Leave(Id folder) noexcept {
  Entry& entry = entries_[folder];
  if (--entry.uses != 0) return;
  const Id identity = entry.identity;
  const auto place = ids_.find(*entry.text);
  if (&*place == last_) last_ = nullptr;
  ids_.erase(place);
  entry = {nullptr, firstUnused_, 0};
  firstUnused_ = folder;
  if (identity != folder) Leave(identity);
}

void FolderTable::Clear() noexcept {
  ids_.clear();
  last_ = nullptr;
  entries_.clear();
  firstUnused_ = kNone;
}

const FolderTable::Id* FolderTable::FindEntry(std::string_view text) const {
  if (last_ != nullptr && last_->first == text) return &last_->second;
  const auto found = ids_.find(text);
  if (found == ids_.end()) return nullptr;
  last_ = &*found;
  return &found->second;
}

const FolderTable::Id* FolderTable::Find(std::string_view folder) const {
  return style_ == PathStyle::kLinux ? FindEntry(folder) : FindEntry(PathIdentity(folder, style_));
}

}  // namespace quillon
