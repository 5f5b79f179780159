#include "rename/PlannedChanges.h"

#include <utility>

#include "base/Text.h"
#include "paths/basFileControl.h"
#include "platform/EntryPath.h"

namespace quillon {

namespace {

// One file's old and new name are asked for; more are likely to follow.
constexpr int kAskedBeforeListing = 2;

bool ListingTells(std::string_view path, std::string_view name) {
  return path.size() <= ExactNames::kLongestPath && name.size() <= ExactNames::kLongestName && CanNameFile(name);
}

template <class Add>
void ForEachName(std::string_view names, Add add) {
  while (!names.empty()) {
    const std::size_t end = names.find('\0');
    add(PathIdentity(names.substr(0, end)));
    names.remove_prefix(end + 1);
  }
}

}  // namespace

// Rows of one folder mostly follow each other.
PlannedChanges::Folder& PlannedChanges::FolderOf(const std::string& path) {
  const std::string_view folder = FolderPart(path);
  if (last_ == nullptr || folder != lastPath_) {
    lastPath_ = folder;
    last_ = &folders_[PathIdentity(folder)];
  }
  return *last_;
}

// Whether something has this name; nullopt where only the disk can tell.
std::optional<bool> PlannedChanges::Folder::Knows(std::string_view path) const {
  const std::string_view name = FileName(path);
  const std::string identity = PathIdentity(name);
  const auto known = names.find(identity);
  if (known != names.end()) return known->second;
  if (!listed || !ListingTells(path, name) || uncertain.contains(identity)) return std::nullopt;
  return false;
}

Result<bool, FileError> PlannedChanges::Exists(const std::string& path) {
  Folder& folder = FolderOf(path);
  std::optional<bool> known = folder.Knows(path);
  if (!known && folder.asked++ == kAskedBeforeListing) {
    List(FolderPart(path), folder);
    known = folder.Knows(path);
  }
  if (known) return *known;
  const Result<FileStatus, FileError> status = files_.Status(path);
  if (!status) return status.Failure();
  return status->kind != FileStatus::Kind::kAbsent;
}

void PlannedChanges::List(std::string_view path, Folder& folder) {
  const std::optional<ExactNames> names = files_.ExactNamesIn(std::string(path));
  if (!names) return;
  // What the batch has done with a name already stays.
  ForEachName(names->files, [&](std::string name) { folder.names.try_emplace(std::move(name), true); });
  ForEachName(names->others, [&](std::string name) { folder.uncertain.insert(std::move(name)); });
  folder.listed = true;
}

// True for one entry under two spellings; false for two links to one file, because their folder lists both.
bool PlannedChanges::IsOneEntry(const std::string& left, const std::string& right) {
  if (!EqualIgnoringCase(left, right) || !files_.SameFile(left, right)) return false;
  ListForSpellings(std::string(FolderPart(left)));
  return !spelled_.contains(std::string(FileName(left))) || !spelled_.contains(std::string(FileName(right)));
}

// One listing serves all files of a folder.
void PlannedChanges::ListForSpellings(const std::string& folder) {
  if (folder == spelledFolder_) return;
  spelledFolder_ = folder;
  spelled_.clear();
  const Result<std::vector<FolderEntry>, FileError> entries = files_.ReadFolder(folder);
  if (!entries) return;
  for (const FolderEntry& entry : *entries) spelled_.insert(entry.name);
}

FileOutcome PlannedChanges::Rename(const std::string& from, const std::string& to) {
  if (FileName(to).empty()) return FileError{file_error::kNotFound, {}};
  if (FileOutcome absent = LookFor(from)) return absent;
  if (from == to) return std::nullopt;
  const Result<bool, FileError> target = Exists(to);
  if (!target) return target.Failure();
  if (*target && !IsOneEntry(from, to)) return FileError{file_error::kAlreadyExists, {}};
  Set(from, false);
  Set(to, true);
  return std::nullopt;
}

MoveOutcome PlannedChanges::Move(const std::string& from, const std::string& to, Progress*) {
  const Result<FileStatus, FileError> folder = files_.Status(std::string(FolderPart(to)));
  if (!folder) return folder.Failure();
  if (folder->kind != FileStatus::Kind::kFolder) return FileError{file_error::kNotFound, {}};
  const FileOutcome failed = Rename(from, to);
  return failed ? MoveOutcome(*failed) : MoveOutcome(NotKept());
}

FileOutcome PlannedChanges::Remove(const std::string& path) {
  if (FileOutcome absent = LookFor(path)) return absent;
  Set(path, false);
  return std::nullopt;
}

int PlannedChanges::Recycle(const std::string& path, std::uintptr_t) {
  return Remove(path) ? kRecycleNotDone : 0;
}

// Returns no error when a file exists at this path according to the plan.
FileOutcome PlannedChanges::LookFor(const std::string& path) {
  const Result<bool, FileError> found = Exists(path);
  if (!found) return found.Failure();
  return *found ? FileOutcome() : FileOutcome(FileError{file_error::kNotFound, {}});
}

void PlannedChanges::Set(const std::string& path, bool taken) {
  FolderOf(path).names.insert_or_assign(PathIdentity(FileName(path)), taken);
}

}  // namespace quillon
