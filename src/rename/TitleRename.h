#pragma once

#include "base/Ports.h"
#include "filelist/FileList.h"
#include "filelist/WindowPorts.h"
#include "rename/RegexReplace.h"
#include "rename/basQuillon.h"
#include "settings/ApplyMode.h"
#include "settings/OptionValues.h"

namespace quillon {

/// Sets rename names to titles, for all rows or the checked ones. Rows without a title are skipped as the options say;
/// with `Rename`/`RenameModify` the title passes through the modification rules first. In auto-apply mode each row is
/// applied at once and the first failure ends the run, that row's rename name as it was. Titles that the rules left
/// alone are told once, at the end.
class TitleRename {
 public:
  TitleRename(FileList& list, const OptionValues& options, const ApplyMode& mode, RenameEngine& engine,
              RegexEngine& regex, PendingMessages& pending, WindowState& window, MessageBoxes& boxes);

  void RenameToTitles(bool allItems);

 private:
  void RenameRows(bool allItems);
  bool RenameRow(int index);
  std::string NewName(const FileItem& row);

  FileList& list_;
  const OptionValues& options_;
  const ApplyMode& mode_;
  RenameEngine& engine_;
  RegexEngine& regex_;
  PendingMessages& pending_;
  WindowState& window_;
  MessageBoxes& boxes_;
  int leftAlone_ = 0;  // of the running batch
};

}  // namespace quillon
