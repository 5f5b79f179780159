#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "base/ByteSource.h"
#include "base/PathList.h"
#include "base/Result.h"

namespace quillon {

struct FileError;
struct FileStatus;

/// What a caller is going to ask of a file. It is a forecast, which changes only how long the answers take.
struct FileNeeds {
  enum class What { kNothing, kStatus, kContents };
  What what = What::kNothing;
  // Of the contents:
  std::size_t head = 0;              ///< bytes from the start
  std::size_t tail = 0;              ///< bytes before the end
  std::string_view tailUnless = {};  ///< files that begin with this need no tail; lives as long as the reading
  bool statusToo = false;
};

/// Called on the thread of the reader, for each file some time before its turn.
using NeedsOf = std::function<FileNeeds(const PathList::File&)>;

/// Reads the files of a list one after another. A file is seen as it was at some moment between the start of the
/// reading and its turn.
class FilesInTurn {
 public:
  virtual ~FilesInTurn() = default;

  /// Goes on to the next file, at first to the first one. To be called at most as often as there are files.
  virtual void Next() = 0;

  /// FileReads::OpenFile for this file; valid until `Next`. To be called at most once for each file.
  [[nodiscard]] virtual ByteSource* Open() = 0;

  /// FileReads::Status for this file.
  [[nodiscard]] virtual Result<FileStatus, FileError> Status() = 0;

  /// Closes this file before the next one's turn, for a caller that changes it. Nothing is asked of it afterwards.
  virtual void Release() = 0;
};

}  // namespace quillon
