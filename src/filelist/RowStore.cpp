#include "filelist/RowStore.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "base/Text.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15u;  // an odd number without a pattern in its bits

/// Equal for characters that PathIdentity makes equal.
std::uint32_t IdentityOf(std::string_view text, const Character& c, std::size_t offset) {
  constexpr std::uint32_t kUndecodable = 0x110000;  // beyond all characters
  return c.valid ? static_cast<std::uint32_t>(UpperCharacter(c.codePoint))
                 : kUndecodable + static_cast<unsigned char>(text[offset]);
}

// PathIdentity itself needs memory, which may have run out when a row must leave.
std::uint64_t NameHash(std::string_view name, PathStyle style) noexcept {
  if (style == PathStyle::kLinux) return std::hash<std::string_view>()(name);
  std::uint64_t hash = 0;
  for (std::size_t i = 0; i < name.size();) {
    const Character c = CharacterAt(name, i);
    hash = (hash ^ IdentityOf(name, c, i)) * kSpread;
    hash ^= hash >> 32u;
    i += c.length;
  }
  return hash;
}

bool IsSameName(std::string_view left, std::string_view right, PathStyle style) noexcept {
  if (left == right || style == PathStyle::kLinux) return left == right;
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < left.size() && j < right.size()) {
    const Character one = CharacterAt(left, i);
    const Character other = CharacterAt(right, j);
    if (IdentityOf(left, one, i) != IdentityOf(right, other, j)) return false;
    i += one.length;
    j += other.length;
  }
  return i == left.size() && j == right.size();
}

}  // namespace

RowStore::Texts RowStore::TextsOf(const Record& record) {
  const char* at = record.texts.get();
  const auto next = [&at](std::size_t length) { return std::string_view(std::exchange(at, at + length), length); };
  Texts texts;
  texts.name = next(record.nameLength);
  texts.title = next(record.titleLength);
  texts.artist = next(record.artistLength);
  texts.renameName = record.beginsName ? texts.name.substr(0, record.renameNameLength) : next(record.renameNameLength);
  return texts;
}

// The texts may lie in the record's own block.
void RowStore::Write(Record& record, const Texts& texts) {
  const bool beginsName = texts.name.starts_with(texts.renameName);
  const std::size_t size =
      texts.name.size() + texts.title.size() + texts.artist.size() + (beginsName ? 0 : texts.renameName.size());
  std::unique_ptr<char[]> block(size == 0 ? nullptr : new char[size]);
  char* end = block.get();
  for (const std::string_view text : {texts.name, texts.title, texts.artist}) end = std::ranges::copy(text, end).out;
  if (!beginsName) std::ranges::copy(texts.renameName, end);
  record.nameLength = static_cast<std::uint32_t>(texts.name.size());
  record.titleLength = static_cast<std::uint32_t>(texts.title.size());
  record.artistLength = static_cast<std::uint32_t>(texts.artist.size());
  record.renameNameLength = static_cast<std::uint32_t>(texts.renameName.size());
  record.beginsName = beginsName ? 1 : 0;
  record.pending = IsPendingName(texts.renameName, texts.name) ? 1 : 0;
  record.texts = std::move(block);
}

std::uint32_t RowStore::HashOf(FolderTable::Id identity, std::string_view name) const noexcept {
  std::uint64_t hash = NameHash(name, style_) ^ (identity + 1) * kSpread;
  hash = (hash ^ hash >> 32u) * kSpread;
  return static_cast<std::uint32_t>(hash >> 32u);
}

std::uint32_t RowStore::HashOf(const Record& record) const noexcept {
  return HashOf(folders_.Identity(record.folder), TextsOf(record).name);
}

/// A record for this item that is in no table yet, except for its folder.
RowStore::Record RowStore::Made(const FileItem& item) {
  Record record;
  record.type = (TypeNumber(item.type) - 1) & ((1u << kTypeBits) - 1);
  record.size = item.size;
  record.checked = item.checked ? 1 : 0;
  record.selected = item.selected ? 1 : 0;
  Write(record, {FileName(item.location, style_), item.title, item.artist, item.renameName});
  record.folder = folders_.Enter(FolderPart(item.location, style_));
  return record;
}

/// Puts a record into a place that has none.
void RowStore::Enter(Id row, Record&& next) noexcept {
  records_[row] = std::move(next);
  const Record& record = records_[row];
  locations_.Insert(HashOf(record), row);
  checkedCount_ += static_cast<int>(record.checked);
  selectedCount_ += static_cast<int>(record.selected);
  pendingCount_ += static_cast<int>(record.pending);
}

RowStore::Record RowStore::Leave(Id row) noexcept {
  Record record = std::move(records_[row]);
  locations_.Erase(HashOf(record), row);
  folders_.Leave(record.folder);
  checkedCount_ -= static_cast<int>(record.checked);
  selectedCount_ -= static_cast<int>(record.selected);
  pendingCount_ -= static_cast<int>(record.pending);
  return record;
}

