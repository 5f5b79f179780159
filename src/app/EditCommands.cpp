#include "app/EditCommands.h"

#include <string>

#include "base/Text.h"

namespace quillon {

void EditCommands::mnuEditUndo() {
  Show(session_.list.UndoEdits(), " 個の編集を取り消しました");
}

void EditCommands::mnuEditRedo() {
  Show(session_.list.RedoEdits(), " 個の編集をやり直しました");
}

// A single row is selected, so that the user sees what has changed. With several, the keyboard's current row stays
// where it is.
void EditCommands::Show(const std::vector<int>& changed, const char* what) {
  if (changed.empty()) return;
  if (changed.size() == 1) {
    session_.list.SelectOnly(changed.front());
    screen_.filePanel.ShowRow(changed.front());
  }
  screen_.status.ShowResult(FormatThousands(changed.size()) + what);
}

void EditCommands::mnuNextPending() {
  const int row = session_.list.NextPending(session_.list.SelectedIndex());
  if (row == 0) return;
  session_.list.SelectOnly(row);
  screen_.filePanel.ShowRow(row);
  screen_.window.FocusList();
}

}  // namespace quillon
