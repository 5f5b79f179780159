#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

/// Small files read and written whole.
namespace quillon {

/// Why a file was not read.
enum class ReadFailure {
  kAbsent,      ///< nothing stands at the path, or a link that leads nowhere
  kUnreadable,  ///< something stands there: no regular file, not allowed, an error of the disk, an unexpected end
  kTooLarge,
};

/// The file's content, at most `largest` bytes long; of a larger file nothing is read.
[[nodiscard]] Result<std::string, ReadFailure> ReadWholeFile(const std::string& path, std::uint64_t largest);

/// The same of an opened file.
[[nodiscard]] Result<std::string, ReadFailure> ReadWhole(ByteSource& file, std::uint64_t largest);

/// Opens one regular file for reading without keeping anyone else out. Where another program does, waits a moment for
/// it to finish.
[[nodiscard]] Result<std::unique_ptr<ByteSource>, ReadFailure> OpenRegularFile(const std::string& path);

/// Puts `bytes` in the place of the file's content: written to a temporary file beside it, flushed to the disk, renamed
/// over it. A crash leaves the old content or the new one, whole. Only regular files are replaced. A link is followed,
/// one that leads nowhere only on Linux; permissions are kept. Missing folders on the way are made. After an error the
/// old content stands, or the new one that could not be made durable.
[[nodiscard]] FileOutcome ReplaceWholeFile(const std::string& path, std::string_view bytes);

/// True when files can be created in this folder.
[[nodiscard]] bool CanWriteFolder(const std::string& folder);

}  // namespace quillon
