#pragma once

#include <vector>

#include "app/Screen.h"

namespace quillon {

/// Takes edits of rename names back, does them again, and walks through the rows whose names are not applied yet.
class EditCommands {
 public:
  EditCommands(const Session& session, const Screen& screen) : session_(session), screen_(screen) {}

  void mnuEditUndo();
  void mnuEditRedo();

  /// Selects the next row whose rename name is not its file's name; after the last one follows the first.
  void mnuNextPending();

 private:
  void Show(const std::vector<int>& changed, const char* what);

  Session session_;
  Screen screen_;
};

}  // namespace quillon
