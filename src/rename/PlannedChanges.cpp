#include "rename/PlannedChanges.h"

#include "base/Text.h"
#include "filelist/paths/basFileControl.h"

namespace quillon {

Result<bool, FileError> PlannedChanges::Exists(const std::string& path) {
  const std::string identity = PathIdentity(path);
  if (taken_.count(identity) != 0) return true;
  const Result<FileStatus, FileError> status = files_.Status(path);
  if (!status) return status.Failure();
  return status->kind != FileStatus::Kind::kAbsent && freed_.count(identity) == 0;
}

FileOutcome PlannedChanges::Rename(const std::string& from, const std::string& to) {
  if (FileName(to).empty()) return FileError{file_error::kNotFound, {}};
  const Result<bool, FileError> source = Exists(from);
  if (!source) return source.Failure();
  if (!*source) return FileError{file_error::kNotFound, {}};
  if (from == to) return std::nullopt;
  const Result<bool, FileError> target = Exists(to);
  if (!target) return target.Failure();
  const bool sameFile = EqualIgnoringCase(from, to) && files_.SameFile(from, to);
  if (*target && !sameFile) return FileError{file_error::kAlreadyExists, {}};
  taken_.erase(PathIdentity(from));
  freed_.insert(PathIdentity(from));
  freed_.erase(PathIdentity(to));
  taken_.insert(PathIdentity(to));
  return std::nullopt;
}

FileOutcome PlannedChanges::Move(const std::string&, const std::string&) { return FileError{file_error::kAccess, {}}; }

FileOutcome PlannedChanges::Remove(const std::string&) { return FileError{file_error::kAccess, {}}; }

int PlannedChanges::Recycle(const std::string&, std::uintptr_t) { return kRecycleNotDone; }

}  // namespace quillon
