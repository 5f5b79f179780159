#pragma once

#include <string>

namespace quillon {

/// Copies a file, or a link as a link, to a name that does not exist yet: content, times, permissions, and as far as
/// the system allows owner and extended attributes; flushed to the disk. A source that changes meanwhile is an error.
/// Zero on success, else the errno, and then nothing is left behind.
[[nodiscard]] int CopyWithAttributes(const std::string& from, const std::string& to);

}  // namespace quillon
