#pragma once

#include <string>

namespace quillon {

/// One line of a plan of renames. Full paths in one folder.
struct PlannedRename {
  std::string from;
  std::string to;

  bool operator==(const PlannedRename&) const = default;
};

}  // namespace quillon
