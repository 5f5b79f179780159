#include "support/MemoryFileSystem.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>

#include "base/Text.h"
#include "platform/EntryPath.h"
#include "platform/FolderOrder.h"
#include "platform/RenameEntry.h"

namespace quillon::test {
namespace {

constexpr int kMostLinks = 40;
constexpr std::size_t kLongestName = 255;

FileError NotFound() {
  return {file_error::kNotFound, "No such file"};
}
FileError Access() {
  return {file_error::kAccess, "Permission denied"};
}

class MemoryFile final : public ByteSource {
 public:
  MemoryFile(std::string bytes, bool hidden) : bytes_(std::move(bytes)), hidden_(hidden) {}

  [[nodiscard]] std::uint64_t Size() const override { return bytes_.size(); }
  [[nodiscard]] bool IsHiddenOrSystem() const override { return hidden_; }

  std::size_t ReadAt(std::uint64_t offset, char* into, std::size_t count) override {
    if (offset >= bytes_.size()) return 0;
    const std::size_t length = std::min(count, bytes_.size() - static_cast<std::size_t>(offset));
    if (length > 0) std::memcpy(into, bytes_.data() + offset, length);
    return length;
  }

 private:
  std::string bytes_;
  bool hidden_;
};

}  // namespace

struct MemoryFileSystem::Entry {
  std::string name;
  NodePointer node;
};

struct MemoryFileSystem::Node {
  enum class Kind { kFile, kFolder, kLink, kPipe };
  Kind kind = Kind::kFile;
  std::string bytes;  ///< a link's target
  bool hidden = false;
  std::map<std::string, Entry> entries;  ///< by Key
  std::uint64_t number = 0;              ///< no other file's, also not that of a deleted one
};

// An entry's folder and its key there. The entry need not exist.
struct MemoryFileSystem::Place {
  NodePointer folder;  ///< null where the folder is absent
  std::string name;

  [[nodiscard]] NodePointer Find(const std::string& key) const {
    if (!folder) return nullptr;
    const auto found = folder->entries.find(key);
    return found == folder->entries.end() ? nullptr : found->second.node;
  }
};

// The basic operations of a volume, as on Linux. Names that only differ in letter case collide unless the style
// distinguishes case.
class MemoryFileSystem::Entries final : public EntryChanges {
 public:
  explicit Entries(MemoryFileSystem& files) : files_(files) {}

  FileOutcome RenameNoReplace(const std::string& from, const std::string& to) override {
    const Place source = files_.PlaceOf(from);
    const Place target = files_.PlaceOf(to);
    const NodePointer moved = source.Find(files_.Key(source.name));
    if (!moved || !target.folder) return NotFound();
    const std::string key = files_.Key(target.name);
    if (target.Find(key)) return FileError{file_error::kAlreadyExists, "File exists"};
    source.folder->entries.erase(files_.Key(source.name));
    target.folder->entries[key] = {target.name, moved};
    return std::nullopt;
  }

  FileOutcome Look(const std::string& path) override {
    return files_.Walk(path, false) ? FileOutcome() : FileOutcome(NotFound());
  }

  bool SameFile(const std::string& left, const std::string& right) override {
    const NodePointer node = files_.Walk(left, EndsAsFolder(left));
    return node && node == files_.Walk(right, EndsAsFolder(right));
  }

  bool HasOneName(const std::string&) override { return false; }

  std::string ListedName(const std::string& path) override {
    const Place place = files_.PlaceOf(path);
    if (!place.folder) return {};
    const auto found = place.folder->entries.find(files_.Key(place.name));
    return found == place.folder->entries.end() ? std::string() : found->second.name;
  }

 private:
  static bool EndsAsFolder(const std::string& path) { return path.ends_with('/') || path.ends_with('\\'); }

