#include "fileops/FileCommands.h"

#include "filelist/paths/basFileControl.h"

namespace quillon {
namespace {

constexpr const char* kDeleteCaption = "ファイル削除";
constexpr const char* kMoveCaption = "ファイル移動";

}  // namespace

int RecycleFile(FileReads& files, FileChanges& disk, const std::string& path, std::uintptr_t ownerWindow) {
  return files.IsFile(path) ? disk.Recycle(path, ownerWindow) : kRecycleNotDone;
}

FileCommands::FileCommands(FileList& list, OptionValues& options, ListCommands& rows, Ports ports,
                           std::uintptr_t ownerWindow, PathStyle style)
    : list_(list), options_(options), rows_(rows), ports_(ports), ownerWindow_(ownerWindow), style_(style) {}

void FileCommands::mnuThisDel() {
  const int selected = list_.SelectedIndex();
  if (selected == 0) return;
  const std::string path = list_.Row(selected).location;
  const bool gone = options_.list.delToTrashBox ? DeleteToRecycleBin(path) : DeleteForGood(path);
  if (gone) rows_.RemoveRows([selected](int index, const FileItem&) { return index == selected; });
}

// True when the row is to leave the list.
bool FileCommands::DeleteForGood(const std::string& path) {
  const bool ask = options_.list.delCompMsg == 1 && options_.system.msgbox == 0;
  if (ask && !ports_.boxes.Show({kDeleteCaption, path + "\r\n\r\nこのファイルを完全に削除してもよろしいですか",
                                 MessageIcon::kQuestion, MessageButtons::kYesNo})) {
    return false;
  }
  ports_.player.ReleaseFile(path);
  const FileOutcome error = ports_.disk.Remove(path);
  if (error) ReportDeletion(*error);
  return !error;
}

bool FileCommands::DeleteToRecycleBin(const std::string& path) {
  const bool ask = !ports_.disk.RecycleAsks() && options_.system.msgbox == 0;
  if (ask && !ports_.boxes.Show({kDeleteCaption, path + "\r\n\r\nこのファイルをごみ箱に移動してもよろしいですか",
                                 MessageIcon::kQuestion, MessageButtons::kYesNo})) {
    return false;
  }
  ports_.player.ReleaseFile(path);
  const int result = RecycleFile(ports_.files, ports_.disk, path, ownerWindow_);
  if (result == kRecycleNotDone) {
    ports_.boxes.Show({kDeleteCaption, "ファイルが削除できません", MessageIcon::kStop});
    return false;
  }
  // A success with the file still there: the user declined in the system's own dialog. Any failure that the system has
  // reported itself takes the row out of the list like a success.
  return result != 0 || !ports_.files.IsFile(path);
}

void FileCommands::ReportDeletion(const FileError& error) {
  if (error.number == file_error::kAccess) {
    ports_.boxes.Show({kDeleteCaption, "このファイルにアクセスできません\r\n削除時にエラーが発生しました",
                       MessageIcon::kExclamation});
    return;
  }
  ports_.boxes.Show({kDeleteCaption,
                     "削除時にエラーが発生しました\r\n" + std::to_string(error.number) + " : " + error.description,
                     MessageIcon::kStop});
}

std::optional<std::string> FileCommands::ChooseTarget() {
  const std::string chosen =
      ports_.folders.Choose("ファイルの移動先フォルダを選択してください", options_.system.movePath);
  if (chosen.empty()) return std::nullopt;
  options_.system.movePath = WithTrailingSeparator(chosen, style_);
  return options_.system.movePath;
}

bool FileCommands::MoveRow(int index, const std::string& folder) {
  const std::string from = list_.Row(index).location;
  const std::string to = folder + std::string(FileName(from, style_));
  ports_.player.ReleaseFile(from);
  if (const FileOutcome error = ports_.disk.Move(from, to)) {
    ReportMove(*error);
    return false;
  }
  if (options_.move.remainList == 1) {
    ports_.player.FileMoved(from, to);
    list_.SetLocation(index, to);
    if (list_.SelectedIndex() == index) ports_.filePanel.ShowFileName(to);
  }
  return true;
}

void FileCommands::ReportMove(const FileError& error) {
  const std::string general = "ファイルが移動できませんでした";
  switch (error.number) {
    case file_error::kAlreadyExists:
      ports_.boxes.Show({kMoveCaption, "移動先に同名のファイルがあります\r\n" + general, MessageIcon::kExclamation});
      break;
    case file_error::kAccess:
      ports_.boxes.Show({kMoveCaption, "移動先にアクセスできません\r\n" + general, MessageIcon::kExclamation});
      break;
    default: ports_.boxes.Show({kMoveCaption, general, MessageIcon::kStop});
  }
}

void FileCommands::DropMovedRows(const std::vector<bool>& moved) {
  if (options_.move.remainList == 1) return;
  rows_.RemoveRows([&](int index, const FileItem&) { return moved[static_cast<std::size_t>(index)]; });
}

void FileCommands::mnuThisMove() {
  const int selected = list_.SelectedIndex();
  if (selected == 0) return;
  const std::optional<std::string> folder = ChooseTarget();
  if (!folder || !MoveRow(selected, *folder)) return;
  std::vector<bool> moved(static_cast<std::size_t>(list_.Count()) + 1);
  moved[static_cast<std::size_t>(selected)] = true;
  DropMovedRows(moved);
  ports_.boxes.Show({kMoveCaption, *folder + "\r\n\r\nファイルの移動が完了しました", MessageIcon::kInformation});
}

void FileCommands::mnuAllMove() {
  MoveBatch(true);
}

void FileCommands::mnuMove() {
  MoveBatch(false);
}

void FileCommands::MoveBatch(bool allItems) {
  if (allItems ? list_.Count() == 0 : list_.CheckedCount() == 0) return;
  const std::optional<std::string> folder = ChooseTarget();
  if (!folder) return;
  ports_.window.SetPointer(Pointer::kHourglass);
  ports_.window.SetEnabled(false);
  std::vector<bool> moved(static_cast<std::size_t>(list_.Count()) + 1);
  int count = 0;
  for (int index = 1; index <= list_.Count(); ++index) {
    if (!allItems && !list_.Row(index).checked) continue;
    if (!MoveRow(index, *folder)) continue;
    moved[static_cast<std::size_t>(index)] = true;
    ++count;
  }
  DropMovedRows(moved);
  ports_.window.SetPointer(Pointer::kNormal);
  ports_.window.SetEnabled(true);
  ports_.boxes.Show(
      {kMoveCaption, std::to_string(count) + " 個のファイルの移動が完了しました", MessageIcon::kInformation});
}

}  // namespace quillon
