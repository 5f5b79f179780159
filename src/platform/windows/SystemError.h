#pragma once

#include <windows.h>

#include "platform/FileSystem.h"

namespace quillon {

/// The error for a file operation that failed with this GetLastError number.
[[nodiscard]] FileError ErrorOf(DWORD number);

/// The same for reading a folder: a missing folder is unreachable.
[[nodiscard]] FileError FolderErrorOf(DWORD number);

/// The error for an invalid file name.
[[nodiscard]] FileError InvalidNameError();

/// Success (empty), or the error from GetLastError.
[[nodiscard]] FileOutcome OutcomeOf(BOOL succeeded);

}  // namespace quillon
