#pragma once

#include <string>

namespace quillon {

/// Added to the error codes of GIO, whose first is 0.
inline constexpr int kTrashErrorOffset = 10000;

/// Moves a file to the trash of the desktop. 0 on success, else kTrashErrorOffset plus the code of GIO's error; never
/// deletes for good.
/// Source: freedesktop.org's trash format 1.0, as GIO carries it out.
[[nodiscard]] int MoveToTrash(const std::string& path);

}  // namespace quillon
