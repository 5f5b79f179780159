#pragma once

#include <string>

#include "platform/FileSystem.h"
#include "platform/PathStyle.h"

namespace quillon {

/// What a move to another volume asks of the system.
class CopySteps {
 public:
  virtual ~CopySteps() = default;

  /// Empty when something stands at this path, links not followed.
  virtual FileOutcome Look(const std::string& path) = 0;

  /// Copies content, times and permissions to a name that does not exist yet and flushes them to the disk. A copy that
  /// fails leaves nothing behind.
  virtual FileOutcome Copy(const std::string& from, const std::string& to) = 0;

  /// Gives the copy its name without replacing anything.
  virtual FileOutcome Publish(const std::string& temporary, const std::string& to) = 0;

  /// Makes the new name durable.
  virtual FileOutcome FlushFolder(const std::string& folder) = 0;

  /// Deletes the source, or takes a copy back.
  virtual FileOutcome Remove(const std::string& path) = 0;
};

/// Moves a file to another volume: copies it under a temporary name, publishes it, then deletes the source. On any
/// failure the source stays and the copy goes.
[[nodiscard]] FileOutcome MoveByCopying(CopySteps& steps, const std::string& from, const std::string& to,
                                        PathStyle style);

}  // namespace quillon
