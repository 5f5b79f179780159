#include "platform/windows/CopyFile.h"

#include <windows.h>

#include <cstdint>
#include <exception>
#include <optional>

#include "platform/windows/CopyAccessList.h"
#include "platform/windows/Handle.h"
#include "platform/windows/SharingRetry.h"

namespace quillon {
namespace {

bool IsLink(const Status& status) {
  return (status.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

// The attributes are set last, because a read-only copy could not be opened for flushing.
bool CheckDateAndFlush(const std::wstring& copy, const Status& source, MadeCopy& made) {
  constexpr DWORD kLinkItself = FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS;
  if (!::SetFileAttributesW(copy.c_str(), FILE_ATTRIBUTE_NORMAL)) return false;
  std::optional<Handle> opened;
  // Virus scanners may have opened the new file.
  const bool open = RetrySharing([&] {
    opened.emplace(::CreateFileW(copy.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                 kLinkItself, nullptr));
    return opened->Open();
  });
  if (!open) return false;
  const Handle& file = *opened;
  Status status = {};
  if (!::GetFileInformationByHandle(file.Get(), &status)) return false;
  made.id = IdOf(status);
  if (!IsLink(source) && SizeOf(status) != SizeOf(source)) {
    ::SetLastError(ERROR_READ_FAULT);
    return false;
  }
  made.notKept.times =
      !::SetFileTime(file.Get(), &source.ftCreationTime, &source.ftLastAccessTime, &source.ftLastWriteTime);
  return ::FlushFileBuffers(file.Get()) != 0;
}

bool SetAttributes(const std::wstring& copy, const Status& source) {
  constexpr DWORD kKept = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                          FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
  const DWORD attributes = source.dwFileAttributes & kKept;
  return ::SetFileAttributesW(copy.c_str(), attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL) != 0;
}

/// Calls the progress and stores its exceptions, which must not be thrown through the system's code.
class Asking {
 public:
  Asking(Progress* progress, std::uint64_t total) : progress_(progress), total_(static_cast<std::size_t>(total)) {}

  /// Returns false, with the last error set, when the copying must end.
  bool Continue(std::uint64_t copied) noexcept {
    try {
      cancelled_ = progress_ != nullptr && !progress_->Continue(static_cast<std::size_t>(copied), total_, {});
    } catch (...) {
      thrown_ = std::current_exception();
    }
    const bool ended = cancelled_ || thrown_;
    if (ended) ::SetLastError(ERROR_REQUEST_ABORTED);
    return !ended;
  }

  /// True when the copying was cancelled; rethrows the progress's exception.
  [[nodiscard]] bool Cancelled() const {
    if (thrown_) std::rethrow_exception(thrown_);
    return cancelled_;
  }

 private:
  Progress* progress_;
  std::size_t total_;
  bool cancelled_ = false;
  std::exception_ptr thrown_;
};

DWORD CALLBACK OnProgress(LARGE_INTEGER /*size*/, LARGE_INTEGER copied, LARGE_INTEGER /*streamSize*/,
                          LARGE_INTEGER /*streamCopied*/, DWORD /*stream*/, DWORD /*reason*/, HANDLE /*from*/,
                          HANDLE /*to*/, void* asking) {
  const bool goOn = static_cast<Asking*>(asking)->Continue(static_cast<std::uint64_t>(copied.QuadPart));
  return goOn ? PROGRESS_CONTINUE : PROGRESS_CANCEL;
}

bool CopyContent(const std::wstring& from, const std::wstring& to, Asking& asking) {
  constexpr DWORD kFlags = COPY_FILE_FAIL_IF_EXISTS | COPY_FILE_COPY_SYMLINK;
  return ::CopyFileExW(from.c_str(), to.c_str(), OnProgress, &asking, nullptr, kFlags) != 0;
}

void TakeBack(const std::wstring& copy, MadeCopy& made) {
  const DWORD failure = ::GetLastError();
  ::SetFileAttributesW(copy.c_str(), FILE_ATTRIBUTE_NORMAL);
  const bool deleted = RetrySharing([&] { return ::DeleteFileW(copy.c_str()) != 0; });
  made.stays = !deleted && ::GetLastError() != ERROR_FILE_NOT_FOUND;
  ::SetLastError(failure);
}

}  // namespace

bool CopyWithAttributes(const std::wstring& from, const Status& source, const std::wstring& to, MadeCopy& made,
                        Progress* progress) {
  Asking asking(progress, SizeOf(source));
  if (!asking.Continue(0)) {
    made.cancelled = asking.Cancelled();
    return false;
  }
  // Wine never calls OnProgress.
  const bool whole =
      CopyContent(from, to, asking) && asking.Continue(SizeOf(source)) && CheckDateAndFlush(to, source, made);
  if (!whole) {
    if (::GetLastError() != ERROR_FILE_EXISTS) TakeBack(to, made);
    made.cancelled = asking.Cancelled();
    return false;
  }
  made.notKept.attributes = !SetAttributes(to, source);
  made.notKept.accessRights = !IsLink(source) && !CopyAccessList(from, to);
  return true;
}

}  // namespace quillon
