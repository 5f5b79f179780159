#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/PathStyle.h"

namespace quillon {

/// The system calls that replacing a file's whole content consists of.
class ReplaceSteps {
 public:
  virtual ~ReplaceSteps() = default;

  /// Success (empty) when a regular file exists at this path and may be replaced; kNotFound when nothing exists; any
  /// other error means that the path must not be replaced.
  virtual FileOutcome Look(const std::string& path) = 0;

  /// Creates a new file (kAlreadyExists if the name is taken) with these bytes and with the permissions of the file at
  /// `path`, if there is one, and flushes it to the disk. Leaves nothing behind on failure.
  virtual FileOutcome Write(const std::string& temporary, std::string_view bytes, const std::string& path) = 0;

  /// Replaces the old file with the new one. Some systems can fail half-way: then the old file is gone and the new one
  /// still has its temporary name.
  virtual FileOutcome Replace(const std::string& temporary, const std::string& path) = 0;

  /// Renames the new file to its final name, which must be free.
  virtual FileOutcome Publish(const std::string& temporary, const std::string& path) = 0;

  /// Makes the new name durable.
  virtual FileOutcome FlushFolder(const std::string& folder) = 0;

  virtual FileOutcome Remove(const std::string& path) = 0;
};

/// The implementation for this system.
[[nodiscard]] std::unique_ptr<ReplaceSteps> MakeReplaceSteps();

/// Writes a temporary file beside `path`, a full path whose last component is no link, and replaces the old file with
/// it. On failure the old content is kept and the temporary file is deleted. If the old file is lost while it is
/// replaced, the new file is renamed to `path`; if that fails, too, it keeps its temporary name (kStranded).
[[nodiscard]] FileOutcome ReplaceContent(ReplaceSteps& steps, const std::string& path, std::string_view bytes,
                                         PathStyle style);

}  // namespace quillon
