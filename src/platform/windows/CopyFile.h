#pragma once

#include <string>

#include "platform/FileSystem.h"
#include "platform/windows/FileId.h"

namespace quillon {

struct MadeCopy {
  FileId id;
  NotKept notKept;
  bool stays = false;      ///< copying failed, and what was made of the copy could not be deleted
  bool cancelled = false;  ///< it failed because `progress` has ended it
};

/// Copies a file, or a link as a link, to a name that does not exist yet: content with all streams, the three times,
/// the attributes and the access list's own entries; flushed to the disk. `source` is its status, taken by a handle
/// that keeps writers out and stays open meanwhile. False with the last error set on failure, and then nothing is left
/// behind, unless `made.stays`. `progress` may be null.
[[nodiscard]] bool CopyWithAttributes(const std::wstring& from, const Status& source, const std::wstring& to,
                                      MadeCopy& made, CopyProgress* progress = nullptr);

}  // namespace quillon