  MemoryFileSystem& files_;
};

MemoryFileSystem::MemoryFileSystem() : MemoryFileSystem(Options()) {}

MemoryFileSystem::MemoryFileSystem(Options options)
    : nameUnit(options.style == PathStyle::kWindows ? NameUnit::kUtf16 : NameUnit::kByte),
      options_(options),
      root_(std::make_shared<Node>()) {
  root_->kind = Node::Kind::kFolder;
}

MemoryFileSystem::~MemoryFileSystem() = default;

std::string MemoryFileSystem::Key(std::string_view name) const {
  return options_.ignoreCase ? ToUpper(name) : std::string(name);
}

// On Windows dots and blanks at the end of a new name are dropped.
std::string MemoryFileSystem::StoredName(std::string_view name) const {
  if (options_.style == PathStyle::kLinux) return std::string(name);
  const std::size_t last = name.find_last_not_of(". ");
  return std::string(name.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

bool MemoryFileSystem::CanHold(std::string_view name) const {
  if (!CanNameFile(name) || name.find('/') != std::string_view::npos) return false;
  if (options_.style == PathStyle::kLinux) return name.size() <= kLongestName;
  const bool forbidden = std::any_of(name.begin(), name.end(), [](char c) {
    return static_cast<unsigned char>(c) < 0x20 || std::string_view("\"*:<>?\\|").find(c) != std::string_view::npos;
  });
  return !forbidden && !StoredName(name).empty() && CharacterCount(name) <= kLongestName;
}

std::vector<std::string_view> MemoryFileSystem::Pieces(std::string_view path) const {
  const std::string_view separators = options_.style == PathStyle::kWindows ? "\\/" : "/";
  std::vector<std::string_view> pieces;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of(separators), path.size());
    if (end > 0 && path.substr(0, end) != ".") pieces.push_back(path.substr(0, end));
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return pieces;
}

MemoryFileSystem::NodePointer MemoryFileSystem::Walk(std::string_view path, bool followLast, int depth) const {
  const std::vector<std::string_view> pieces = Pieces(path);
  NodePointer node = root_;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (node->kind != Node::Kind::kFolder) return nullptr;
    const auto found = node->entries.find(Key(pieces[i]));
    if (found == node->entries.end()) return nullptr;
    node = found->second.node;
    const bool follow = followLast || i + 1 < pieces.size();
    if (node->kind == Node::Kind::kLink && follow)
      node = depth < kMostLinks ? Walk(node->bytes, true, depth + 1) : nullptr;
    if (!node) return nullptr;
  }
  return node;
}

MemoryFileSystem::Place MemoryFileSystem::PlaceOf(std::string_view path) const {
  const EntryPath split = SplitPath(path, options_.style);
  NodePointer folder = Walk(split.folder, true);
  if (folder && folder->kind != Node::Kind::kFolder) folder = nullptr;
  return {std::move(folder), std::string(split.name)};
}

MemoryFileSystem::NodePointer MemoryFileSystem::MakeFolders(std::string_view folder) {
  NodePointer node = root_;
  for (const std::string_view piece : Pieces(folder)) {
    Entry& entry = node->entries[Key(piece)];
    if (!entry.node) {
      entry = {std::string(piece), std::make_shared<Node>()};
      entry.node->kind = Node::Kind::kFolder;
    }
    node = entry.node;
  }
  return node;
}

MemoryFileSystem::NodePointer MemoryFileSystem::Put(const std::string& path, Node node) {
  const EntryPath split = SplitPath(path, options_.style);
  auto made = std::make_shared<Node>(std::move(node));
  made->number = ++lastNumber_;
  MakeFolders(split.folder)->entries[Key(split.name)] = {std::string(split.name), made};
  return made;
}

void MemoryFileSystem::AddFile(const std::string& path, std::string_view bytes) {
  Put(path, {Node::Kind::kFile, std::string(bytes), false, {}, 0});
}

void MemoryFileSystem::AddFolder(const std::string& path) {
  MakeFolders(path);
}

void MemoryFileSystem::AddLink(const std::string& path, const std::string& target) {
  Put(path, {Node::Kind::kLink, target, false, {}, 0});
}

void MemoryFileSystem::AddPipe(const std::string& path) {
  Put(path, {Node::Kind::kPipe, {}, false, {}, 0});
}

void MemoryFileSystem::AddHardLink(const std::string& path, const std::string& existing) {
  const NodePointer node = Walk(existing, false);
  const EntryPath split = SplitPath(path, options_.style);
  if (node) MakeFolders(split.folder)->entries[Key(split.name)] = {std::string(split.name), node};
}

void MemoryFileSystem::Hide(const std::string& path) {
  if (const NodePointer node = Walk(path, true)) node->hidden = true;
}

bool MemoryFileSystem::Exists(const std::string& path) const {
  return Walk(path, false) != nullptr;
}

std::string MemoryFileSystem::BytesOf(const std::string& path) const {
  const NodePointer node = Walk(path, true);
  return node ? node->bytes : std::string();
}

std::vector<std::string> MemoryFileSystem::NamesIn(const std::string& folder) const {
  std::vector<std::string> names;
  const NodePointer node = Walk(folder, true);
  if (!node) return names;
  for (const auto& [key, entry] : node->entries) names.push_back(entry.name);
  return names;
}

void MemoryFileSystem::Fail(FileCall call, const std::string& path, FileError error) {
  failures_[{call, path}] = std::move(error);
}

std::size_t MemoryFileSystem::CountOf(FileCall call) const {
  return static_cast<std::size_t>(
      std::count_if(calls_.begin(), calls_.end(), [&](const LoggedCall& logged) { return logged.call == call; }));
}

FileOutcome MemoryFileSystem::Log(FileCall call, const std::string& path, const std::string& to) {
  calls_.push_back({call, path, to});
  const auto failure = failures_.find({call, path});
  return failure == failures_.end() ? FileOutcome() : FileOutcome(failure->second);
}

Result<std::vector<FolderEntry>, FileError> MemoryFileSystem::ReadFolder(const std::string& folder) {
  if (const FileOutcome failure = Log(FileCall::kReadFolder, folder)) return *failure;
  const NodePointer node = Walk(folder, true);
  if (!node || node->kind != Node::Kind::kFolder) return FileError{file_error::kUnreachable, "No such folder"};
  std::vector<FolderEntry> entries;
  for (const auto& [key, entry] : node->entries) {
    const bool isLink = entry.node->kind == Node::Kind::kLink;
    const NodePointer target = isLink ? Walk(entry.node->bytes, true) : entry.node;
    if (!target || target->kind == Node::Kind::kPipe) continue;
    entries.push_back({entry.name, target->kind == Node::Kind::kFolder, isLink});
  }
  SortAsVolumeLists(entries);
  return entries;
}

std::string MemoryFileSystem::RealPath(const std::string& folder) {
  if (Log(FileCall::kRealPath, folder)) return {};
  const char separator = options_.style == PathStyle::kWindows ? '\\' : '/';
  std::string real;
  NodePointer node = root_;
  for (const std::string_view piece : Pieces(folder)) {
    const auto found = node->entries.find(Key(piece));
    if (found == node->entries.end()) return {};
    node = found->second.node;
    if (!real.empty() || separator == '/') real += separator;
    real += found->second.name;
    if (node->kind == Node::Kind::kLink) {
      const std::string target = node->bytes;
      node = Walk(target, true);
      real = target;
      while (real.size() > 1 && real.back() == separator) real.pop_back();
    }
    if (!node) return {};
  }
  return real;
}

std::unique_ptr<ByteSource> MemoryFileSystem::OpenFile(const std::string& path) {
  if (Log(FileCall::kOpenFile, path)) return nullptr;
  const NodePointer node = Walk(path, true);
  if (!node || node->kind != Node::Kind::kFile) return nullptr;
  return std::make_unique<MemoryFile>(node->bytes, node->hidden);
}

Result<FileStatus, FileError> MemoryFileSystem::Status(const std::string& path) {
  if (const FileOutcome failure = Log(FileCall::kStatus, path)) return *failure;
  for (const std::string_view piece : Pieces(path)) {
    if (piece.size() > kLongestName && CharacterCount(piece) > kLongestName) return NotFound();
    if (piece.find('\0') != std::string_view::npos) return NotFound();
  }
  const NodePointer node = Walk(path, true);
  if (!node) return FileStatus{Walk(path, false) ? FileStatus::Kind::kOther : FileStatus::Kind::kAbsent, 0};
  switch (node->kind) {
    case Node::Kind::kFile: return FileStatus{FileStatus::Kind::kFile, node->bytes.size(), modified};
    case Node::Kind::kFolder: return FileStatus{FileStatus::Kind::kFolder, 0};
    default: return FileStatus{FileStatus::Kind::kOther, 0};
  }
}

bool MemoryFileSystem::SameFile(const std::string& left, const std::string& right) {
  if (Log(FileCall::kSameFile, left, right)) return false;
  const NodePointer node = Walk(left, true);
  return node && node == Walk(right, true);
}

Result<FileIdentity, FileError> MemoryFileSystem::Identity(const std::string& path) {
  if (const FileOutcome failure = Log(FileCall::kIdentity, path)) return *failure;
  const NodePointer node = Walk(path, false);
  if (!node) return NotFound();
  const bool second = !secondDevice.empty() && path.starts_with(secondDevice);
  return FileIdentity{second ? 2U : 1U, node->number, node->bytes.size(), 0};
}

FileOutcome MemoryFileSystem::CheckNames(const std::string& from, const std::string& to) const {
  const bool holdable =
      CanNameFile(SplitPath(from, options_.style).name) && CanHold(SplitPath(to, options_.style).name);
  return holdable ? FileOutcome() : FileOutcome(NotFound());
}

FileOutcome MemoryFileSystem::ChangeName(const std::string& from, const std::string& to) {
  if (FileOutcome unholdable = CheckNames(from, to)) return unholdable;
  const EntryPath target = SplitPath(to, options_.style);
  Entries entries(*this);
  return RenameEntry(entries, from, from == to ? to : std::string(target.folder) + StoredName(target.name),
                     options_.style);
}

FileOutcome MemoryFileSystem::Rename(const std::string& from, const std::string& to) {
  if (FileOutcome failure = Log(FileCall::kRename, from, to)) return failure;
  return ChangeName(from, to);
}

MoveOutcome MemoryFileSystem::Move(const std::string& from, const std::string& to, Progress* progress) {
  FileOutcome failure = Log(FileCall::kMove, from, to);
  if (!failure && copiesPieces > 0 && progress != nullptr && Exists(from)) {
    for (std::uint64_t copied = 0; copied <= BytesOf(from).size(); copied += copiesPieces) {
      if (!progress->Continue(copied, BytesOf(from).size(), {})) return FileError{file_error::kCancelled, "Cancelled"};
    }
  }
  if (!failure) failure = ChangeName(from, to);
  return failure ? MoveOutcome(*std::move(failure)) : MoveOutcome(notKept);
}

void MemoryFileSystem::RemoveLeftovers(const std::string& folder) {
  static_cast<void>(Log(FileCall::kRemoveLeftovers, folder));
}

FileOutcome MemoryFileSystem::Remove(const std::string& path) {
  if (FileOutcome failure = Log(FileCall::kRemove, path)) return failure;
  const NodePointer node = Walk(path, false);
  if (!node) return NotFound();
  if (node->kind == Node::Kind::kFolder) return Access();
  const Place place = PlaceOf(path);
  place.folder->entries.erase(Key(place.name));
  return std::nullopt;
}

int MemoryFileSystem::Recycle(const std::string& path, std::uintptr_t) {
  if (const FileOutcome failure = Log(FileCall::kRecycle, path)) return failure->number;
  if (std::exchange(declineRecycling_, false)) return 0;
  const NodePointer node = Walk(path, false);
  if (!node) return file_error::kNotFound;
  const Place place = PlaceOf(path);
  place.folder->entries.erase(Key(place.name));
  recycled_.push_back(path);
  return 0;
}

}  // namespace quillon::test
