#include "rename/PlannedChanges.h"

#include "base/Text.h"
#include "paths/basFileControl.h"

namespace quillon {

Result<bool, FileError> PlannedChanges::Exists(const std::string& path) {
  const std::string identity = PathIdentity(path);
  if (taken_.contains(identity)) return true;
  const Result<FileStatus, FileError> status = files_.Status(path);
  if (!status) return status.Failure();
  return status->kind != FileStatus::Kind::kAbsent && !freed_.contains(identity);
}

// True for one entry under two spellings; false for two links to one file, because their folder lists both.
bool PlannedChanges::IsOneEntry(const std::string& left, const std::string& right) {
  if (!EqualIgnoringCase(left, right) || !files_.SameFile(left, right)) return false;
  ListFolder(std::string(FolderPart(left)));
  return !listed_.contains(std::string(FileName(left))) || !listed_.contains(std::string(FileName(right)));
}

// The disk does not change while renames are planned, so one listing serves all files of a folder.
void PlannedChanges::ListFolder(const std::string& folder) {
  if (folder == listedFolder_) return;
  listedFolder_ = folder;
  listed_.clear();
  const Result<std::vector<FolderEntry>, FileError> entries = files_.ReadFolder(folder);
  if (!entries) return;
  for (const FolderEntry& entry : *entries) listed_.insert(entry.name);
}

FileOutcome PlannedChanges::Rename(const std::string& from, const std::string& to) {
  if (FileName(to).empty()) return FileError{file_error::kNotFound, {}};
  if (FileOutcome absent = LookFor(from)) return absent;
  if (from == to) return std::nullopt;
  const Result<bool, FileError> target = Exists(to);
  if (!target) return target.Failure();
  if (*target && !IsOneEntry(from, to)) return FileError{file_error::kAlreadyExists, {}};
  Free(from);
  freed_.erase(PathIdentity(to));
  taken_.insert(PathIdentity(to));
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
  Free(path);
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

void PlannedChanges::Free(const std::string& path) {
  taken_.erase(PathIdentity(path));
  freed_.insert(PathIdentity(path));
}

}  // namespace quillon
