#include "filelist/LoadTexts.h"

#include <utility>

#include "base/Text.h"

namespace quillon {

std::vector<std::string> NothingFoundFacts(const std::string& filter, const FoundFiles& found) {
  std::vector<std::string> facts = {"検索した拡張子： " + (filter.empty() ? "すべて" : filter)};
  const auto add = [&facts](const char* what, std::size_t count) {
    if (count > 0) facts.push_back(std::string(what) + "： " + FormatThousands(count) + " 個");
  };
  add("ほかの拡張子のファイル", found.otherFiles);
  add("検索しなかったサブフォルダ", found.unsearchedFolders);
  add("ごみ箱の中のファイル", found.inRecycleBin);
  return facts;
}

QuestionMessage NothingFoundQuestion(const std::string& folder, const std::string& filter, const FoundFiles& found) {
  std::string details = "フォルダ： " + folder;
  for (const std::string& fact : NothingFoundFacts(filter, found)) details += "\r\n" + fact;
  return {.message = {kLoadCaption, std::string(kNothingFoundText) + "\r\n別のフォルダを参照しますか",
                      MessageIcon::kQuestion, MessageButtons::kYesNo},
          .details = std::move(details),
          .further = found.unsearchedFolders > 0 ? "サブフォルダも検索する(&S)" : ""};
}

std::string FolderListedText(const std::string& folder) {
  return folder + "\r\n\r\n既にこのフォルダは読み込まれています";
}

std::string FilesListedText(std::size_t count) {
  return count == 1 ? "既にこのファイルは読み込まれています"
                    : std::to_string(count) + " 個のファイルは既に読み込まれています";
}

std::string LoadFailureText(const FileError& error) {
  if (error.number == file_error::kUnreachable) {
    return "指定されたパスにアクセスできません。メディアが挿入されているか確認してください\r\n"
           "ファイルを読み込めませんでした";
  }
  return "検索中にエラーが発生しました\r\nファイルの読み込みを中断しました (" + std::to_string(error.number) + ")";
}

}  // namespace quillon
