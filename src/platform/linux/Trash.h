#pragma once

#include <string>

namespace quillon {

/// Moves a file to the trash of the desktop; never deletes for good. False when the file stays where it is.
/// Source: freedesktop.org's trash format 1.0, as GIO carries it out.
[[nodiscard]] bool MoveToTrash(const std::string& path);

}  // namespace quillon
