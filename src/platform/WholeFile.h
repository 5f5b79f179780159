#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

/// Small files read and written whole.
namespace quillon {

/// nullopt when the file is absent or cannot be read.
[[nodiscard]] std::optional<std::string> ReadWholeFile(const std::string& path);

/// Puts `bytes` in the place of the file's content: written to a temporary file beside it, flushed to the disk, renamed
/// over it. A crash leaves the old content or the new one, whole. A link is followed; permissions are kept. Missing
/// folders on the way are made.
[[nodiscard]] FileOutcome ReplaceWholeFile(const std::string& path, std::string_view bytes);

/// True when files can be created in this folder.
[[nodiscard]] bool CanWriteFolder(const std::string& folder);

}  // namespace quillon
