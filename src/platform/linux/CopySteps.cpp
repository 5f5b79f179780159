#include "platform/linux/CopySteps.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/TemporaryName.h"
#include "platform/linux/FlushFolder.h"
#include "platform/linux/NoReplaceRename.h"
#include "platform/linux/SystemError.h"
#include "platform/linux/WriteLease.h"

namespace quillon {
namespace {

bool SameTime(const timespec& left, const timespec& right) {
  return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

bool IsAsBefore(const struct stat& now, const struct stat& before) {
  return now.st_size == before.st_size && SameTime(now.st_mtim, before.st_mtim) &&
         SameTime(now.st_ctim, before.st_ctim);
}

bool IsAbsence(int number) {
  return number == ENOENT || number == ENOTDIR;
}

}  // namespace

FileOutcome LinuxCopySteps::Look(const std::string& path) {
  return OutcomeOf(IdAt(path) ? 0 : errno);
}

FileOutcome LinuxCopySteps::OpenSource(const std::string& from) {
  from_ = from;
  if (const int failure = OpenCopySource(from, source_); failure != 0) return ErrorOf(failure);
  // Detects a writer now rather than after the copying.
  return OutcomeOf(WriteLease(source_->file.Number()).Refused() ? EBUSY : 0);
}

MoveOutcome LinuxCopySteps::CopyInto(const std::string& folder) {
  int failure = EEXIST;
  for (int i = 0; i < kTemporaryNameAttempts && failure == EEXIST; ++i) {
    Result<std::unique_ptr<TemporaryMark>, FileError> mark = MarkTemporary(folder);
    if (!mark) return mark.Failure();
    mark_ = std::move(*mark);
    failure = CopyWithAttributes(*source_, mark_->Path(), copy_, progress_);
    if (copy_.stays) mark_->Keep();
  }
  if (copy_.cancelled) return FileError{file_error::kCancelled, "Cancelled"};
  return failure == 0 ? MoveOutcome(copy_.notKept) : MoveOutcome(ErrorOf(failure));
}

FileOutcome LinuxCopySteps::Publish(const std::string& to) {
  return OutcomeOf(RenameNoReplace(mark_->Path(), to));
}

FileOutcome LinuxCopySteps::FlushFolder(const std::string& folder) {
  return OutcomeOf(quillon::FlushFolder(folder));
}

SourceNow LinuxCopySteps::LookAtSource() {
  const std::optional<FileId> atPath = IdAt(from_);
  if (!atPath) return IsAbsence(errno) ? SourceNow::kGone : SourceNow::kUnknown;
  if (*atPath != IdOf(source_->status)) return SourceNow::kReplaced;
  struct stat now = {};
  if (::fstat(source_->file.Number(), &now) != 0) return SourceNow::kUnknown;
  return IsAsBefore(now, source_->status) ? SourceNow::kUnchanged : SourceNow::kModified;
}

FileOutcome LinuxCopySteps::RemoveSource() {
  // Keeps writers out, whose changes would be lost when the source is deleted.
  const WriteLease lease(source_->file.Number());
  if (lease.Refused() || LookAtSource() != SourceNow::kUnchanged) return ErrorOf(EBUSY);
  return OutcomeOf(::unlink(from_.c_str()) == 0 ? 0 : errno);
}

FileOutcome LinuxCopySteps::RemoveCopy(const std::string& path) {
  return OutcomeOf(RemoveOwn(path, copy_.id));
}

}  // namespace quillon