void RowStore::Reserve(std::size_t more) {
  records_.reserve(records_.size() + more);
  locations_.Reserve(records_.size() + more);
}

RowStore::Id RowStore::Add(const FileItem& item) {
  locations_.ReserveOneMore();
  if (firstUnused_ == kNone) {
    records_.emplace_back().folder = kNone;
    firstUnused_ = static_cast<Id>(records_.size() - 1);
  }
  Record record = Made(item);
  const Id row = std::exchange(firstUnused_, records_[firstUnused_].folder);
  Enter(row, std::move(record));
  return row;
}

void RowStore::Replace(Id row, const FileItem& item) {
  Record next = Made(item);
  next.selected = records_[row].selected;
  Leave(row);
  Enter(row, std::move(next));
}

void RowStore::Remove(Id row) noexcept {
  Leave(row);
  records_[row].folder = std::exchange(firstUnused_, row);
}

void RowStore::Clear() noexcept {
  locations_.Clear();
  folders_.Clear();
  records_.clear();
  records_.shrink_to_fit();
  firstUnused_ = kNone;
  checkedCount_ = selectedCount_ = pendingCount_ = 0;
}

std::string_view RowStore::RenameName(Id row) const {
  return TextsOf(records_[row]).renameName;
}

FileRow RowStore::Row(Id row) const {
  const Record& record = records_[row];
  const Texts texts = TextsOf(record);
  return {.renameName = texts.renameName,
          .title = texts.title,
          .artist = texts.artist,
          .folder = folders_.Text(record.folder),
          .name = texts.name,
          .type = types_[record.type],
          .size = record.size,
          .iconNumber = record.type + 1u,
          .checked = record.checked != 0,
          .selected = record.selected != 0,
          .pending = record.pending != 0};
}

void RowStore::PutTexts(Id row, const Texts& texts) {
  Record& record = records_[row];
  const int before = static_cast<int>(record.pending);
  Write(record, texts);
  pendingCount_ += static_cast<int>(record.pending) - before;
}

void RowStore::SetRenameName(Id row, std::string_view name) {
  Texts texts = TextsOf(records_[row]);
  texts.renameName = name;
  PutTexts(row, texts);
}

void RowStore::SetTexts(Id row, std::string_view title, std::string_view artist) {
  Texts texts = TextsOf(records_[row]);
  texts.title = title;
  texts.artist = artist;
  PutTexts(row, texts);
}

void RowStore::SetLocation(Id row, std::string_view location) {
  const Record& present = records_[row];
  Record next;
  next.type = present.type;
  next.size = present.size;
  next.checked = present.checked;
  next.selected = present.selected;
  Texts texts = TextsOf(present);
  texts.name = FileName(location, style_);
  Write(next, texts);
  next.folder = folders_.Enter(FolderPart(location, style_));
  Leave(row);
  Enter(row, std::move(next));
}

void RowStore::SetChecked(Id row, bool checked) noexcept {
  Record& record = records_[row];
  checkedCount_ += static_cast<int>(checked) - static_cast<int>(record.checked);
  record.checked = checked ? 1 : 0;
}

void RowStore::SetSelected(Id row, bool selected) noexcept {
  Record& record = records_[row];
  selectedCount_ += static_cast<int>(selected) - static_cast<int>(record.selected);
  record.selected = selected ? 1 : 0;
}

template <class Found>
bool RowStore::AnyAt(std::string_view location, const Found& found) const {
  const FolderTable::Id* folder = folders_.Find(FolderPart(location, style_));
  if (folder == nullptr) return false;
  const std::string_view name = FileName(location, style_);
  return locations_.AnyOf(HashOf(*folder, name), [&](Id row) {
    const Record& record = records_[row];
    return folders_.Identity(record.folder) == *folder && IsSameName(TextsOf(record).name, name, style_) && found(row);
  });
}

bool RowStore::ContainsFile(std::string_view location) const {
  return AnyAt(location, [](Id) { return true; });
}

std::vector<RowStore::Id> RowStore::RowsAt(std::string_view location) const {
  std::vector<Id> rows;
  (void)AnyAt(location, [&rows](Id row) {
    rows.push_back(row);
    return false;
  });
  return rows;
}

std::uint32_t RowStore::TypeNumber(const FileType& type) {
  const auto found = typeNumbers_.find(type.Text());
  if (found != typeNumbers_.end()) return found->second;
  const FileType& added = types_.emplace_back(type);
  try {
    const auto number = static_cast<std::uint32_t>(types_.size());
    typeNumbers_.emplace(added.Text(), number);
    return number;
  } catch (...) {
    types_.pop_back();
    throw;
  }
}

}  // namespace quillon
