#pragma once

#include <optional>
#include <string>

#include "base/Result.h"
#include "platform/linux/Descriptor.h"
#include "platform/multimedia/MediaStatus.h"
#include "platform/multimedia/linux/Deadline.h"

namespace quillon {

/// The file that is actually played: usually the given file itself, otherwise a corrected copy in memory.
struct MediumSource {
  std::string path;                                 ///< absolute
  std::optional<Descriptor> memory = std::nullopt;  ///< the file in memory that `path` leads to, if it is not on a disk
  std::optional<int> milliseconds = std::nullopt;   ///< the length, if it is already known
};

/// Fails when the file cannot be played, or a song cannot be read by the deadline. A length that is not found by then
/// stays unknown.
Result<MediumSource, MediaError> FindMediumSource(const std::string& path, const Deadline& deadline);

}  // namespace quillon
