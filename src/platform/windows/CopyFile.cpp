#include "platform/windows/CopyFile.h"

#include <windows.h>

#include "platform/windows/Handle.h"
#include "platform/windows/SystemError.h"

namespace quillon {
namespace {

constexpr DWORD kOpenLinkItself = FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS;

FileOutcome TakeBack(const std::wstring& copy, DWORD failure) {
  ::SetFileAttributesW(copy.c_str(), FILE_ATTRIBUTE_NORMAL);
  ::DeleteFileW(copy.c_str());
  return ErrorOf(failure);
}

// A read-only copy could not be opened for flushing, so the attributes come last.
bool FlushAndDate(const std::wstring& copy, const BY_HANDLE_FILE_INFORMATION& source) {
  if (!::SetFileAttributesW(copy.c_str(), FILE_ATTRIBUTE_NORMAL)) return false;
  {
    const Handle file(
        ::CreateFileW(copy.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, kOpenLinkItself, nullptr));
    if (!file.Open()) return false;
    if (!::SetFileTime(file.Get(), &source.ftCreationTime, &source.ftLastAccessTime, &source.ftLastWriteTime)) {
      return false;
    }
    if (!::FlushFileBuffers(file.Get())) return false;
  }
  constexpr DWORD kKept = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                          FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
  const DWORD attributes = source.dwFileAttributes & kKept;
  return ::SetFileAttributesW(copy.c_str(), attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL) != 0;
}

}  // namespace

FileOutcome CopyWithAttributes(const std::wstring& from, const std::wstring& to) {
  const Handle source(
      ::CreateFileW(from.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, kOpenLinkItself, nullptr));
  BY_HANDLE_FILE_INFORMATION status = {};
  if (!source.Open() || !::GetFileInformationByHandle(source.Get(), &status)) return ErrorOf(::GetLastError());
  if ((status.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return ErrorOf(ERROR_NOT_SAME_DEVICE);
  constexpr DWORD kFlags = COPY_FILE_FAIL_IF_EXISTS | COPY_FILE_COPY_SYMLINK;
  if (!::CopyFileExW(from.c_str(), to.c_str(), nullptr, nullptr, nullptr, kFlags)) {
    const DWORD failure = ::GetLastError();
    return failure == ERROR_FILE_EXISTS ? FileOutcome(ErrorOf(failure)) : TakeBack(to, failure);
  }
  return FlushAndDate(to, status) ? FileOutcome() : TakeBack(to, ::GetLastError());
}

}  // namespace quillon
