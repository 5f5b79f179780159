#pragma once

#include <string>

#include "platform/FileSystem.h"
#include "platform/windows/FileId.h"

namespace quillon {

struct MadeCopy {
  FileId id;
  NotKept notKept;
  bool stays = false;      ///< copying failed, and the incomplete copy could not be deleted
  bool cancelled = false;  ///< it failed because `progress` cancelled it
};

/// Copies a file, or a link as a link, to a name that does not exist yet: content with all streams, the three times,
/// the attributes and the access list's explicit entries; flushed to the disk. `source` is the file's status, read from
/// a handle that keeps writers out and must stay open during the copying. Returns false with the last error set on
/// failure; then nothing is left behind, unless `made.stays`. `progress` may be null.
[[nodiscard]] bool CopyWithAttributes(const std::wstring& from, const Status& source, const std::wstring& to,
                                      MadeCopy& made, Progress* progress = nullptr);

}  // namespace quillon
