#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/Progress.h"
#include "plan/RenameLog.h"
#include "platform/FileSystem.h"

namespace quillon {

/// Why a renamed file does not get its old name back.
enum class UndoObstacle {
  kGone,         ///< the file is at neither of its names
  kAnotherFile,  ///< another file has its new name
  kChanged,      ///< the file was written to since
  kRefused,      ///< the file system has refused; see UndoStep::error
};

struct UndoStep {
  std::string from;  ///< the new name of the rename that is taken back
  std::string to;    ///< its old name
  std::optional<UndoObstacle> obstacle = {};
  FileError error = {};

  bool operator==(const UndoStep&) const = default;
};

enum class UndoMode { kApply, kShow };

/// Takes logged renames and moves back, the newest first, and calls `done` for each that was taken back or cannot be.
/// Nothing is said of a file that has its old name already.
///
/// A file counts as the one that was renamed when its number, size and time are the same. The device is not compared,
/// because systems number devices anew when they start. A move to another volume makes a new file: that is known from
/// the log, or, where the move was killed before its copy was logged, by size and time on another device. A file that
/// this run itself has copied back is known, too.
///
/// With kShow, `changes` only answers as the disk would (PlannedChanges). `done` may end the run by returning false,
/// `progress` may cancel a copy, which ends it, too.
void Undo(const std::vector<LoggedRename>& renames, FileReads& files, FileChanges& changes, UndoMode mode,
          Progress& progress, const std::function<bool(const UndoStep&)>& done);

}  // namespace quillon
