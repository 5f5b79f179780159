#include "app/ApplyCommands.h"

#include "base/Finally.h"
#include "filelist/FailureDetails.h"

namespace quillon {
namespace {

constexpr const char* kCaption = "ファイルに適応";

}  // namespace

ApplyCommands::ApplyCommands(const Session& session, RenameEngine& engine, FileReads& files, const Screen& screen)
    : session_(session), engine_(engine), files_(files), screen_(screen) {}

ApplyCode ApplyCommands::ApplyRenameName(int index) {
  return Apply(index, Failures::kAsOptionsSay).code;
}

RowOutcome ApplyCommands::Apply(int index, Failures failures) {
  RowOutcome row = engine_.Apply(index);
  ShowPlace(row);
  const bool told = failures == Failures::kAlwaysTold || !session_.options.update.skipFailedRows;
  if (row.Ok()) {
    Uncheck(index);
  } else if (told || row.code == ApplyCode::kUnexpected) {
    Report(row, false);
  }
  return row;
}

void ApplyCommands::ShowPlace(const RowOutcome& row) {
  const std::string location = session_.list.Row(row.index).Location();
  if (location != row.from && session_.list.SelectedIndex() == row.index) screen_.filePanel.ShowFileName(location);
}

void ApplyCommands::Uncheck(int index) {
  if (session_.options.update.uncheckAppliedRows && !session_.mode.automatic) session_.list.SetChecked(index, false);
}

std::string ApplyCommands::DetailsOf(const RowOutcome& row) const {
  const FileRow item = session_.list.Row(row.index);
  const std::string location = item.Location();
  if (row.code == ApplyCode::kInvalidCharacter) {
    return InvalidCharacterDetails(location, std::string(item.renameName), row.invalidCharacter);
  }
  const std::string to = row.error.number == 0 ? std::string() : AppliedPath(location, item.renameName, session_.style);
  return FailureDetails(files_, row.from, to, row.error, session_.style);
}

// Selects and shows the failed row, so that the user sees which row the box is about.
FailureAnswer ApplyCommands::Report(const RowOutcome& row, bool inBatch) {
  session_.list.SelectOnly(row.index);
  screen_.filePanel.ShowRow(row.index);
  screen_.window.ScrollToRow(row.index);
  const bool unexpected = row.code == ApplyCode::kUnexpected;
  std::string text = std::string(ApplyReason(row.code)) + "\r\nファイルに適応できませんでした";
  if (!row.error.fileAt.empty()) text += "\r\n\r\nファイルは現在ここにあります： " + row.error.fileAt;
  const FailureAnswer answer =
      screen_.boxes.ShowFailure({{kCaption, text, unexpected ? MessageIcon::kStop : MessageIcon::kExclamation},
                                 DetailsOf(row),
                                 inBatch && !unexpected});
  screen_.window.SetEnabled(true);
  screen_.window.FocusList();
  return answer;
}

BatchOutcome ApplyCommands::ApplyRenameBatch(Rows rows) {
  screen_.window.SetPointer(Pointer::kHourglass);
  screen_.window.SetEnabled(false);
  const Finally done([this] {
    screen_.window.SetPointer(Pointer::kNormal);
    screen_.window.SetEnabled(true);
  });
  Batch batch;
  Unwatched progress;
  BatchOutcome outcome = engine_.Apply(rows, progress, [&](const RowOutcome& row) { return FinishRow(row, batch); });
  if (!batch.abandoned) ShowSummary(outcome);
  return outcome;
}

// False when the batch is to end.
bool ApplyCommands::FinishRow(const RowOutcome& row, Batch& batch) {
  ShowPlace(row);
  if (row.Ok()) {
    Uncheck(row.index);
    return true;
  }
  if ((batch.showFailures && !session_.options.update.skipFailedRows) || row.code == ApplyCode::kUnexpected) {
    const FailureAnswer answer = Report(row, true);
    batch.showFailures = batch.showFailures && answer != FailureAnswer::kTellNoMore;
    batch.abandoned = answer == FailureAnswer::kStop;
  }
  if (session_.options.update.checkFailedRows) session_.list.SetChecked(row.index, true);
  return !batch.abandoned;
}

void ApplyCommands::ShowSummary(const BatchOutcome& outcome) {
  if (outcome.stopped) {
    if (outcome.applied > 0) {
      screen_.boxes.Show(
          {kCaption, AppliedLine(outcome.applied) + "\r\nエラーにより処理が中断されました", MessageIcon::kExclamation});
    }
  } else if (outcome.applied > 0 || outcome.skipped > 0) {
    screen_.boxes.Show({kCaption, AppliedLine(outcome.applied) + "\r\n" + SkippedLine(outcome.skipped),
                        outcome.skipped == 0 ? MessageIcon::kInformation : MessageIcon::kExclamation});
  }
}

void ApplyCommands::mnuThisUpdate() {
  const int index = session_.list.SelectedIndex();
  if (index == 0) return;
  if (Apply(index, Failures::kAlwaysTold).Ok()) {
    if (session_.options.update.uncheckAppliedRows) session_.list.SetChecked(index, false);
    screen_.boxes.Show({kCaption, "選択されたアイテムの適応が完了しました", MessageIcon::kInformation});
  } else if (session_.options.update.checkFailedRows) {
    session_.list.SetChecked(index, true);
  }
}

void ApplyCommands::mnuAllUpdate() {
  ConfirmedBatch(Rows::kAll, "全アイテムのリネーム名をファイルに適応します");
}

void ApplyCommands::mnuUpdate() {
  ConfirmedBatch(Rows::kChecked, "チェックアイテムのリネーム名をファイルに適応します");
}

void ApplyCommands::ConfirmedBatch(Rows rows, const char* question) {
  const bool confirmed =
      session_.options.system.suppressConfirmations ||
      screen_.boxes.Show({kCaption, std::string(question) + "\r\nこの操作は元に戻せません。実行しますか",
                          MessageIcon::kQuestion, MessageButtons::kYesNo});
  if (confirmed) ApplyRenameBatch(rows);
}

}  // namespace quillon
