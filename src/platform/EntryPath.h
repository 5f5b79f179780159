#pragma once

#include <string_view>

#include "platform/PathStyle.h"

namespace quillon {

/// A full path as the folder it lies in and the name it has there. Views point into the path.
struct EntryPath {
  std::string_view folder;  ///< with its trailing separator; empty for a bare name
  std::string_view name;
};

[[nodiscard]] EntryPath SplitPath(std::string_view path, PathStyle style);

/// False for names that no file can have on any system: none at all, ".", ".." and those that hold a NUL.
[[nodiscard]] bool CanNameFile(std::string_view name);

}  // namespace quillon
