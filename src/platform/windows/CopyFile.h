#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace quillon {

/// Copies a file, or a link as a link, to a name that does not exist yet: content with all streams, the three times and
/// the attributes; flushed to the disk. Nobody can write to the source meanwhile. A copy that fails leaves nothing.
[[nodiscard]] FileOutcome CopyWithAttributes(const std::wstring& from, const std::wstring& to);

}  // namespace quillon
