#pragma once

#include <chrono>
#include <vector>

#include "app/ApplyCommands.h"
#include "app/Screen.h"
#include "app/ShownProgress.h"
#include "pattern/PatternRename.h"
#include "rename/RegexReplace.h"
#include "rename/RowRun.h"

namespace quillon {

/// Changes the rename names of many rows: to their titles, by a pattern, and by the modification rules. In auto-apply
/// mode each row is applied at once. Long runs show the wait window, where the user can cancel them; the rows done so
/// far stay. Names that stay unchanged (ModifyResult::leftAlone) are reported once, at the end.
class NameCommands {
 public:
  NameCommands(const Session& session, ApplyCommands& applying, RegexEngine& regex, ProgressDisplay& waiting,
               const Screen& screen, std::chrono::milliseconds progressInterval = kProgressInterval);

  /// `rules` are the options' rules, with a plain search when regular expressions are unavailable.
  RunOutcome ModifyRows(Rows rows, const OptionValues::Modify& rules);

  /// Rows without a title are skipped as the options say. With `applyRules` the title passes through the modification
  /// rules first.
  void RenameToTitles(Rows rows);

  /// Rows for which the pattern gives nothing are skipped, and checked, like rows without a title.
  void RenameByPattern(Rows rows, const PatternRules& rules, const ReadFacts& read);

 private:
  [[nodiscard]] ApplyRow ApplyAtOnce();
  [[nodiscard]] ShownProgress Shown() const;
  void Check(const std::vector<int>& rows);
  void MarkFailed(const RunOutcome& outcome);
  void ShowChanged(const RunOutcome& outcome);
  void Tell(const RunOutcome& outcome);

  Session session_;
  ApplyCommands& applying_;
  RegexEngine& regex_;
  ProgressDisplay& waiting_;
  Screen screen_;
  std::chrono::milliseconds progressInterval_;
};

}  // namespace quillon
