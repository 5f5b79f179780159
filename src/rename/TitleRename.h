#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "filelist/FileList.h"
#include "rename/ModifyRenameNames.h"
#include "rename/RowRun.h"
#include "rename/basQuillon.h"
#include "settings/ApplyMode.h"
#include "settings/OptionValues.h"

namespace quillon {

/// Sets rename names to titles, for all rows or the checked ones. Rows without a title are skipped as the options say.
/// With `applyRules` the title passes through the modification rules first; the progress of that is shown, and the user
/// may cancel it, also within a row that takes long: the rows done so far stay. In auto-apply mode each row is applied
/// at once and the first failure ends the run, that row's rename name as it was. Titles that the rules left alone are
/// told once, at the end.
class TitleRename {
 public:
  TitleRename(FileList& list, const OptionValues& options, const ApplyMode& mode, RenameEngine& engine,
              ModifyPorts ports, std::chrono::milliseconds progressInterval = kProgressInterval);

  void RenameToTitles(bool allItems);

 private:
  void RenameRows(bool allItems);
  RowRunEnd ToTitle(int index, PendingMessages& pending);
  /// Nothing when the user has cancelled the run.
  std::optional<std::string> NewName(const FileItem& row, PendingMessages& pending);

  FileList& list_;
  const OptionValues& options_;
  const ApplyMode& mode_;
  RenameEngine& engine_;
  ModifyPorts ports_;
  std::chrono::milliseconds progressInterval_;
  int leftAlone_ = 0;  // of the running batch
};

}  // namespace quillon
