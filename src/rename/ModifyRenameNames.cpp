#include "rename/ModifyRenameNames.h"

#include <string>
#include <utility>

#include "rename/ModifyName.h"

namespace quillon {

void TellLeftAlone(int count, MessageBoxes& boxes) {
  if (count == 0) return;
  boxes.Show({"リネーム名の編集",
              std::to_string(count) +
                  " 個のリネーム名は、置換が終わらないか 32,767 文字を超えるため編集されませんでした\r\n"
                  "置換する文字列に、検索する文字列や不正な文字が含まれていないか確認してください",
              MessageIcon::kExclamation});
}

ModifyOutcome ModifyRenameNames(FileList& list, const OptionValues& options, const ApplyMode& mode,
                                RenameEngine& engine, const ModifyPorts& ports, bool allItems,
                                std::chrono::milliseconds progressInterval) {
  ports.window.SetPointer(Pointer::kBusyArrow);
  ports.progress.Begin("リネーム名を編集中です...\r\nしばらくお待ちください", "  ファイル名を編集中...");
  Throttle throttle(progressInterval);
  ModifyOutcome outcome;
  const int inScope = allItems ? list.Count() : list.CheckedCount();
  int done = 0;
  for (int index = 1; index <= list.Count() && !outcome.stopped; ++index) {
    if (!allItems && !list.Row(index).checked) continue;
    const std::string before = list.Row(index).renameName;
    ModifyResult result =
        ModifyName(before, options.modify, static_cast<std::size_t>(list.Count()), ports.regex, ports.pending);
    if (result.leftAlone) ++outcome.leftAlone;
    if (result.name != before) list.SetRenameName(index, std::move(result.name));
    if (mode.automatic && engine.ApplyRenameName(index) != apply_code::kApplied) {
      list.SetRenameName(index, before);
      if (options.update.updateErrChk == 1) list.SetChecked(index, true);
      outcome.stopped = true;
    }
    ++done;
    if (throttle.Due() || done == inScope) {
      ports.progress.Update(std::to_string(done * 100LL / inScope) + "% 完了しました", list.Row(index).location);
    }
  }
  ports.progress.End();
  ports.window.SetPointer(Pointer::kNormal);
  TellLeftAlone(outcome.leftAlone, ports.boxes);
  return outcome;
}

}  // namespace quillon
