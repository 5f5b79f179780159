#pragma once

#include <chrono>
#include <functional>

#include "base/Ports.h"
#include "base/Throttle.h"
#include "filelist/FileList.h"
#include "filelist/WindowPorts.h"

namespace quillon {

enum class RowRunEnd {
  kComplete,
  kStopped,    ///< a row could not be applied
  kCancelled,  ///< by the user
};

/// Edits the rename name of one row. Anything but kComplete ends the run.
using EditRow = std::function<RowRunEnd(int index)>;

/// Edits all rows, or the checked ones, in the list's order.
RowRunEnd RunOverRows(const FileList& list, bool allItems, const EditRow& edit);

/// Edits a row that may take long. It is cancelled where `pending` says so.
using EditRowWaiting = std::function<RowRunEnd(int index, PendingMessages& pending)>;

/// The same with the progress shown, where the user may cancel the run: also before each row.
RowRunEnd RunOverRowsWaiting(const FileList& list, bool allItems, PendingMessages& pending, ProgressDisplay& progress,
                             std::chrono::milliseconds progressInterval, const EditRowWaiting& edit);

}  // namespace quillon
