#include "app/FileCommands.h"

#include "base/Finally.h"
#include "filelist/FailureDetails.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

constexpr const char* kDeleteCaption = "ファイル削除";
constexpr const char* kMoveCaption = "ファイル移動";

}  // namespace

FileCommands::FileCommands(const Session& session, ListCommands& rows, const Disk& disk, const MoveWindows& windows,
                           const Screen& screen, MoveTimes moveTimes)
    : session_(session),
      rows_(rows),
      disk_(disk),
      windows_(windows),
      screen_(screen),
      mover_(session.list, disk.files, disk.changes, session.player, session.style),
      moveTimes_(moveTimes) {}

void FileCommands::mnuThisDel() {
  const int selected = session_.list.SelectedIndex();
  if (selected == 0) return;
  const std::string path = session_.list.Row(selected).Location();
  const bool gone =
      session_.options.list.deleteTo == DeleteTo::kRecycleBin ? DeleteToRecycleBin(path) : DeleteForGood(path);
  if (gone) rows_.RemoveRows([selected](int index, const FileRow&) { return index == selected; });
}

// Returns true when the row must be removed from the list.
bool FileCommands::DeleteForGood(const std::string& path) {
  const bool ask = session_.options.list.confirmDeletion && !session_.options.system.suppressConfirmations;
  if (ask && !screen_.boxes.Show({kDeleteCaption, path + "\r\n\r\nこのファイルを完全に削除してもよろしいですか",
                                  MessageIcon::kQuestion, MessageButtons::kYesNo})) {
    return false;
  }
  session_.player.ReleaseFile(path);
  const FileOutcome error = disk_.changes.Remove(path);
  if (error) ReportDeletion(*error);
  return !error;
}

bool FileCommands::DeleteToRecycleBin(const std::string& path) {
  const bool ask = !disk_.changes.RecycleAsks() && session_.options.list.confirmDeletion &&
                   !session_.options.system.suppressConfirmations;
  if (ask && !screen_.boxes.Show({kDeleteCaption, path + "\r\n\r\nこのファイルをごみ箱に移動してもよろしいですか",
                                  MessageIcon::kQuestion, MessageButtons::kYesNo})) {
    return false;
  }
  session_.player.ReleaseFile(path);
  const int result = RecycleFile(disk_.files, disk_.changes, path, disk_.ownerWindow);
  if (result == kRecycleNotDone) {
    screen_.boxes.Show({kDeleteCaption, "ファイルが削除できません", MessageIcon::kStop});
    return false;
  }
  // When the system reports success and the file is still there, the user declined in the system's own dialog: the row
  // stays. A failure that the system has already shown removes the row like a success.
  return result != 0 || !disk_.files.IsFile(path);
}

void FileCommands::ReportDeletion(const FileError& error) {
  const std::string general = "削除時にエラーが発生しました";
  const bool expected = error.number == file_error::kAccess;
  const std::string reason = DeleteReason(error);
  screen_.boxes.Show({kDeleteCaption, expected ? reason + "\r\n" + general : general + "\r\n" + reason,
                      expected ? MessageIcon::kExclamation : MessageIcon::kStop});
}

std::optional<std::string> FileCommands::ChooseTarget() {
  const std::string chosen =
      windows_.folders.Choose("ファイルの移動先フォルダを選択してください", session_.options.system.moveFolder, "移動");
  if (chosen.empty()) return std::nullopt;
  session_.options.system.moveFolder = WithTrailingSeparator(chosen, session_.style);
  disk_.changes.RemoveLeftovers(session_.options.system.moveFolder);
  return session_.options.system.moveFolder;
}

bool FileCommands::MoveRow(int index, const std::string& folder, MoveProgress& progress, Batch& batch) {
  batch.cancelled = !progress.Next(session_.list.Row(index));
  if (batch.cancelled) return false;
  const std::string from = session_.list.Row(index).Location();
  const std::string to = mover_.Target(index, folder);
  const MoveOutcome outcome = mover_.Move(index, folder, &progress);
  batch.cancelled = !outcome && outcome.Failure().number == file_error::kCancelled;
  if (batch.cancelled) return false;
  if (outcome) {
    batch.notKept.Add(*outcome);
    if (session_.options.move.keepMovedRows) mover_.Follow(index, to);
  }
  const bool follows =
      outcome ? session_.options.move.keepMovedRows : outcome.Failure().number == file_error::kStranded;
  if (follows && session_.list.SelectedIndex() == index)
    screen_.filePanel.ShowFileName(session_.list.Row(index).Location());
  if (!outcome && batch.showFailures) ReportMove(index, from, to, outcome.Failure(), batch);
  return outcome.Ok();
}

void FileCommands::ReportMove(int index, const std::string& from, const std::string& to, const FileError& error,
                              Batch& batch) {
  if (batch.several) ShowFailedRow(index, batch);
  const std::string reason = MoveReason(error);
  const std::string leftAt = LeftAtText(error);
  const FailureAnswer answer =
      screen_.boxes.ShowFailure({{kMoveCaption,
                                  (reason.empty() ? "" : reason + "\r\n") + "ファイルが移動できませんでした" +
                                      (leftAt.empty() ? "" : "\r\n\r\n" + leftAt),
                                  reason.empty() ? MessageIcon::kStop : MessageIcon::kExclamation},
                                 FailureDetails(disk_.files, from, to, error, session_.style),
                                 batch.several});
  batch.showFailures = answer != FailureAnswer::kTellNoMore;
  batch.abandoned = answer == FailureAnswer::kStop;
}

