#include "dialogs/ListedFolders.h"

#include <string_view>
#include <unordered_set>

#include "platform/Shell.h"

namespace quillon {

std::vector<std::string> ListedFolders(const FileList& list) {
  std::vector<std::string> folders;
  std::unordered_set<std::string_view> seen;
  for (int i = 1; i <= list.Count(); ++i) {
    const std::string_view folder = list.Row(i).folder;
    if (seen.insert(folder).second) folders.emplace_back(folder);
  }
  return folders;
}

void TellOfOpening(const std::string& folder, int answer, MessageBoxes& boxes) {
  if (answer > kShellMostFailures) return;
  boxes.Show({"フォルダ一覧", "フォルダを開けませんでした\r\n" + folder, MessageIcon::kExclamation});
}

}  // namespace quillon
