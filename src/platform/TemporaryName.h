#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Names for temporary files and for the marks beside them.
namespace quillon {

/// What every temporary name begins with.
inline constexpr std::string_view kTemporaryPrefix = ".quillon-";

/// Returns a short name that begins with a dot, a different one at every call. A file of that name may exist: create it
/// exclusively, and get another name when that fails.
[[nodiscard]] std::string TemporaryName();

/// The number of names that are tried for an exclusive creation.
inline constexpr int kTemporaryNameAttempts = 100;

/// The name of the mark beside a temporary file of this name.
[[nodiscard]] std::string MarkName(std::string_view temporaryName);

/// The name of the temporary file that belongs to a mark of this name; nullopt when this is not a mark's name.
[[nodiscard]] std::optional<std::string> MarkedName(std::string_view markName);

}  // namespace quillon