// Selects and shows the row that failed, so that the user sees which row the box is about.
void FileCommands::ShowFailedRow(int index, Batch& batch) {
  if (!batch.selected) {
    batch.selected.emplace(static_cast<std::size_t>(session_.list.Count()) + 1);
    for (int row = 1; row <= session_.list.Count(); ++row) {
      (*batch.selected)[static_cast<std::size_t>(row)] = session_.list.Row(row).selected;
    }
  }
  session_.list.SelectOnly(index);
  screen_.filePanel.ShowRow(index);
  screen_.window.ScrollToRow(index);
}

void FileCommands::SelectAgain(const Batch& batch) {
  if (!batch.selected) return;
  for (int row = 1; row <= session_.list.Count(); ++row) {
    session_.list.SetSelected(row, (*batch.selected)[static_cast<std::size_t>(row)]);
  }
  if (const int selected = session_.list.SelectedIndex(); selected != 0) {
    screen_.filePanel.ShowRow(selected);
  } else {
    screen_.filePanel.Reset();
    session_.player.Choose("");
  }
}

void FileCommands::ReportNotKept(const NotKept& notKept) {
  if (notKept.Any()) screen_.boxes.Show({kMoveCaption, NotKeptText(notKept), MessageIcon::kExclamation});
}

void FileCommands::DropMovedRows(const std::vector<bool>& moved) {
  if (session_.options.move.keepMovedRows) return;
  rows_.RemoveRows([&](int index, const FileRow&) { return moved[static_cast<std::size_t>(index)]; });
}

void FileCommands::mnuThisMove() {
  const int selected = session_.list.SelectedIndex();
  if (selected == 0) return;
  const std::optional<std::string> folder = ChooseTarget();
  if (!folder) return;
  Batch batch;
  if (MoveOne(selected, *folder, batch)) {
    std::vector<bool> moved(static_cast<std::size_t>(session_.list.Count()) + 1);
    moved[static_cast<std::size_t>(selected)] = true;
    DropMovedRows(moved);
    screen_.boxes.Show({kMoveCaption, *folder + "\r\n\r\nファイルの移動が完了しました", MessageIcon::kInformation});
    ReportNotKept(batch.notKept);
  } else if (batch.cancelled) {
    screen_.boxes.Show({kMoveCaption, "移動を中止しました。ファイルは元のままです", MessageIcon::kInformation});
  }
}

bool FileCommands::MoveOne(int index, const std::string& folder, Batch& batch) {
  MoveProgress progress(windows_.progress, screen_.window, MoveProgress::SizeOf(session_.list.Row(index)), moveTimes_);
  return MoveRow(index, folder, progress, batch);
}

void FileCommands::mnuAllMove() {
  MoveBatch(Rows::kAll);
}

void FileCommands::mnuMove() {
  MoveBatch(Rows::kChecked);
}

void FileCommands::MoveBatch(Rows rows) {
  if (session_.list.CountOf(rows) == 0) return;
  const std::optional<std::string> folder = ChooseTarget();
  if (!folder) return;
  Batch batch;
  batch.several = true;
  const int count = MoveRows(rows, *folder, batch);
  if (batch.abandoned) return;
  const std::string rest = batch.cancelled ? "\r\n移動を中止しました。残りのファイルは元のままです" : "";
  screen_.boxes.Show(
      {kMoveCaption, std::to_string(count) + " 個のファイルの移動が完了しました" + rest, MessageIcon::kInformation});
  ReportNotKept(batch.notKept);
}

std::uint64_t FileCommands::SizeOfRows(Rows rows) const {
  std::uint64_t size = 0;
  for (int index = 1; index <= session_.list.Count(); ++index) {
    if (session_.list.IsIn(rows, index)) size += MoveProgress::SizeOf(session_.list.Row(index));
  }
  return size;
}

// Returns the number of files moved.
int FileCommands::MoveRows(Rows rows, const std::string& folder, Batch& batch) {
  screen_.window.SetPointer(Pointer::kHourglass);
  screen_.window.SetEnabled(false);
  const Finally enabled([this] {
    screen_.window.SetPointer(Pointer::kNormal);
    screen_.window.SetEnabled(true);
  });
  std::vector<bool> moved(static_cast<std::size_t>(session_.list.Count()) + 1);
  const Finally dropping([&] {  // moved rows leave the list, however the batch ends
    SelectAgain(batch);
    DropMovedRows(moved);
  });
  MoveProgress progress(windows_.progress, screen_.window, SizeOfRows(rows), moveTimes_);
  int count = 0;
  for (int index = 1; index <= session_.list.Count() && !batch.abandoned && !batch.cancelled; ++index) {
    if (!session_.list.IsIn(rows, index)) continue;
    if (!MoveRow(index, folder, progress, batch)) continue;
    moved[static_cast<std::size_t>(index)] = true;
    ++count;
  }
  return count;
}

}  // namespace quillon
