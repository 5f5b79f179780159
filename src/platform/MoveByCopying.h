#pragma once

#include <string>

#include "platform/FileSystem.h"
#include "platform/PathStyle.h"

namespace quillon {

/// The state of the source after it was copied.
enum class SourceNow {
  kUnchanged,
  kModified,  ///< the same file with other content or attributes
  kReplaced,  ///< another file is at its path
  kGone,
  kUnknown,  ///< its status cannot be read
};

/// The system calls that a move to another volume consists of. One object serves one move: it remembers the source and
/// the copy.
class CopySteps {
 public:
  virtual ~CopySteps() = default;

  /// Success (empty) when something exists at this path, links not followed.
  virtual FileOutcome Look(const std::string& path) = 0;

  /// Opens the source, which stays open as long as the object exists.
  virtual FileOutcome OpenSource(const std::string& from) = 0;

  /// Makes a marked temporary file in `folder`, which is found and deleted later if the program is killed; copies the
  /// source's content, times and permissions to it and flushes it to the disk. Leaves nothing behind on failure.
  virtual MoveOutcome CopyInto(const std::string& folder) = 0;

  /// The temporary file's full path; empty before CopyInto.
  [[nodiscard]] virtual std::string Temporary() const = 0;

  /// Renames the copy to its final name without replacing anything.
  virtual FileOutcome Publish(const std::string& to) = 0;

  /// Makes the new name durable.
  virtual FileOutcome FlushFolder(const std::string& folder) = 0;

  /// Compares the file at the source's path with the opened file and its status at that time.
  virtual SourceNow LookAtSource() = 0;

  /// Deletes the source, unless it has changed or is being written to, as far as the system can tell.
  virtual FileOutcome RemoveSource() = 0;

  /// Deletes the file at this path only if it is the copy.
  virtual FileOutcome RemoveCopy(const std::string& path) = 0;
};

/// Moves a file to another volume: copies it under a temporary name, publishes the copy, then deletes the source. At
/// every moment, and after any failure, at least one complete file exists: the copy is only deleted while the source is
/// there, and the source is only deleted while it is unchanged.
[[nodiscard]] MoveOutcome MoveByCopying(CopySteps& steps, const std::string& from, const std::string& to,
                                        PathStyle style);

}  // namespace quillon
