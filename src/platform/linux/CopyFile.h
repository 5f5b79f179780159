#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

#include "platform/FileSystem.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/FileId.h"

namespace quillon {

/// An opened file or link, and its status at that time.
struct OpenedSource {
  Descriptor file;  ///< for a link, the link itself, which cannot be read
  struct stat status = {};
};

/// Opens a regular file for reading, or a link itself. Zero on success, else the errno: EXDEV for anything else.
[[nodiscard]] int OpenCopySource(const std::string& path, std::optional<OpenedSource>& opened);

struct MadeCopy {
  FileId id;
  std::optional<Descriptor> held;  ///< kept open so that a deleted copy's inode number is not reused
  NotKept notKept;
  bool stays = false;      ///< copying failed, and the incomplete copy could not be deleted
  bool cancelled = false;  ///< it failed because `progress` cancelled it
};

/// Copies the source, or a link as a link, to a name that does not exist yet: content, times, permissions, and as far
/// as the system allows owner and extended attributes; flushed to the disk. Holes stay holes. A source whose length has
/// changed since it was opened is an error. Returns zero on success, else the errno; on failure nothing is left behind,
/// unless `made.stays`. `progress` may be null.
[[nodiscard]] int CopyWithAttributes(const OpenedSource& source, const std::string& to, MadeCopy& made,
                                     Progress* progress = nullptr);

}  // namespace quillon
