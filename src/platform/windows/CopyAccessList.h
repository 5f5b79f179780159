#pragma once

#include <string>

namespace quillon {

/// Copies the explicit (not inherited) access-list entries of `from` to `to`, and the flag that blocks inheritance;
/// what `to` inherits from its own folder is kept. A file without explicit entries has nothing to copy. Returns false
/// when `to` does not have that list afterwards, as on volumes without access lists. The paths are in the form for
/// system calls.
[[nodiscard]] bool CopyAccessList(const std::wstring& from, const std::wstring& to);

}  // namespace quillon
