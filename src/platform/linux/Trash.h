#pragma once

#include <string>

namespace quillon {

/// Moves a file to the desktop's trash; never deletes it permanently. Returns false when the file stays where it is.
/// Source: freedesktop.org's trash format 1.0, implemented by GIO.
[[nodiscard]] bool MoveToTrash(const std::string& path);

}  // namespace quillon
