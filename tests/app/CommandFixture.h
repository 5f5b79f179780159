#pragma once

#include "app/Screen.h"
#include "filelist/FileList.h"
#include "settings/ApplyMode.h"
#include "settings/OptionValues.h"
#include "support/MemoryFileSystem.h"
#include "support/Recorders.h"

namespace quillon::test {

/// What commands work on, in memory, and recorders of what they show.
struct CommandFixture {
  MemoryFileSystem files;
  Recorders ports;
  FileList list;
  OptionValues options;
  ApplyMode mode;
  PathStyle style;
  SelectionStatus status{ports.panels};
  Session session{list, options, mode, ports.player, style};
  Screen screen{ports.boxes, ports.pending, ports.window, ports.filePanel, status};

  explicit CommandFixture(PathStyle pathStyle = PathStyle::kLinux)
      : files({pathStyle, pathStyle == PathStyle::kWindows}), list(pathStyle), style(pathStyle) {}
};

}  // namespace quillon::test
