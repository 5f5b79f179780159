#include "filelist/ListCommands.h"

#include <string>
#include <vector>

namespace quillon {

ListCommands::ListCommands(FileList& list, const OptionValues& options, ApplyMode& mode, Ports ports)
    : list_(list), options_(options), mode_(mode), ports_(ports) {}

void ListCommands::mnuThisListDel() {
  const int selected = list_.SelectedIndex();
  RemoveRows([selected](int index, const FileItem&) { return index == selected; });
}

void ListCommands::mnuUnChkListRem() {
  RemoveRows([](int, const FileItem& row) { return !row.checked; });
}

void ListCommands::mnuAllClear() {
  if (!options_.system.suppressConfirmations &&
      !ports_.boxes.Show({"リストクリア", "現在の編集内容を破棄して、リストをクリアします", MessageIcon::kQuestion,
                          MessageButtons::kYesNo})) {
    return;
  }
  ports_.player.Stop();
  ports_.player.Choose("");
  list_.Clear();
  ResetPanels();
  RereadApplyMode(mode_, options_, ports_.boxes);
  ports_.panels.SetModeText(ApplyModeText(mode_));
}

void ListCommands::RemoveRows(const std::function<bool(int index, const FileItem&)>& unwanted) {
  std::vector<std::string> removed;
  list_.RemoveWhere([&](int index, const FileItem& row) {
    if (!unwanted(index, row)) return false;
    removed.push_back(row.location);
    return true;
  });
  for (const std::string& location : removed) ports_.player.FileRemoved(location);
  if (!removed.empty()) ResetPanels();
}

void ListCommands::ResetPanels() {
  list_.SelectNone();
  ports_.filePanel.Reset();
  ports_.panels.SetPlayerText(kPlayerIdleText);
}

}  // namespace quillon
