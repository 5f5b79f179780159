#include "fileops/FileCommands.h"

#include "base/Finally.h"
#include "filelist/FailureDetails.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

constexpr const char* kDeleteCaption = "ファイル削除";
constexpr const char* kMoveCaption = "ファイル移動";

}  // namespace

FileCommands::FileCommands(FileList& list, OptionValues& options, ListCommands& rows, Ports ports,
                           std::uintptr_t ownerWindow, PathStyle style, MoveTimes moveTimes)
    : list_(list),
      options_(options),
      rows_(rows),
      ports_(ports),
      mover_(list, ports.files, ports.disk, ports.player, style),
      ownerWindow_(ownerWindow),
      style_(style),
      moveTimes_(moveTimes) {}

void FileCommands::mnuThisDel() {
  const int selected = list_.SelectedIndex();
  if (selected == 0) return;
  const std::string path = list_.Row(selected).location;
  const bool gone = options_.list.deleteTo == DeleteTo::kRecycleBin ? DeleteToRecycleBin(path) : DeleteForGood(path);
  if (gone) rows_.RemoveRows([selected](int index, const FileItem&) { return index == selected; });
}

// True when the row is to leave the list.
bool FileCommands::DeleteForGood(const std::string& path) {
  const bool ask = options_.list.confirmDeletion && !options_.system.suppressConfirmations;
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
  const bool ask =
      !ports_.disk.RecycleAsks() && options_.list.confirmDeletion && !options_.system.suppressConfirmations;
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
  const std::string general = "削除時にエラーが発生しました";
  const bool expected = error.number == file_error::kAccess;
  const std::string reason = DeleteReason(error);
  ports_.boxes.Show({kDeleteCaption, expected ? reason + "\r\n" + general : general + "\r\n" + reason,
                     expected ? MessageIcon::kExclamation : MessageIcon::kStop});
}

std::optional<std::string> FileCommands::ChooseTarget() {
  const std::string chosen =
      ports_.folders.Choose("ファイルの移動先フォルダを選択してください", options_.system.moveFolder, "移動");
  if (chosen.empty()) return std::nullopt;
  options_.system.moveFolder = WithTrailingSeparator(chosen, style_);
  ports_.disk.RemoveLeftovers(options_.system.moveFolder);
  return options_.system.moveFolder;
}

bool FileCommands::MoveRow(int index, const std::string& folder, MoveProgress& progress, Batch& batch) {
  batch.cancelled = !progress.Next(list_.Row(index));
  if (batch.cancelled) return false;
  const std::string from = list_.Row(index).location;
  const std::string to = mover_.Target(index, folder);
  const MoveOutcome outcome = mover_.Move(index, folder, &progress);
  batch.cancelled = !outcome && outcome.Failure().number == file_error::kCancelled;
  if (batch.cancelled) return false;
  if (outcome) {
    batch.notKept.Add(*outcome);
    if (options_.move.keepMovedRows) mover_.Follow(index, to);
  }
  const bool follows = outcome ? options_.move.keepMovedRows : outcome.Failure().number == file_error::kStranded;
  if (follows && list_.SelectedIndex() == index) ports_.filePanel.ShowFileName(list_.Row(index).location);
  if (!outcome && batch.tells) ReportMove(index, from, to, outcome.Failure(), batch);
  return outcome.Ok();
}

void FileCommands::ReportMove(int index, const std::string& from, const std::string& to, const FileError& error,
                              Batch& batch) {
  if (batch.several) ShowFailedRow(index, batch);
  const std::string reason = MoveReason(error);
  const std::string leftAt = LeftAtText(error);
  const FailureAnswer answer =
      ports_.boxes.ShowFailure({{kMoveCaption,
                                 (reason.empty() ? "" : reason + "\r\n") + "ファイルが移動できませんでした" +
                                     (leftAt.empty() ? "" : "\r\n\r\n" + leftAt),
                                 reason.empty() ? MessageIcon::kStop : MessageIcon::kExclamation},
                                FailureDetails(ports_.files, from, to, error, style_),
                                batch.several});
  batch.tells = answer != FailureAnswer::kTellNoMore;
  batch.abandoned = answer == FailureAnswer::kStop;
}

