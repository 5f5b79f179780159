#include "rename/RowRun.h"

namespace quillon {

RunEnd RunOverRows(const FileList& list, Rows rows, Progress& progress, const EditRow& edit) {
  const auto total = static_cast<std::size_t>(list.CountOf(rows));
  std::size_t done = 0;
  bool goesOn = progress.Continue(done, total, {});
  for (int index = 1; index <= list.Count() && done < total; ++index) {
    if (!list.IsIn(rows, index)) continue;
    if (!goesOn) return RunEnd::kCancelled;
    const RunEnd end = edit(index);
    if (end == RunEnd::kCancelled) return end;
    goesOn = progress.Continue(++done, total, list.Row(index).Location());
    if (end == RunEnd::kStopped) return end;
  }
  return RunEnd::kComplete;
}

RunEnd ApplyOrRestore(FileList& list, int index, const std::string& before, const ApplyRow& apply,
                      RunOutcome& outcome) {
  if (!apply || apply(index)) {
    if (list.Row(index).renameName != before) ++outcome.changed;
    return RunEnd::kComplete;
  }
  list.SetRenameName(index, before);
  outcome.failedRow = index;
  return RunEnd::kStopped;
}

std::string LeftAloneText(int count) {
  return std::to_string(count) +
         " 個のリネーム名は、置換が終わらないか 32,767 文字を超えるため編集されませんでした\r\n"
         "置換する文字列に、検索する文字列や不正な文字が含まれていないか確認してください";
}

}  // namespace quillon
