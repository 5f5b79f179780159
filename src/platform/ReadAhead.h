#pragma once

#include <cstddef>
#include <functional>
#include <memory>

#include "platform/FileOpener.h"
#include "platform/FilesInTurn.h"

namespace quillon {

/// Makes one for each thread.
using MakeFileOpener = std::function<std::unique_ptr<FileOpener>()>;

struct ReadAheadLimits {
  std::size_t files = 128;   ///< that are prepared, and possibly open, at one time
  std::size_t threads = 16;  ///< beside the reader's own
};

/// Lists with fewer files are not worth starting a thread.
inline constexpr std::size_t kFewestReadAhead = 8;

/// Reads files of the list before their turn, on threads beside the reader's. It begins with one thread, which is
/// enough for what the system has in memory already: where the next file is not prepared yet, the reader prepares one,
/// too. While files take long, which is time spent waiting for a disk, there will be more. The destructor waits for the
/// files that are being read.
[[nodiscard]] std::unique_ptr<FilesInTurn> MakeReadAhead(const PathList& list, NeedsOf needs, MakeFileOpener makeOpener,
                                                         const ReadAheadLimits& limits);

}  // namespace quillon
