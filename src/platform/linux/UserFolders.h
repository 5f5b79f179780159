#pragma once

#include <string>

namespace quillon {

/// A folder of the user: the environment variable's value if it is a full path, else the folder under the user's home.
/// With a trailing separator; empty when the user has no home.
/// Source: freedesktop.org's "XDG Base Directory" 0.8.
[[nodiscard]] std::string UserFolder(const char* variable, const char* underHome);

}  // namespace quillon
