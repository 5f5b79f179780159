#pragma once

#include "base/Progress.h"
#include "filelist/FileList.h"
#include "rename/ModifyName.h"
#include "rename/RegexReplace.h"
#include "rename/RowRun.h"
#include "settings/OptionValues.h"

namespace quillon {

/// Passes the rename names of several rows through the modification rules. With `apply`, which may be empty, each row
/// is applied at once; the first failure ends the run and restores that row's rename name. When `progress` ends a run,
/// also within a row that takes long, the rows done so far stay edited and the others are unchanged.
RunOutcome ModifyRenameNames(FileList& list, Rows rows, const OptionValues::Modify& rules, Repetition repetition,
                             RegexEngine& regex, const ApplyRow& apply, Progress& progress);

}  // namespace quillon
