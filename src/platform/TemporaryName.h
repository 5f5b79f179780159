#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Names of files that live only during one operation, and of the marks beside them.
namespace quillon {

/// A short name, beginning with a dot; another one at every call. Nothing guarantees that no such file exists: create
/// it exclusively and ask again when that fails.
[[nodiscard]] std::string TemporaryName();

/// How often an exclusive creation is tried under another name.
inline constexpr int kTemporaryNameAttempts = 100;

/// The name of the mark that stands beside a temporary file of this name.
[[nodiscard]] std::string MarkName(std::string_view temporaryName);

/// The name of the temporary file that a mark of this name stands for; nullopt for the name of anything else.
[[nodiscard]] std::optional<std::string> MarkedName(std::string_view markName);

}  // namespace quillon
