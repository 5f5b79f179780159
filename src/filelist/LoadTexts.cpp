#include "filelist/LoadTexts.h"

namespace quillon {

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
