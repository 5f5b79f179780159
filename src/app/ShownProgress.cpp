#include "app/ShownProgress.h"

#include <utility>

namespace quillon {

std::string PercentText(int percent) {
  return std::to_string(percent) + "% 完了しました";
}

ShownProgress::ShownProgress(PendingMessages& pending, ProgressDisplay& display, Look look, Cancelled cancelled,
                             std::chrono::milliseconds interval)
    : pending_(pending),
      display_(display),
      look_(std::move(look)),
      cancelled_(std::move(cancelled)),
      throttle_(interval) {}

bool ShownProgress::Continue(std::size_t done, std::size_t total, const std::string& item) {
  if (done == 0) {
    if (look_.showsStart) display_.Update(0, PercentText(0), "");
  } else if (throttle_.Due() || done == total) {
    const auto percent = static_cast<int>(done * 100 / total);
    display_.Update(percent, look_.indent + PercentText(percent), look_.showsItem ? item : "");
  }
  return done == total || Continue();
}

bool ShownProgress::Continue() {
  pending_.Process();
  return !cancelled_();
}

}  // namespace quillon
