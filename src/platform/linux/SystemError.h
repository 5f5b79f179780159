#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace quillon {

/// The error for a file operation that failed with this errno.
[[nodiscard]] FileError ErrorOf(int number);

/// The same as an outcome; 0 is success.
[[nodiscard]] FileOutcome OutcomeOf(int number);

/// The same for reading a folder: a missing folder is unreachable.
[[nodiscard]] FileError FolderErrorOf(int number);

/// The error for an invalid file name.
[[nodiscard]] FileError InvalidNameError();

/// True when the system would cut the path at a NUL.
[[nodiscard]] bool HoldsNul(const std::string& path);

}  // namespace quillon
