#include "app/MoveProgress.h"

#include <algorithm>

#include "app/ShownProgress.h"

namespace quillon {

MoveProgress::MoveProgress(ProgressDisplay& display, WindowState& window, std::uint64_t total, MoveTimes times)
    : display_(display),
      window_(window),
      total_(total),
      showAt_(Clock::now() + times.showAfter),
      throttle_(times.interval) {}

MoveProgress::~MoveProgress() {
  if (!shown_) return;
  // First, so that the window gets the keyboard focus back.
  window_.SetEnabled(true);
  display_.End();
}

bool MoveProgress::Next(const FileRow& row) {
  done_ += present_;
  present_ = SizeOf(row);
  path_ = row.Location();
  return Show(0);
}

bool MoveProgress::Continue(std::size_t copied, std::size_t /*total*/, const std::string& /*item*/) {
  return Show(copied);
}

bool MoveProgress::Show(std::uint64_t copied) {
  if (!shown_ && Clock::now() >= showAt_) {
    shown_ = true;
    window_.SetEnabled(false);
    display_.Begin("ファイルを移動中です...\r\nしばらくお待ちください", "  ファイルを移動中...");
  }
  if (!shown_) return true;
  if (throttle_.Due()) {
    // A file may be longer now than it was when it was listed.
    const std::uint64_t done = std::min(done_ + std::min(copied, present_), total_);
    const auto percent = static_cast<int>(static_cast<double>(done) * 100 / static_cast<double>(total_));
    display_.Update(percent, PercentText(percent), path_);
  }
  return !display_.Cancelled();
}

}  // namespace quillon
