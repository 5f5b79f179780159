#include "app/ListCommands.h"

#include <string>
#include <vector>

namespace quillon {

void ListCommands::mnuThisListDel() {
  const int selected = session_.list.SelectedIndex();
  RemoveRows([selected](int index, const FileRow&) { return index == selected; });
}

void ListCommands::mnuUnChkListRem() {
  RemoveRows([](int, const FileRow& row) { return !row.checked; });
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

void ListCommands::RemoveRows(const std::function<bool(int index, const FileRow&)>& unwanted) {
  std::vector<std::string> removed;
  session_.list.RemoveWhere([&](int index, const FileRow& row) {
    if (!unwanted(index, row)) return false;
    removed.push_back(row.Location());
    return true;
  });
  for (const std::string& location : removed) session_.player.FileRemoved(location);
  if (!removed.empty()) screen_.Reset(session_.list);
}

}  // namespace quillon
