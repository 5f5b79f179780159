#pragma once

#include "base/Ports.h"
#include "base/Throttle.h"
#include "filelist/FileList.h"
#include "filelist/WindowPorts.h"
#include "rename/RegexReplace.h"
#include "rename/basQuillon.h"
#include "settings/ApplyMode.h"
#include "settings/OptionValues.h"

namespace quillon {

struct ModifyPorts {
  RegexEngine& regex;
  PendingMessages& pending;
  ProgressDisplay& progress;
  WindowState& window;
  MessageBoxes& boxes;
};

/// Says how many names a rule would have made endless, or longer than any name may be; nothing for 0.
void TellLeftAlone(int count, MessageBoxes& boxes);

struct ModifyOutcome {
  int leftAlone = 0;     ///< names that a rule would have made endless and that stay as they were
  bool stopped = false;  ///< auto-apply mode: a row could not be applied
  bool cancelled = false;
};

/// Passes the rename names of all rows, or of the checked ones, through the modification rules, showing the progress.
/// In auto-apply mode each row is applied at once and the first failure ends the run, that row's rename name as it was.
/// The user may cancel the run, also within a row that takes long: the rows done so far stay, the others are as they
/// were.
/// Names that were left alone are told once, at the end.
ModifyOutcome ModifyRenameNames(FileList& list, const OptionValues& options, const ApplyMode& mode,
                                RenameEngine& engine, const ModifyPorts& ports, bool allItems,
                                std::chrono::milliseconds progressInterval = kProgressInterval);

}  // namespace quillon
