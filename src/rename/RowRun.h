#pragma once

#include <functional>
#include <string>

#include "base/Progress.h"
#include "filelist/FileList.h"

namespace quillon {

enum class RunEnd {
  kComplete,
  kStopped,    ///< a row could not be applied
  kCancelled,  ///< by the progress
};

/// Edits the rename name of one row. Anything but kComplete ends the run.
using EditRow = std::function<RunEnd(int index)>;

/// Edits several rows in the list's order.
RunEnd RunOverRows(const FileList& list, Rows rows, Progress& progress, const EditRow& edit);

/// Applies a row's rename name to its file at once; false when that fails.
using ApplyRow = std::function<bool(int index)>;

/// What a run over rows came to.
struct RunOutcome {
  RunEnd end = RunEnd::kComplete;
  int leftAlone = 0;  ///< names that a rule would have made endless, and that stay as they were
  int failedRow = 0;  ///< of a stopped run, 1-based: its rename name is as it was
};

/// Says how many names a rule would have made endless, or longer than any name may be.
[[nodiscard]] std::string LeftAloneText(int count);

}  // namespace quillon
