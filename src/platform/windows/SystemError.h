#pragma once

#include <windows.h>

#include "platform/FileSystem.h"

namespace quillon {

/// The error that `number`, from GetLastError, means for a file.
[[nodiscard]] FileError ErrorOf(DWORD number);

/// The error that `number` means for a folder that is to be read: absent is out of reach there.
[[nodiscard]] FileError FolderErrorOf(DWORD number);

/// The error of a name that no file can have.
[[nodiscard]] FileError UnholdableName();

/// Empty on success, else what GetLastError says.
[[nodiscard]] FileOutcome OutcomeOf(BOOL succeeded);

}  // namespace quillon
