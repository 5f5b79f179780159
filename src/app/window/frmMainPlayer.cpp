#include "app/window/frmMainPlayer.h"

#include <utility>

#include "base/Finally.h"
#include "controls/WxText.h"

namespace quillon {

FraMusicPlayer::FraMusicPlayer(const frmMainControls& controls, std::function<void()> tick)
    : controls_(controls), tick_(std::move(tick)) {
  timMCIChecker_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Tick(); });
}

// Stops the timer when two ticks in a row throw, because the next ones would fail, too.
void FraMusicPlayer::Tick() {
  const bool failedBefore = std::exchange(failed_, true);
  const Finally stopped([&] {
    if (failedBefore && failed_) timMCIChecker_.Stop();
  });
  tick_();
  failed_ = false;
}

void FraMusicPlayer::SetButton(PlayButton button) {
  if (std::exchange(button_, button) != button) RefreshPictures();
}

void FraMusicPlayer::SetTimer(int interval) {
  if (interval == 0) {
    timMCIChecker_.Stop();
  } else {
    failed_ = false;
    timMCIChecker_.Start(interval);
  }
}

void FraMusicPlayer::SetTime(const std::string& text) {
  ShowTime(controls_, ToWx(text));
}

bool FloatingMovie::Show() {
  window_ = make_();
  if (window_->Load()) return true;
  Close();
  return false;
}

void FloatingMovie::Close() {
  if (window_ == nullptr) return;
  window_->Leave();
  window_ = nullptr;
}

void FloatingMovie::SetButton(PlayButton button) {
  if (window_ != nullptr) window_->SetButton(button);
}

void FloatingMovie::SetPosition(std::int32_t position) {
  if (window_ != nullptr) window_->SetPosition(position);
}

void FloatingMovie::SetTime(const std::string& text) {
  if (window_ != nullptr) window_->SetTime(text);
}

}  // namespace quillon
