#pragma once

#include <string>

namespace quillon {

/// A short name for a file that lives only during one operation, beginning with a dot; another one at every call.
/// Nothing guarantees that no such file exists: create it exclusively and ask again when that fails.
[[nodiscard]] std::string TemporaryName();

/// How often an exclusive creation is tried under another name.
inline constexpr int kTemporaryNameAttempts = 100;

}  // namespace quillon
