#pragma once

#include <memory>

#include "base/ByteSource.h"
#include "base/Result.h"
#include "platform/FileSystem.h"

namespace quillon {

/// Opens a regular file by its name in an opened folder (AT_FDCWD: by its path), or returns errno; EISDIR for what is
/// no regular file.
[[nodiscard]] Result<std::unique_ptr<ByteSource>, int> OpenAt(int folder, const char* name);

/// FileReads::Status by the same two.
[[nodiscard]] Result<FileStatus, FileError> StatusAt(int folder, const char* name);

}  // namespace quillon
