#pragma once

#include <optional>
#include <string>

#include "base/Result.h"
#include "platform/linux/Descriptor.h"
#include "platform/multimedia/MediaStatus.h"
#include "platform/multimedia/linux/Deadline.h"

namespace quillon {

/// What is played for a file: mostly the file itself.
struct MediumSource {
  std::string path;                                 ///< absolute
  std::optional<Descriptor> memory = std::nullopt;  ///< what `path` leads to, where that is no file on a disk
  std::optional<int> milliseconds = std::nullopt;   ///< the length, where it has been found out already
};

/// An error when nothing there can be played, or a song is not read by the deadline. A length that is
/// not found by then stays unknown.
Result<MediumSource, MediaError> FindMediumSource(const std::string& path, const Deadline& deadline);

}  // namespace quillon
