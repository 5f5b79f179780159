#include "app/ListCommands.h"

#include <string>
#include <vector>

namespace quillon {

void ListCommands::mnuThisListDel() {
  const int selected = session_.list.SelectedIndex();
  RemoveRows([selected](int index, const FileItem&) { return index == selected; });
}

void ListCommands::mnuUnChkListRem() {
  RemoveRows([](int, const FileItem& row) { return !row.checked; });
}

void ListCommands::mnuAllClear() {
  if (!session_.options.system.suppressConfirmations &&
      !screen_.boxes.Show({"リストクリア", "現在の編集内容を破棄して、リストをクリアします", MessageIcon::kQuestion,
                           MessageButtons::kYesNo})) {
    return;
  }
  session_.player.Stop();
  session_.player.Choose("");
  session_.list.Clear();
  screen_.Reset(session_.list);
  RereadApplyMode(session_.mode, session_.options, screen_.boxes);
  screen_.status.SetModeText(ApplyModeText(session_.mode));
}

void ListCommands::RemoveRows(const std::function<bool(int index, const FileItem&)>& unwanted) {
  std::vector<std::string> removed;
  session_.list.RemoveWhere([&](int index, const FileItem& row) {
    if (!unwanted(index, row)) return false;
    removed.push_back(row.location);
    return true;
  });
  for (const std::string& location : removed) session_.player.FileRemoved(location);
  if (!removed.empty()) screen_.Reset(session_.list);
}

}  // namespace quillon
