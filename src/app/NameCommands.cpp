#include "app/NameCommands.h"

#include <string>

#include "base/Finally.h"
#include "base/Text.h"
#include "rename/ModifyRenameNames.h"
#include "rename/TitleRename.h"

namespace quillon {
namespace {

constexpr const char* kEditingHeadline = "リネーム名を編集中です...\r\nしばらくお待ちください";
constexpr const char* kEditingLine = "  ファイル名を編集中...";

}  // namespace

NameCommands::NameCommands(const Session& session, ApplyCommands& applying, RegexEngine& regex,
                           ProgressDisplay& waiting, const Screen& screen, std::chrono::milliseconds progressInterval)
    : session_(session),
      applying_(applying),
      regex_(regex),
      waiting_(waiting),
      screen_(screen),
      progressInterval_(progressInterval) {}

ApplyRow NameCommands::ApplyAtOnce() {
  if (!session_.mode.automatic) return {};
  return [this](int index) { return applying_.ApplyRenameName(index) == ApplyCode::kApplied; };
}

ShownProgress NameCommands::Shown() const {
  return {screen_.pending, waiting_, {.showsItem = true}, [this] { return waiting_.Cancelled(); }, progressInterval_};
}

RunOutcome NameCommands::ModifyRows(Rows rows, const OptionValues::Modify& rules) {
  RunOutcome outcome;
  {
    screen_.window.SetPointer(Pointer::kBusyArrow);
    const Finally normal([this] { screen_.window.SetPointer(Pointer::kNormal); });
    waiting_.Begin(kEditingHeadline, kEditingLine);
    const Finally ended([this] { waiting_.End(); });
    ShownProgress progress = Shown();
    outcome =
        ModifyRenameNames(session_.list, rows, rules, RepetitionOf(session_.options), regex_, ApplyAtOnce(), progress);
    MarkFailed(outcome);
  }
  ShowChanged(outcome);
  Tell(outcome);
  return outcome;
}

void NameCommands::RenameToTitles(Rows rows) {
  TitleOutcome outcome;
  {
    screen_.window.SetPointer(Pointer::kBusyArrow);
    const Finally normal([this] { screen_.window.SetPointer(Pointer::kNormal); });
    const OptionValues::Rename& options = session_.options.rename;
    const bool manual = !session_.mode.automatic;
    const TitleRules titles = {.skipUntitled = options.skipUntitledRows && manual,
                               .findInvalid = options.checkInvalidNames && manual,
                               .rules = options.applyRules ? &session_.options.modify : nullptr,
                               .repetition = RepetitionOf(session_.options)};
    if (options.applyRules) {
      waiting_.Begin(kEditingHeadline, kEditingLine);
      const Finally ended([this] { waiting_.End(); });
      ShownProgress progress = Shown();
      outcome = quillon::RenameToTitles(session_.list, rows, titles, regex_, ApplyAtOnce(), progress);
    } else {
      Unwatched progress;
      outcome = quillon::RenameToTitles(session_.list, rows, titles, regex_, ApplyAtOnce(), progress);
    }
    MarkFailed(outcome);
    if (options.checkSkippedRows) Check(outcome.untitled);
    Check(outcome.invalid);
  }
  Tell(outcome);
}

void NameCommands::RenameByPattern(Rows rows, const PatternRules& rules, const ReadFacts& read) {
  screen_.window.SetPointer(Pointer::kBusyArrow);
  const Finally normal([this] { screen_.window.SetPointer(Pointer::kNormal); });
  waiting_.Begin(kEditingHeadline, kEditingLine);
  const Finally ended([this] { waiting_.End(); });
  ShownProgress progress = Shown();
  const PatternOutcome outcome =
      quillon::RenameByPattern(session_.list, rows, rules, read, ApplyAtOnce(), progress, session_.style);
  MarkFailed(outcome);
  if (session_.options.rename.checkSkippedRows) Check(outcome.unnamed);
  Check(outcome.invalid);
  ShowChanged(outcome);
}

void NameCommands::ShowChanged(const RunOutcome& outcome) {
  screen_.status.ShowResult(FormatThousands(static_cast<std::uint64_t>(outcome.changed)) + " 個の名前を変更しました");
}

void NameCommands::Check(const std::vector<int>& rows) {
  for (const int index : rows) session_.list.SetChecked(index, true);
}

void NameCommands::MarkFailed(const RunOutcome& outcome) {
  if (outcome.end == RunEnd::kStopped && session_.options.update.checkFailedRows) Check({outcome.failedRow});
}

void NameCommands::Tell(const RunOutcome& outcome) {
  if (outcome.leftAlone == 0) return;
  screen_.boxes.Show({"リネーム名の編集", LeftAloneText(outcome.leftAlone), MessageIcon::kExclamation});
}

}  // namespace quillon
