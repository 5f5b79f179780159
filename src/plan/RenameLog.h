#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Result.h"
#include "platform/FileSystem.h"

/// The log of renames and moves, from which they can be taken back: one JSON object per line.
///
/// A rename's line is written before the rename, because the program may be killed between the two: {"old", "new",
/// "device", "file", "size", "mtime"}, with the file's identity. A second line with the same paths follows where more
/// is to be said: {"old", "new", "failed"}, with the error's number, when the rename has failed; the file's new
/// identity and "copied": true, when a move to another volume has copied it.
namespace quillon {

struct LoggedRename {
  std::string from;
  std::string to;
  FileIdentity file;
  std::optional<FileIdentity> copy = {};  ///< the file that a move to another volume has made
  bool failed = false;

  bool operator==(const LoggedRename&) const = default;
};

/// Each line ends with a line feed.
[[nodiscard]] std::string RenameLine(const std::string& from, const std::string& to, const FileIdentity& file);
[[nodiscard]] std::string CopiedLine(const std::string& from, const std::string& to, const FileIdentity& copy);
[[nodiscard]] std::string FailedLine(const std::string& from, const std::string& to, int error);

struct RenameLog {
  std::vector<LoggedRename> renames;  ///< in the order in which they were made
  bool torn = false;                  ///< the last line has no end and is passed over: its rename was never begun
};

/// Reads a log. An error is the 1-based number of the first line that is none of a log.
[[nodiscard]] Result<RenameLog, std::size_t> ReadRenameLog(std::string_view text);

}  // namespace quillon
