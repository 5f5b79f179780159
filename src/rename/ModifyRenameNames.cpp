#include "rename/ModifyRenameNames.h"

#include <string>
#include <utility>

#include "base/Finally.h"
#include "rename/ModifyName.h"
#include "rename/RowRun.h"

namespace quillon {

namespace {

/// One run, with the pointer that belongs to it.
class Run {
 public:
  Run(FileList& list, const OptionValues& options, const ApplyMode& mode, RenameEngine& engine,
      const ModifyPorts& ports)
      : list_(list), options_(options), mode_(mode), engine_(engine), ports_(ports) {}

  ModifyOutcome Over(bool allItems, std::chrono::milliseconds progressInterval);

 private:
  RowRunEnd Modify(int index, PendingMessages& pending);

  FileList& list_;
  const OptionValues& options_;
  const ApplyMode& mode_;
  RenameEngine& engine_;
  const ModifyPorts& ports_;
  ModifyOutcome outcome_;
};

ModifyOutcome Run::Over(bool allItems, std::chrono::milliseconds progressInterval) {
  ports_.window.SetPointer(Pointer::kBusyArrow);
  const Finally normal([this] { ports_.window.SetPointer(Pointer::kNormal); });
  const RowRunEnd end =
      RunOverRowsWaiting(list_, allItems, ports_.pending, ports_.progress, progressInterval,
                         [this](int index, PendingMessages& pending) { return Modify(index, pending); });
  outcome_.stopped = end == RowRunEnd::kStopped;
  outcome_.cancelled = end == RowRunEnd::kCancelled;
  return outcome_;
}

RowRunEnd Run::Modify(int index, PendingMessages& pending) {
  const std::string before = list_.Row(index).renameName;
  ModifyResult result =
      ModifyName(before, options_.modify, static_cast<std::size_t>(list_.Count()), ports_.regex, pending);
  if (result.cancelled) return RowRunEnd::kCancelled;
  if (result.leftAlone) ++outcome_.leftAlone;
  if (result.name != before) list_.SetRenameName(index, std::move(result.name));
  if (!mode_.automatic || engine_.ApplyRenameName(index) == apply_code::kApplied) return RowRunEnd::kComplete;
  list_.SetRenameName(index, before);
  if (options_.update.checkFailedRows) list_.SetChecked(index, true);
  return RowRunEnd::kStopped;
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
