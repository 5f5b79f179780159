#pragma once

#include "base/Progress.h"
#include "filelist/FileList.h"
#include "rename/RegexReplace.h"
#include "rename/RowRun.h"
#include "settings/OptionValues.h"

namespace quillon {

/// Passes the rename names of several rows through the modification rules. With `apply`, which may be empty, each row
/// is applied at once and the first failure ends the run, that row's rename name as it was. A run that `progress` ends,
/// also within a row that takes long, leaves the rows done so far edited and the others as they were.
RunOutcome ModifyRenameNames(FileList& list, Rows rows, const OptionValues::Modify& rules, RegexEngine& regex,
                             const ApplyRow& apply, Progress& progress);

}  // namespace quillon
