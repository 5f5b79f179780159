#pragma once

#include <optional>
#include <string>

namespace quillon {

/// The full and tidy path (see WindowsPath.h); relative paths start at the current folder. Returns nullopt for a path
/// that contains a NUL or is not valid text.
[[nodiscard]] std::optional<std::string> TidySystemPath(const std::string& path);

/// The path in the literal form for wide-character system calls, of any length. Returns nullopt as above, and when a
/// name in it has more than 255 UTF-16 units.
[[nodiscard]] std::optional<std::wstring> SystemPath(const std::string& path);

/// The same for an existing file. If the name ends with dots or blanks and no file has exactly this name, the name
/// without them is used, as usual on Windows.
[[nodiscard]] std::optional<std::wstring> ExistingPath(const std::string& path);

}  // namespace quillon
