#include "rename/RowRun.h"

#include <string>

#include "base/Finally.h"

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

}  // namespace

RowRunEnd RunOverRows(const FileList& list, bool allItems, const EditRow& edit) {
  for (int index = 1; index <= list.Count(); ++index) {
    if (!allItems && !list.Row(index).checked) continue;
    if (const RowRunEnd end = edit(index); end != RowRunEnd::kComplete) return end;
  }
  return RowRunEnd::kComplete;
}

RowRunEnd RunOverRowsWaiting(const FileList& list, bool allItems, PendingMessages& pending, ProgressDisplay& progress,
                             std::chrono::milliseconds progressInterval, const EditRowWaiting& edit) {
  progress.Begin("リネーム名を編集中です...\r\nしばらくお待ちください", "  ファイル名を編集中...");
  const Finally ended([&progress] { progress.End(); });
  CancellableMessages messages(pending, progress);
  Throttle throttle(progressInterval);
  const int inScope = allItems ? list.Count() : list.CheckedCount();
  int done = 0;
  return RunOverRows(list, allItems, [&](int index) {
    messages.Process();
    if (messages.Cancelled()) return RowRunEnd::kCancelled;
    const RowRunEnd end = edit(index, messages);
    if (end == RowRunEnd::kCancelled) return end;
    ++done;
    if (throttle.Due() || done == inScope) {
      progress.Update(std::to_string(done * 100LL / inScope) + "% 完了しました", list.Row(index).location);
    }
    return end;
  });
}

}  // namespace quillon
