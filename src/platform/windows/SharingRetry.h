#pragma once

#include <windows.h>

namespace quillon {

/// True when another program keeps a file to itself for now: an editor that saves, a scanner that looks at what was
/// just written.
[[nodiscard]] inline bool IsSharingViolation(DWORD number) {
  // The last one is what ReplaceFile makes of the first.
  return number == ERROR_SHARING_VIOLATION || number == ERROR_LOCK_VIOLATION ||
         number == ERROR_UNABLE_TO_REMOVE_REPLACED;
}

/// Calls `attempt`, which returns true or TRUE on success and else leaves its reason in GetLastError. While that is a
/// sharing violation, tries again for a quarter of a second. True on success; else GetLastError is the last attempt's.
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
