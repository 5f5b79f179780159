#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/PathStyle.h"

/// Stateless helpers over paths and names. No helper touches the disk. Views point into the argument.
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

/// The path less its file name, trailing separator kept; a path without a separator, having no file name, is all of it.
[[nodiscard]] std::string_view FolderPart(std::string_view path, PathStyle style = SystemPathStyle());

/// The folder with one separator appended when it does not end with one. An empty folder gives the separator alone.
[[nodiscard]] std::string WithTrailingSeparator(std::string_view folder, PathStyle style = SystemPathStyle());

/// The 1-based position, in characters, of the first character that a file name may not hold: one of
/// `" * / : < > ? \ |` and carriage return, on every system; 0 when there is none.
[[nodiscard]] int InvalidCharacterPosition(std::string_view name);

/// The position of the first such character that `name` holds more often, up to there, than `present` does, the name
/// that a file has already: on Linux files may have such names.
[[nodiscard]] int AddedInvalidCharacterPosition(std::string_view name, std::string_view present);

/// Splits a command line at single spaces; a piece that begins with a double quote runs on to the first piece, itself
/// included, that ends with another one. Spaces inside a run are kept, as many as there are; an unclosed run goes to
/// the end. Empty pieces outside a run and empty pairs of quotes give no argument. An argument that was quoted, or that
/// holds a quote, comes back as a space, a quote, its text and a quote, so that `UnquoteArgument` yields exactly the
/// text.
[[nodiscard]] std::vector<std::string> SplitCommandLine(std::string_view commandLine);

/// An argument that holds a double quote, less its first two characters and its last (empty when it has no more than
/// these); any other unchanged.
[[nodiscard]] std::string UnquoteArgument(std::string_view argument);

/// True when the path's extension equals, ignoring case, an entry of the list (entries separated by single spaces; an
/// empty entry matches a file without extension). An empty list matches every path.
[[nodiscard]] bool MatchesExtensionFilter(std::string_view path, std::string_view list,
                                          PathStyle style = SystemPathStyle());

/// The path shortened for display to about `maximum` characters by putting "..." in the place of its first folders; the
/// result can still be longer. Both are counted in characters.
[[nodiscard]] std::string ShortenPath(std::string_view path, std::size_t maximum, PathStyle style = SystemPathStyle());

/// The path as the file system compares it: on Windows without regard to letter case, on Linux byte for byte.
[[nodiscard]] std::string PathIdentity(std::string_view path, PathStyle style = SystemPathStyle());

}  // namespace quillon
