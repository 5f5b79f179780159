#pragma once

#include <string>

namespace quillon {

/// Renames in one system call that never replaces anything; where the file system does not support that call, in one of
/// the ways below. Returns zero on success, else the errno.
[[nodiscard]] int RenameNoReplace(const std::string& from, const std::string& to);

/// Adds the new name as a hard link, then removes the old name. Needs a file system with hard links. On failure only
/// the old name exists.
[[nodiscard]] int RenameByLink(const std::string& from, const std::string& to);

/// Creates an empty file exclusively under the new name, which the rename then replaces: for file systems without hard
/// links. On failure only the old name exists.
[[nodiscard]] int RenameOverPlaceholder(const std::string& from, const std::string& to);

}  // namespace quillon
