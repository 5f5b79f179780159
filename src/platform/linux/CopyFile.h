#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

#include "platform/FileSystem.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/FileId.h"

namespace quillon {

/// An opened file or link, and how it was when it was opened.
struct OpenedSource {
  Descriptor file;  ///< of a link: the link itself, which cannot be read
  struct stat status = {};
};

/// Opens a regular file for reading, or a link itself. Zero on success, else the errno: EXDEV for anything else.
[[nodiscard]] int OpenCopySource(const std::string& path, std::optional<OpenedSource>& opened);

struct MadeCopy {
  FileId id;
  std::optional<Descriptor> held;  ///< of a file: should it be deleted, nobody else's file gets its number meanwhile
  NotKept notKept;
  bool stays = false;      ///< copying failed, and what was made of the copy could not be deleted
  bool cancelled = false;  ///< it failed because `progress` has ended it
};

/// Copies the source, or a link as a link, to a name that does not exist yet: content, times, permissions, and as far
/// as the system allows owner and extended attributes; flushed to the disk. Holes stay holes. A source that turns out
/// shorter or longer than it was when it was opened is an error. Zero on success, else the errno, and then nothing is
/// left behind, unless `made.stays`. `progress` may be null.
[[nodiscard]] int CopyWithAttributes(const OpenedSource& source, const std::string& to, MadeCopy& made,
                                     CopyProgress* progress = nullptr);

}  // namespace quillon
