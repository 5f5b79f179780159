#pragma once

#include <functional>

#include "app/Screen.h"

namespace quillon {

/// The commands that change check marks and remove rows from the list. The files stay on disk.
class ListCommands {
 public:
  ListCommands(const Session& session, const Screen& screen) : session_(session), screen_(screen) {}

  void mnuAllChk() { session_.list.CheckAll(); }
  void mnuChkRem() { session_.list.UncheckAll(); }
  void mnuTurnChk() { session_.list.InvertChecks(); }

  void mnuThisListDel();
  void mnuUnChkListRem();
  void mnuAllClear();

  /// Removes these rows, releases their files from the player and resets the panels; nothing happens when none matches.
  void RemoveRows(const std::function<bool(int index, const FileRow&)>& unwanted);

 private:
  Session session_;
  Screen screen_;
};

}  // namespace quillon
