#pragma once

#include <optional>
#include <string>

namespace quillon {

/// The path as full and tidy text (see WindowsPath.h), relative ones from the current folder. nullopt for a path that
/// holds a NUL or is not valid text.
[[nodiscard]] std::optional<std::string> TidySystemPath(const std::string& path);

/// A path for wide-character system calls, of any length and taken literally. nullopt as above, and when a name in it
/// has more than 255 UTF-16 units.
[[nodiscard]] std::optional<std::wstring> SystemPath(const std::string& path);

/// The same for a file that is there already. Where no file has this very name and it ends with dots or blanks, the
/// name without them is meant, as everywhere in Windows.
[[nodiscard]] std::optional<std::wstring> ExistingPath(const std::string& path);

}  // namespace quillon
