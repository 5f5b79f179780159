#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/PathList.h"
#include "platform/PathStyle.h"

/// Stateless helpers for paths and names. They never touch the disk. Returned views point into the argument.
namespace quillon {

/// "\" or "/".
[[nodiscard]] char PathSeparator(PathStyle style = SystemPathStyle());

/// The text after the last "." of the path, in upper case; empty when there is none or when "\" or "/" (Linux: "/")
/// comes after it.
[[nodiscard]] std::string Extension(std::string_view path, PathStyle style = SystemPathStyle());

/// The text after the last "\" or ":" (Linux: "/"); empty for a path without any.
[[nodiscard]] std::string_view FileName(std::string_view path, PathStyle style = SystemPathStyle());

/// The file name up to its last "."; empty for a name without a dot and for a path without a separator.
[[nodiscard]] std::string_view BaseName(std::string_view path, PathStyle style = SystemPathStyle());

/// The same, but for a name without a dot the whole name.
[[nodiscard]] std::string_view NameWithoutExtension(std::string_view path, PathStyle style = SystemPathStyle());

/// The path without its file name, with the trailing separator. A path without a separator has no file name and is
/// returned whole.
[[nodiscard]] std::string_view FolderPart(std::string_view path, PathStyle style = SystemPathStyle());

/// Adds the file at this path to the list.
void AddPath(PathList& list, std::string_view path, PathStyle style = SystemPathStyle());

/// The folder with one separator appended when it does not end with one. An empty folder gives the separator alone.
[[nodiscard]] std::string WithTrailingSeparator(std::string_view folder, PathStyle style = SystemPathStyle());

/// True for a character that a file name may not hold: one of `" * / : < > ? \ |` and carriage return, on every system.
[[nodiscard]] bool IsInvalidInName(char character);

/// The 1-based position, in characters, of the first such character; 0 when there is none.
[[nodiscard]] int InvalidCharacterPosition(std::string_view name);

/// The position of the first such character that `name` contains more often, up to that position, than `present`, the
/// file's current name; 0 when there is none. On Linux existing files may have such names.
[[nodiscard]] int AddedInvalidCharacterPosition(std::string_view name, std::string_view present);

/// Splits a command line at single spaces. A piece that begins with a double quote is joined with those behind it up to
/// the first piece, itself included, that ends with another quote. Spaces inside such a run are all kept; an unclosed
/// run extends to the end. Empty pieces outside a run and empty pairs of quotes give no argument. An argument that was
/// quoted or contains a quote is returned as a space, a quote, its text and a quote, from which `UnquoteArgument`
/// recovers exactly the text.
[[nodiscard]] std::vector<std::string> SplitCommandLine(std::string_view commandLine);

/// An argument that contains a double quote loses its first two characters and its last one (empty when it is no longer
/// than that); any other argument is unchanged.
[[nodiscard]] std::string UnquoteArgument(std::string_view argument);

/// True when the path's extension equals an entry of the list, ignoring case. Entries are separated by single spaces;
/// an empty entry matches a file without extension. An empty list matches every path.
[[nodiscard]] bool MatchesExtensionFilter(std::string_view path, std::string_view list,
                                          PathStyle style = SystemPathStyle());

/// The path shortened for display to about `maximum` characters (not bytes) by replacing its first folders with "...".
/// The result can still be longer.
[[nodiscard]] std::string ShortenPath(std::string_view path, std::size_t maximum, PathStyle style = SystemPathStyle());

/// A key that is equal for paths that the file system treats as equal: case-insensitive on Windows, byte for byte on
/// Linux.
[[nodiscard]] std::string PathIdentity(std::string_view path, PathStyle style = SystemPathStyle());

}  // namespace quillon
