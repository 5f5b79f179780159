#pragma once

#include <string>

namespace quillon {

/// Flushes the folder's entries to the disk; an empty path means the current folder. Returns zero on success and where
/// folders cannot be flushed (not supported, or the folder may not be listed); else the errno.
[[nodiscard]] int FlushFolder(const std::string& folder);

}  // namespace quillon
