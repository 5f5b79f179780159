#include "filelist/SelectionStatus.h"

#include <utility>

namespace quillon {
namespace {

bool IsActive(PlayerState player) {
  return player == PlayerState::kLoading || player == PlayerState::kPlaying || player == PlayerState::kPaused;
}

}  // namespace

void SelectionStatus::Show(std::string text) {
  text_ = std::move(text);
  showsResult_ = false;
  panels_.SetPlayerText(text_);
}

void SelectionStatus::ShowPlayer(PlayerState state, const std::string& file) {
  player_ = state;
  Show(PlayerText(state, file));
}

void SelectionStatus::ShowSelection(const std::string& name) {
  if (!IsActive(player_)) Show("選択： " + name);
}

void SelectionStatus::ShowResult(const std::string& text) {
  showsResult_ = true;
  panels_.SetPlayerText(text);
}

void SelectionStatus::EndResult() {
  if (std::exchange(showsResult_, false)) ShowAgain();
}

}  // namespace quillon
