#include "platform/windows/CopySteps.h"

#include <utility>

#include "platform/TemporaryName.h"
#include "platform/windows/SharingRetry.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/SystemPath.h"

namespace quillon {
namespace {

bool SameTime(const FILETIME& left, const FILETIME& right) {
  return ::CompareFileTime(&left, &right) == 0;
}

bool IsAsBefore(const Status& now, const Status& before) {
  return SizeOf(now) == SizeOf(before) && SameTime(now.ftLastWriteTime, before.ftLastWriteTime) &&
         SameTime(now.ftCreationTime, before.ftCreationTime);
}

bool IsAbsence(DWORD number) {
  return number == ERROR_FILE_NOT_FOUND || number == ERROR_PATH_NOT_FOUND;
}

}  // namespace

FileOutcome WindowsCopySteps::Look(const std::string& path) {
  const std::optional<std::wstring> systemPath = SystemPath(path);
  if (!systemPath) return InvalidNameError();
  return OutcomeOf(::GetFileAttributesW(systemPath->c_str()) != INVALID_FILE_ATTRIBUTES);
}

FileOutcome WindowsCopySteps::OpenSource(const std::string& from) {
  from_ = from;
  const std::optional<std::wstring> path = SystemPath(from);
  if (!path) return InvalidNameError();
  const bool opened = RetrySharing([&] {
    constexpr DWORD kLinkItself = FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS;
    source_.emplace(::CreateFileW(path->c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, kLinkItself, nullptr));
    return source_->Open();
  });
  if (!opened || !::GetFileInformationByHandle(source_->Get(), &opened_)) return ErrorOf(::GetLastError());
  if ((opened_.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return ErrorOf(ERROR_NOT_SAME_DEVICE);
  return std::nullopt;
}

MoveOutcome WindowsCopySteps::CopyInto(const std::string& folder) {
  const std::optional<std::wstring> source = SystemPath(from_);
  for (int i = 0; i < kTemporaryNameAttempts && source; ++i) {
    Result<std::unique_ptr<TemporaryMark>, FileError> mark = MarkTemporary(folder);
    if (!mark) return mark.Failure();
    mark_ = std::move(*mark);
    const std::optional<std::wstring> target = SystemPath(mark_->Path());
    if (!target) break;
    if (CopyWithAttributes(*source, opened_, *target, copy_, progress_)) return copy_.notKept;
    if (copy_.stays) mark_->Keep();
    if (copy_.cancelled) return FileError{file_error::kCancelled, "Cancelled"};
    if (::GetLastError() != ERROR_FILE_EXISTS) return ErrorOf(::GetLastError());
  }
  return InvalidNameError();
}

FileOutcome WindowsCopySteps::Publish(const std::string& to) {
  const std::optional<std::wstring> temporary = SystemPath(mark_->Path());
  const std::optional<std::wstring> target = SystemPath(to);
  if (!temporary || !target) return InvalidNameError();
  const FileOutcome outcome = OutcomeOf(
      RetrySharing([&] { return ::MoveFileExW(temporary->c_str(), target->c_str(), MOVEFILE_WRITE_THROUGH) != 0; }));
  // On volumes that do not store file ids, a file's id is derived from its directory entry and changes with a rename.
  const std::optional<Status> published = outcome ? std::nullopt : StatusAt(*target);
  if (published) copy_.id = IdOf(*published);
  return outcome;
}

// Not needed: Publish has renamed with write-through.
FileOutcome WindowsCopySteps::FlushFolder(const std::string&) {
  return std::nullopt;
}

SourceNow WindowsCopySteps::LookAtSource() {
  const std::optional<std::wstring> path = SystemPath(from_);
  const std::optional<Status> now = path ? StatusAt(*path) : std::nullopt;
  if (!now) return IsAbsence(::GetLastError()) ? SourceNow::kGone : SourceNow::kUnknown;
  if (IdOf(*now) != IdOf(opened_)) return SourceNow::kReplaced;
  return IsAsBefore(*now, opened_) ? SourceNow::kUnchanged : SourceNow::kModified;
}

FileOutcome WindowsCopySteps::RemoveSource() {
  const std::optional<std::wstring> path = SystemPath(from_);
  if (!path) return InvalidNameError();
  const bool deleted =
      DeleteIf(*path, [this](const Status& now) { return IdOf(now) == IdOf(opened_) && IsAsBefore(now, opened_); });
  const FileOutcome outcome = OutcomeOf(deleted);
  if (deleted) source_.reset();  // a deleted file keeps its name until the last handle is closed
  return outcome;
}

FileOutcome WindowsCopySteps::RemoveCopy(const std::string& path) {
  const std::optional<std::wstring> systemPath = SystemPath(path);
  return systemPath ? OutcomeOf(DeleteOwn(*systemPath, copy_.id)) : InvalidNameError();
}

}  // namespace quillon
