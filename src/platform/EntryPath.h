#pragma once

#include <string_view>

#include "platform/PathStyle.h"

namespace quillon {

/// A full path, split into folder and name. The views point into the path.
struct EntryPath {
  std::string_view folder;  ///< with its trailing separator; empty for a bare name
  std::string_view name;
};

[[nodiscard]] EntryPath SplitPath(std::string_view path, PathStyle style);

/// False for names that are invalid on every system: an empty name, ".", ".." and names with a NUL.
[[nodiscard]] bool CanNameFile(std::string_view name);

}  // namespace quillon
