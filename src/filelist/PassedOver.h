#pragma once

#include <string>

namespace quillon {

/// Why a load skips a path.
enum class Obstacle {
  kNoAccess,  ///< a folder that cannot be read, or a file that cannot be accessed
  kTooDeep,   ///< a folder below the search's largest depth
  kGone,      ///< a file that has vanished since it was found
};

struct PassedOver {
  std::string path;
  Obstacle obstacle = Obstacle::kNoAccess;

  bool operator==(const PassedOver&) const = default;
};

}  // namespace quillon
