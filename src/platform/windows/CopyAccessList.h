#pragma once

#include <string>

namespace quillon {

/// Gives the file `to` the entries of the access list of `from` that it has not inherited, and its protection from
/// inheriting; what `to` inherits from its own folder stays. A file without entries of its own has nothing to copy.
/// False when the list of `to` is not that afterwards, as on volumes without access lists. Paths are as system calls
/// take them.
[[nodiscard]] bool CopyAccessList(const std::wstring& from, const std::wstring& to);

}  // namespace quillon
