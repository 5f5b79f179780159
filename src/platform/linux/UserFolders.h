#pragma once

#include <string>

namespace quillon {

/// A folder of the XDG Base Directory Specification: what the variable holds when that is a full path, else the place
/// under the user's home. With a trailing separator; empty when the user has no home.
/// Source: "XDG Base Directory Specification" 0.8.
[[nodiscard]] std::string UserFolder(const char* variable, const char* underHome);

}  // namespace quillon
