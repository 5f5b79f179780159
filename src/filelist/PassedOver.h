#pragma once

#include <string>

namespace quillon {

/// Why a load goes on without a path.
enum class Obstacle {
  kNoAccess,  ///< a folder that cannot be read, or a file that may not be looked at
  kTooDeep,   ///< a folder further down than a search goes
  kGone,      ///< a file that was found and is no longer there
};

struct PassedOver {
  std::string path;
  Obstacle obstacle = Obstacle::kNoAccess;

  bool operator==(const PassedOver&) const = default;
};

}  // namespace quillon
