#include "filelist/PlayerState.h"

namespace quillon {

std::string PlayerText(PlayerState state, const std::string& file) {
  switch (state) {
    case PlayerState::kIdle: return "プレイヤー待機中...";
    case PlayerState::kLoading: return "読み込み中... " + file;
    case PlayerState::kPlaying: return "再生中： " + file;
    case PlayerState::kPaused: return "一時停止： " + file;
    case PlayerState::kStopped: return "停止： " + file;
    case PlayerState::kCannotPlay: return "再生できません： " + file;
    case PlayerState::kCutShort: return "途中までしか再生できません： " + file;
  }
  return {};
}

}  // namespace quillon
