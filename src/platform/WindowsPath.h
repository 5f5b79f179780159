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
/// paths ("\\?\", "\\.\") are unchanged.
[[nodiscard]] std::string TidyWindowsPath(std::string_view fullPath);

/// Converts a tidy full path to the literal form, which has no limit of 260 characters: "\\?\C:\a\b".
[[nodiscard]] std::string LiteralWindowsPath(const std::string& tidyPath);

/// The reverse, for paths that come from the system.
[[nodiscard]] std::string PlainWindowsPath(std::string_view literalPath);

/// The name that Windows gives to a file created under `name`: dots and blanks at the end are dropped.
[[nodiscard]] std::string_view StoredWindowsName(std::string_view name);

/// False for names that ordinary programs could not open: those with ":" (a stream of another file) and device names
/// (CON, NUL, COM1 ...) with any extension.
[[nodiscard]] bool CanNameWindowsFile(std::string_view name);

}  // namespace quillon
