#include "rename/PlannedChanges.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "paths/basFileControl.h"
#include "platform/EntryPath.h"

namespace quillon {

namespace {

// Asking for the old and the new names of some files costs less than listing a large folder.
constexpr int kAskedBeforeListing = 16;

bool ListingTells(std::string_view path) {
  const std::string_view name = FileName(path);
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
PlannedChanges::Place PlannedChanges::PlaceOf(const std::string& path) {
  const std::string_view folder = FolderPart(path);
  if (last_ == nullptr || folder != lastPath_) {
    lastPath_ = folder;
    last_ = &folders_[PathIdentity(folder)];
  }
  return {path, *last_, PathIdentity(std::string_view(path).substr(folder.size()))};
}

// Whether something is at this place; nullopt where only the disk can tell.
std::optional<bool> PlannedChanges::Known(const Place& place) {
  const Folder& folder = place.folder;
  const auto known = folder.names.find(place.name);
  if (known != folder.names.end()) return known->second;
  if (!folder.listed || !ListingTells(place.path) || folder.uncertain.contains(place.name)) return std::nullopt;
  return false;
}

Result<bool, FileError> PlannedChanges::Exists(const Place& place) {
  std::optional<bool> known = Known(place);
  if (!known && place.folder.asked++ == kAskedBeforeListing) {
    List(FolderPart(place.path), place.folder);
    known = Known(place);
  }
  if (known) return *known;
  const Result<FileStatus, FileError> status = files_.Status(place.path);
  if (!status) return status.Failure();
  return status->kind != FileStatus::Kind::kAbsent;
}

void PlannedChanges::List(std::string_view path, Folder& folder) {
  const std::optional<ExactNames> names = files_.ExactNamesIn(std::string(path));
  if (!names) return;
  // What the batch has done with a name already stays.
  folder.names.reserve(folder.names.size() +
                       static_cast<std::size_t>(std::count(names->files.begin(), names->files.end(), '\0')));
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
  const Place source = PlaceOf(from);
  if (FileOutcome absent = LookFor(source)) return absent;
  if (from == to) return std::nullopt;
  const Place target = PlaceOf(to);
  const Result<bool, FileError> taken = Exists(target);
  if (!taken) return taken.Failure();
  if (*taken && !IsOneEntry(from, to)) return FileError{file_error::kAlreadyExists, {}};
  source.Set(false);
  target.Set(true);
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
  const Place place = PlaceOf(path);
  if (FileOutcome absent = LookFor(place)) return absent;
  place.Set(false);
  return std::nullopt;
}

int PlannedChanges::Recycle(const std::string& path, std::uintptr_t) {
  return Remove(path) ? kRecycleNotDone : 0;
}

// Returns no error when a file exists at this place according to the plan.
FileOutcome PlannedChanges::LookFor(const Place& place) {
  const Result<bool, FileError> found = Exists(place);
  if (!found) return found.Failure();
  return *found ? FileOutcome() : FileOutcome(FileError{file_error::kNotFound, {}});
}

}  // namespace quillon
