#pragma once

#include <string>

namespace quillon {

/// Makes the names in this folder durable; an empty path is the current folder. Zero on success, and where folders
/// cannot be flushed (the file system does not know how, or the folder may not be listed); else the errno.
[[nodiscard]] int FlushFolder(const std::string& folder);

}  // namespace quillon
