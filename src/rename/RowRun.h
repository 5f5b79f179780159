#pragma once

#include <functional>
#include <string>

#include "base/Progress.h"
#include "filelist/FileList.h"

namespace quillon {

enum class RunEnd {
  kComplete,
  kStopped,    ///< a row could not be applied
  kCancelled,  ///< `progress` ended the run
};

/// Edits the rename name of one row. Anything but kComplete ends the run.
using EditRow = std::function<RunEnd(int index)>;

/// Edits several rows in the list's order.
RunEnd RunOverRows(const FileList& list, Rows rows, Progress& progress, const EditRow& edit);

/// Applies a row's rename name to its file at once; false when that fails.
using ApplyRow = std::function<bool(int index)>;

/// The result of a run over rows.
struct RunOutcome {
  RunEnd end = RunEnd::kComplete;
  int changed = 0;    ///< rows whose name is not the same as before
  int leftAlone = 0;  ///< unchanged names; see ModifyResult::leftAlone
  int failedRow = 0;  ///< of a stopped run, 1-based; its rename name is unchanged
};

/// Ends the edit of a row: applies it, if `apply` is not empty, and counts it if it changed. When applying fails, the
/// row gets its name from `before` back, and the run is stopped there.
RunEnd ApplyOrRestore(FileList& list, int index, const std::string& before, const ApplyRow& apply, RunOutcome& outcome);

/// The message about this many names that stay unchanged: a rule would never end, or makes them longer than any name
/// may be.
[[nodiscard]] std::string LeftAloneText(int count);

}  // namespace quillon
