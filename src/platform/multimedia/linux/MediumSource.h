#pragma once

#include <optional>
#include <string>

#include "base/Result.h"
#include "platform/linux/Descriptor.h"

namespace quillon {

/// What is played for a file: mostly the file itself.
struct MediumSource {
  std::string path;                                 ///< absolute
  std::optional<Descriptor> memory = std::nullopt;  ///< what `path` leads to, where that is no file on a disk
  std::optional<int> milliseconds = std::nullopt;   ///< the length, where it has been found out already
};

/// A number of command_error when nothing there can be played.
Result<MediumSource, int> FindMediumSource(const std::string& path);

}  // namespace quillon
