#include "rename/ModifyRenameNames.h"

#include <string>
#include <utility>

#include "base/Finally.h"
#include "rename/ModifyName.h"

namespace quillon {

namespace {

/// Asks the progress display whether the user has cancelled the run.
class CancellableMessages final : public PendingMessages {
 public:
  CancellableMessages(PendingMessages& pending, const ProgressDisplay& progress)
      : pending_(pending), progress_(progress) {}

  void Process() override { pending_.Process(); }
  [[nodiscard]] bool Cancelled() const override { return progress_.Cancelled(); }

 private:
  PendingMessages& pending_;
  const ProgressDisplay& progress_;
};

/// One run, with the wait window and the pointer that belong to it.
class Run {
 public:
  Run(FileList& list, const OptionValues& options, const ApplyMode& mode, RenameEngine& engine,
      const ModifyPorts& ports)
      : list_(list),
        options_(options),
        mode_(mode),
        engine_(engine),
        ports_(ports),
        pending_(ports.pending, ports.progress) {}

  ModifyOutcome Over(bool allItems, std::chrono::milliseconds progressInterval);

 private:
  void Modify(int index);

  FileList& list_;
  const OptionValues& options_;
  const ApplyMode& mode_;
  RenameEngine& engine_;
  const ModifyPorts& ports_;
  CancellableMessages pending_;
  ModifyOutcome outcome_;
};

ModifyOutcome Run::Over(bool allItems, std::chrono::milliseconds progressInterval) {
  ports_.window.SetPointer(Pointer::kBusyArrow);
  const Finally normal([this] { ports_.window.SetPointer(Pointer::kNormal); });
  ports_.progress.Begin("リネーム名を編集中です...\r\nしばらくお待ちください", "  ファイル名を編集中...");
  const Finally ended([this] { ports_.progress.End(); });
  Throttle throttle(progressInterval);
  const int inScope = allItems ? list_.Count() : list_.CheckedCount();
  int done = 0;
  for (int index = 1; index <= list_.Count() && !outcome_.stopped; ++index) {
    if (!allItems && !list_.Row(index).checked) continue;
    Modify(index);
    if (outcome_.cancelled) break;
    ++done;
    if (throttle.Due() || done == inScope) {
      ports_.progress.Update(std::to_string(done * 100LL / inScope) + "% 完了しました", list_.Row(index).location);
    }
  }
  return outcome_;
}

void Run::Modify(int index) {
  // The rules let messages through, too, but there may be none that does anything.
  pending_.Process();
  const std::string before = list_.Row(index).renameName;
  ModifyResult result =
      ModifyName(before, options_.modify, static_cast<std::size_t>(list_.Count()), ports_.regex, pending_);
  outcome_.cancelled = result.cancelled;
  if (result.cancelled) return;
  if (result.leftAlone) ++outcome_.leftAlone;
  if (result.name != before) list_.SetRenameName(index, std::move(result.name));
  if (!mode_.automatic || engine_.ApplyRenameName(index) == apply_code::kApplied) return;
  list_.SetRenameName(index, before);
  if (options_.update.checkFailedRows) list_.SetChecked(index, true);
  outcome_.stopped = true;
}

}  // namespace

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
  const ModifyOutcome outcome = Run(list, options, mode, engine, ports).Over(allItems, progressInterval);
  TellLeftAlone(outcome.leftAlone, ports.boxes);
  return outcome;
}

}  // namespace quillon
