#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace quillon {

/// The error that `number`, an errno, means for a file.
[[nodiscard]] FileError ErrorOf(int number);

/// The same as an outcome; 0 is success.
[[nodiscard]] FileOutcome OutcomeOf(int number);

/// The error that `number` means for a folder that is to be read: absent is out of reach there.
[[nodiscard]] FileError FolderErrorOf(int number);

/// The error of a name that no file can have.
[[nodiscard]] FileError UnholdableName();

/// True when the system would cut the path at a NUL.
[[nodiscard]] bool HoldsNul(const std::string& path);

}  // namespace quillon