// The box stands beside the row that it is about.
void FileCommands::ShowFailedRow(int index, Batch& batch) {
  if (!batch.selected) {
    batch.selected.emplace(static_cast<std::size_t>(list_.Count()) + 1);
    for (int row = 1; row <= list_.Count(); ++row) {
      (*batch.selected)[static_cast<std::size_t>(row)] = list_.Row(row).selected;
    }
  }
  list_.SelectOnly(index);
  ports_.filePanel.ShowRow(index);
  ports_.window.ScrollToRow(index);
}

void FileCommands::SelectAgain(const Batch& batch) {
  if (!batch.selected) return;
  for (int row = 1; row <= list_.Count(); ++row) {
    list_.SetSelected(row, (*batch.selected)[static_cast<std::size_t>(row)]);
  }
  if (const int selected = list_.SelectedIndex(); selected != 0) {
    ports_.filePanel.ShowRow(selected);
  } else {
    ports_.filePanel.Reset();
    ports_.player.Choose("");
  }
}

void FileCommands::ReportNotKept(const NotKept& notKept) {
  if (notKept.Any()) ports_.boxes.Show({kMoveCaption, NotKeptText(notKept), MessageIcon::kExclamation});
}

void FileCommands::DropMovedRows(const std::vector<bool>& moved) {
  if (options_.move.keepMovedRows) return;
  rows_.RemoveRows([&](int index, const FileItem&) { return moved[static_cast<std::size_t>(index)]; });
}

void FileCommands::mnuThisMove() {
  const int selected = list_.SelectedIndex();
  if (selected == 0) return;
  const std::optional<std::string> folder = ChooseTarget();
  if (!folder) return;
  Batch batch;
  if (MoveOne(selected, *folder, batch)) {
    std::vector<bool> moved(static_cast<std::size_t>(list_.Count()) + 1);
    moved[static_cast<std::size_t>(selected)] = true;
    DropMovedRows(moved);
    ports_.boxes.Show({kMoveCaption, *folder + "\r\n\r\nファイルの移動が完了しました", MessageIcon::kInformation});
    ReportNotKept(batch.notKept);
  } else if (batch.cancelled) {
    ports_.boxes.Show({kMoveCaption, "移動を中止しました。ファイルは元のままです", MessageIcon::kInformation});
  }
}

bool FileCommands::MoveOne(int index, const std::string& folder, Batch& batch) {
  MoveProgress progress(ports_.progress, ports_.window, MoveProgress::SizeOf(list_.Row(index)), moveTimes_);
  return MoveRow(index, folder, progress, batch);
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
  Batch batch;
  batch.several = true;
  const int count = MoveRows(allItems, *folder, batch);
  if (batch.abandoned) return;
  const std::string rest = batch.cancelled ? "\r\n移動を中止しました。残りのファイルは元のままです" : "";
  ports_.boxes.Show(
      {kMoveCaption, std::to_string(count) + " 個のファイルの移動が完了しました" + rest, MessageIcon::kInformation});
  ReportNotKept(batch.notKept);
}

std::uint64_t FileCommands::SizeOfRows(bool allItems) const {
  std::uint64_t size = 0;
  for (int index = 1; index <= list_.Count(); ++index) {
    if (allItems || list_.Row(index).checked) size += MoveProgress::SizeOf(list_.Row(index));
  }
  return size;
}

// How many rows' files were moved.
int FileCommands::MoveRows(bool allItems, const std::string& folder, Batch& batch) {
  ports_.window.SetPointer(Pointer::kHourglass);
  ports_.window.SetEnabled(false);
  const Finally enabled([this] {
    ports_.window.SetPointer(Pointer::kNormal);
    ports_.window.SetEnabled(true);
  });
  std::vector<bool> moved(static_cast<std::size_t>(list_.Count()) + 1);
  const Finally dropping([&] {  // what was moved leaves, whatever ends the batch
    SelectAgain(batch);
    DropMovedRows(moved);
  });
  MoveProgress progress(ports_.progress, ports_.window, SizeOfRows(allItems), moveTimes_);
  int count = 0;
  for (int index = 1; index <= list_.Count() && !batch.abandoned && !batch.cancelled; ++index) {
    if (!allItems && !list_.Row(index).checked) continue;
    if (!MoveRow(index, folder, progress, batch)) continue;
    moved[static_cast<std::size_t>(index)] = true;
    ++count;
  }
  return count;
}

}  // namespace quillon
