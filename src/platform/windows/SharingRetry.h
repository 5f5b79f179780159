#pragma once

#include <windows.h>

namespace quillon {

/// True when another program has the file open exclusively, probably for a moment only: an editor that saves, or a
/// virus scanner.
[[nodiscard]] inline bool IsSharingViolation(DWORD number) {
  // ReplaceFile reports the last one instead of the first.
  return number == ERROR_SHARING_VIOLATION || number == ERROR_LOCK_VIOLATION ||
         number == ERROR_UNABLE_TO_REMOVE_REPLACED;
}

/// Calls `attempt`, which returns true or TRUE on success and otherwise sets the last error. After a sharing violation
/// it retries for up to a quarter of a second. Returns true on success; otherwise GetLastError is that of the last
/// attempt.
template <class Attempt>
[[nodiscard]] bool RetrySharing(Attempt attempt) {
  constexpr int kRetries = 10;
  constexpr DWORD kPauseMilliseconds = 25;
  for (int retry = 0;; ++retry) {
    if (attempt()) return true;
    if (retry == kRetries || !IsSharingViolation(::GetLastError())) return false;
    ::Sleep(kPauseMilliseconds);
  }
}

}  // namespace quillon
