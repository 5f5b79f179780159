#pragma once

#include <string>
#include <string_view>

/// Windows paths as text; nothing here asks the system.
/// Source: "Naming Files, Paths, and Namespaces", Windows documentation.
namespace quillon {

/// True for paths that do not depend on a current folder: a drive with "\", or a network or device path.
[[nodiscard]] bool IsFullWindowsPath(std::string_view path);

/// A full path in the form "C:\a\b" or "\\server\share\a": "/" as "\", without "." and doubled separators, ".."
/// resolved as text (as Windows does). A trailing separator stays. Names keep dots and blanks at their end. Device
/// paths
/// ("\\?\", "\\.\") stay as they are.
[[nodiscard]] std::string TidyWindowsPath(std::string_view fullPath);

/// A tidy full path in the form that has no limit of 260 characters and is taken literally: "\\?\C:\a\b".
[[nodiscard]] std::string LiteralWindowsPath(const std::string& tidyPath);

/// The reverse, for what the system hands out.
[[nodiscard]] std::string PlainWindowsPath(std::string_view literalPath);

/// The name that a file gets when it is called so: dots and blanks at the end are dropped.
[[nodiscard]] std::string_view HeldWindowsName(std::string_view name);

/// False for names that no ordinary program could open again: ":" (a stream of another file) and the devices' names
/// (CON, NUL, COM1 ...), with any extension.
[[nodiscard]] bool CanNameWindowsFile(std::string_view name);

}  // namespace quillon
