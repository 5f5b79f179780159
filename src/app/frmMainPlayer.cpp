#include "app/frmMainPlayer.h"

#include <utility>

#include "controls/WxText.h"

namespace quillon {

FraMusicPlayer::FraMusicPlayer(const frmMainControls& controls, std::function<void()> tick)
    : controls_(controls), timMCIChecker_(std::move(tick)) {}

void FraMusicPlayer::SetButton(PlayButton button) {
  if (std::exchange(button_, button) != button) RefreshPictures();
}

void FraMusicPlayer::SetTimer(int interval) {
  if (interval == 0) {
    timMCIChecker_.Stop();
  } else {
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

void FloatingMovie::SetPosition(std::int32_t position) {
  if (window_ != nullptr) window_->SetPosition(position);
}

void FloatingMovie::SetTime(const std::string& text) {
  if (window_ != nullptr) window_->SetTime(text);
}

}  // namespace quillon
