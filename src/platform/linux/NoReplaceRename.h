#pragma once

#include <string>

namespace quillon {

/// Renames in one system call that never replaces anything, and where the file system does not know that call by the
/// ways below. Zero on success, else the errno.
[[nodiscard]] int RenameNoReplace(const std::string& from, const std::string& to);

/// A second name, then the first one goes. Needs a file system with hard links. On failure only the old name is there.
[[nodiscard]] int RenameByLink(const std::string& from, const std::string& to);

/// The new name is taken exclusively by an empty file, which the rename then replaces: for file systems without hard
/// links. On failure only the old name is there.
[[nodiscard]] int RenameOverPlaceholder(const std::string& from, const std::string& to);

}  // namespace quillon
