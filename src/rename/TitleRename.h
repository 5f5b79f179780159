#pragma once

#include <vector>

#include "base/Progress.h"
#include "filelist/FileList.h"
#include "rename/ModifyName.h"
#include "rename/RegexReplace.h"
#include "rename/RowRun.h"
#include "settings/OptionValues.h"

namespace quillon {

struct TitleRules {
  bool skipUntitled = false;
  bool findInvalid = false;                     ///< fills TitleOutcome::invalid
  const OptionValues::Modify* rules = nullptr;  ///< modification rules for the titles; null for none
  Repetition repetition = Repetition::kPerRow;  ///< of these rules
};

struct TitleOutcome : RunOutcome {
  std::vector<int> untitled;  ///< rows that were skipped, 1-based
  std::vector<int> invalid;   ///< rows whose names no file may have, 1-based
};

/// Sets the rename names of several rows to their titles. With `apply`, which may be empty, each row is applied at
/// once; the first failure ends the run and restores that row's rename name.
TitleOutcome RenameToTitles(FileList& list, Rows rows, const TitleRules& titles, RegexEngine& regex,
                            const ApplyRow& apply, Progress& progress);

}  // namespace quillon
