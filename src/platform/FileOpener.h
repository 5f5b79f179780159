#pragma once

#include <memory>

#include "base/ByteSource.h"
#include "base/PathList.h"
#include "base/Result.h"
#include "platform/FileSystem.h"
#include "platform/FilesInTurn.h"

namespace quillon {

/// Opens one file after another for one thread. Files of one folder may be found through the folder as it was when its
/// first file was opened.
class FileOpener {
 public:
  virtual ~FileOpener() = default;

  struct Opened {
    std::unique_ptr<ByteSource> file;  ///< as FileReads::OpenFile returns it
    bool lacksResources = false;       ///< it was not opened because too many are open: may succeed later
  };
  [[nodiscard]] virtual Opened Open(const PathList::File& file) = 0;

  /// As FileReads::Status.
  [[nodiscard]] virtual Result<FileStatus, FileError> Status(const PathList::File& file) = 0;
};

}  // namespace quillon
