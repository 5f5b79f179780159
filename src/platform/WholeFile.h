#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

/// Reading and writing small files as a whole.
namespace quillon {

/// Why a file was not read.
enum class ReadFailure {
  kAbsent,      ///< nothing exists at the path, or a dangling link
  kUnreadable,  ///< it exists but is no regular file, may not be read, or reading failed or ended early
  kTooLarge,
};

/// Returns the file's content. A file of more than `largest` bytes is not read.
[[nodiscard]] Result<std::string, ReadFailure> ReadWholeFile(const std::string& path, std::uint64_t largest);

/// The same for an opened file.
[[nodiscard]] Result<std::string, ReadFailure> ReadWhole(ByteSource& file, std::uint64_t largest);

/// Opens one regular file for reading, with sharing, so that other programs can still use it. If another program has it
/// open exclusively, retries for a moment.
[[nodiscard]] Result<std::unique_ptr<ByteSource>, ReadFailure> OpenRegularFile(const std::string& path);

/// Replaces the file's content with `bytes`: writes a temporary file beside it, flushes it to the disk and renames it
/// over the file. A crash leaves either the old or the new content, complete. Only regular files are replaced. A link
/// is followed, a dangling one only on Linux; permissions are kept. Missing folders are created. After an error the
/// file has the old content, or the new one that could not be made durable.
[[nodiscard]] FileOutcome ReplaceWholeFile(const std::string& path, std::string_view bytes);

/// True when files can be created in this folder.
[[nodiscard]] bool CanWriteFolder(const std::string& folder);

}  // namespace quillon
