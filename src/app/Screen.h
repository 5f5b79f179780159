#pragma once

#include "base/Ports.h"
#include "filelist/FileList.h"
#include "filelist/SelectionStatus.h"
#include "filelist/WindowPorts.h"
#include "settings/ApplyMode.h"
#include "settings/OptionValues.h"

namespace quillon {

/// What the commands work on.
struct Session {
  FileList& list;
  OptionValues& options;
  ApplyMode& mode;
  PlayerControl& player;
  PathStyle style = SystemPathStyle();
};

/// Where the commands show their results.
struct Screen {
  MessageBoxes& boxes;
  PendingMessages& pending;
  WindowState& window;
  FilePanel& filePanel;
  SelectionStatus& status;

  /// Deselects all rows, clears the file panel and shows the player as idle.
  void Reset(FileList& list) const {
    list.SelectNone();
    filePanel.Reset();
    status.ShowPlayerIdle();
  }
};

}  // namespace quillon
