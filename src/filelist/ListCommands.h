#pragma once

#include "base/Ports.h"
#include "filelist/FileList.h"
#include "filelist/WindowPorts.h"
#include "settings/ApplyMode.h"
#include "settings/OptionValues.h"

namespace quillon {

/// The commands that change check marks and take rows out of the list. The files stay on disk.
class ListCommands {
 public:
  struct Ports {
    MessageBoxes& boxes;
    StatusPanels& panels;
    FilePanel& filePanel;
    PlayerControl& player;
  };

  ListCommands(FileList& list, const OptionValues& options, ApplyMode& mode, Ports ports);

  void mnuAllChk() { list_.CheckAll(); }
  void mnuChkRem() { list_.UncheckAll(); }
  void mnuTurnChk() { list_.InvertChecks(); }

  void mnuThisListDel();
  void mnuUnChkListRem();
  void mnuAllClear();

  /// Removes these rows, releases their files from the player and resets the panels; nothing happens when none matches.
  void RemoveRows(const std::function<bool(int index, const FileItem&)>& unwanted);

 private:
  void ResetPanels();

  FileList& list_;
  const OptionValues& options_;
  ApplyMode& mode_;
  Ports ports_;
};

}  // namespace quillon
