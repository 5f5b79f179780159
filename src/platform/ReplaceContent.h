#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/PathStyle.h"

namespace quillon {

/// What replacing a file's whole content asks of the system.
class ReplaceSteps {
 public:
  virtual ~ReplaceSteps() = default;

  /// Empty when a regular file stands at this path that may be replaced; kNotFound when nothing does; any other error
  /// means that nothing is to be replaced there.
  virtual FileOutcome Look(const std::string& path) = 0;

  /// Makes a file of a name that does not exist yet (else kAlreadyExists), with these bytes and with the permissions of
  /// the file at `path`, if there is one; flushes it to the disk. On failure nothing is left behind.
  virtual FileOutcome Write(const std::string& temporary, std::string_view bytes, const std::string& path) = 0;

  /// Puts the new file in the place of the old one. Some systems fail half-way: then the old file is gone and the new
  /// one still has its temporary name.
  virtual FileOutcome Replace(const std::string& temporary, const std::string& path) = 0;

  /// Gives the new file its name where nothing stands.
  virtual FileOutcome Publish(const std::string& temporary, const std::string& path) = 0;

  /// Makes the new name durable.
  virtual FileOutcome FlushFolder(const std::string& folder) = 0;

  virtual FileOutcome Remove(const std::string& path) = 0;
};

/// The system's own.
[[nodiscard]] std::unique_ptr<ReplaceSteps> MakeReplaceSteps();

/// Writes a temporary file beside `path`, a full path without a link at its end, and puts it in the old file's place.
/// On failure the old content stays and the temporary file goes. Should the old file be lost while it is replaced, the
/// new one takes its place; where even that fails it stays under its temporary name (kStranded).
[[nodiscard]] FileOutcome ReplaceContent(ReplaceSteps& steps, const std::string& path, std::string_view bytes,
                                         PathStyle style);

}  // namespace quillon
