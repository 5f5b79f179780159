#include "platform/windows/FileId.h"

#include "platform/windows/Handle.h"
#include "platform/windows/SharingRetry.h"

namespace quillon {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

Handle OpenItself(const std::wstring& path, DWORD access, DWORD share) {
  constexpr DWORD kLinkItself = FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS;
  return Handle(::CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING, kLinkItself, nullptr));
}

bool SetAttributes(const Handle& file, DWORD attributes) {
  FILE_BASIC_INFO basic = {};  // zero times leave the file's times unchanged
  basic.FileAttributes = attributes;
  return ::SetFileInformationByHandle(file.Get(), FileBasicInfo, &basic, sizeof basic) != 0;
}

bool MarkDeleted(const Handle& file) {
  FILE_DISPOSITION_INFO disposition = {};
  disposition.DeleteFile = TRUE;
  return ::SetFileInformationByHandle(file.Get(), FileDispositionInfo, &disposition, sizeof disposition) != 0;
}

// Also deletes read-only files: otherwise a move would fail after the copying.
bool Delete(const Handle& file, DWORD attributes) {
  const bool readOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  if (!readOnly) return MarkDeleted(file);
  constexpr DWORD kReadOnly = FILE_ATTRIBUTE_READONLY;
  const DWORD writable = attributes & ~kReadOnly;
  if (!SetAttributes(file, writable != 0 ? writable : FILE_ATTRIBUTE_NORMAL)) return false;
  if (MarkDeleted(file)) return true;
  const DWORD failure = ::GetLastError();
  SetAttributes(file, attributes);
  ::SetLastError(failure);
  return false;
}

}  // namespace

std::optional<Status> StatusAt(const std::wstring& path) {
  const Handle file = OpenItself(path, FILE_READ_ATTRIBUTES, kShareAll);
  Status status = {};
  if (!file.Open() || !::GetFileInformationByHandle(file.Get(), &status)) return std::nullopt;
  return status;
}

bool DeleteIf(const std::wstring& path, const std::function<bool(const Status&)>& wanted) {
  return RetrySharing([&] {
    constexpr DWORD kAccess = DELETE | FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES;
    const Handle file = OpenItself(path, kAccess, FILE_SHARE_READ | FILE_SHARE_DELETE);
    Status status = {};
    if (!file.Open() || !::GetFileInformationByHandle(file.Get(), &status)) return false;
    if (wanted(status)) return Delete(file, status.dwFileAttributes);
    ::SetLastError(ERROR_BUSY);
    return false;
  });
}

bool DeleteOwn(const std::wstring& path, const FileId& file) {
  const std::optional<Status> found = StatusAt(path);
  if (!found) return ::GetLastError() == ERROR_FILE_NOT_FOUND || ::GetLastError() == ERROR_PATH_NOT_FOUND;
  if (IdOf(*found) != file) return true;
  return DeleteIf(path, [&](const Status& status) { return IdOf(status) == file; });
}

}  // namespace quillon
