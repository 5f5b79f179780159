#pragma once

#include <string>

#include "platform/FileSystem.h"
#include "platform/PathStyle.h"

namespace quillon {

/// What has become of the source while it was copied.
enum class SourceNow {
  kUnchanged,
  kModified,  ///< the same file with other content or attributes
  kReplaced,  ///< another file stands at its path
  kGone,
  kUnknown,  ///< it cannot be looked at
};

/// What a move to another volume asks of the system. One object serves one move: it knows the source and the copy that
/// it has made.
class CopySteps {
 public:
  virtual ~CopySteps() = default;

  /// Empty when something stands at this path, links not followed.
  virtual FileOutcome Look(const std::string& path) = 0;

  /// Opens the source, which stays open until the object goes.
  virtual FileOutcome OpenSource(const std::string& from) = 0;

  /// Makes a temporary file in `folder` that is recognised as this program's should the program be killed, copies the
  /// source's content, times and permissions to it and flushes it to the disk. A copy that fails leaves nothing behind.
  virtual MoveOutcome CopyInto(const std::string& folder) = 0;

  /// The temporary file's full path; empty before CopyInto.
  [[nodiscard]] virtual std::string Temporary() const = 0;

  /// Gives the copy its name without replacing anything.
  virtual FileOutcome Publish(const std::string& to) = 0;

  /// Makes the new name durable.
  virtual FileOutcome FlushFolder(const std::string& folder) = 0;

  /// Compares what stands at the source's path with what was opened and with how it was then.
  virtual SourceNow LookAtSource() = 0;

  /// Deletes the source, unless it has changed or somebody is writing to it, as far as the system can tell.
  virtual FileOutcome RemoveSource() = 0;

  /// Deletes the copy, if it is what stands at this path: nobody else's file is touched.
  virtual FileOutcome RemoveCopy(const std::string& path) = 0;
};

/// Moves a file to another volume: copies it under a temporary name, publishes it, then deletes the source. At every
/// moment, and after any failure, the content exists whole at least once: a copy is taken back only while the source is
/// there, and the source is deleted only while it is what was copied.
[[nodiscard]] MoveOutcome MoveByCopying(CopySteps& steps, const std::string& from, const std::string& to,
                                        PathStyle style);

}  // namespace quillon
