#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "filelist/SelectionStatus.h"
#include "support/Recorders.h"

namespace quillon {
namespace {

using Texts = std::vector<std::string>;

struct Fixture {
  test::EventLog log;
  test::PanelRecorder panels{log};
  SelectionStatus status{panels};
};

TEST(SelectionStatus, NamesTheSelectedRowFromTheStart) {
  Fixture f;
  f.status.ShowSelection("a.mid");
  EXPECT_EQ(f.log.Events(), Texts({"panel player: 選択： a.mid"}));
}

TEST(SelectionStatus, TellsWhatThePlayerDoesAndThePanelsTheMode) {
  const std::vector<std::pair<PlayerState, std::string>> cases = {
      {PlayerState::kIdle, "プレイヤー待機中..."},
      {PlayerState::kLoading, "読み込み中... x.mid"},
      {PlayerState::kPlaying, "再生中： x.mid"},
      {PlayerState::kPaused, "一時停止： x.mid"},
      {PlayerState::kStopped, "停止： x.mid"},
      {PlayerState::kCannotPlay, "再生できません： x.mid"},
      {PlayerState::kCutShort, "途中までしか再生できません： x.mid"},
  };
  for (const auto& [state, text] : cases) {
    Fixture f;
    f.status.ShowPlayer(state, "x.mid");
    f.status.SetModeText("自動適応モード");
    EXPECT_EQ(f.log.Events(), Texts({"panel player: " + text, "panel mode: 自動適応モード"}));
  }
}

TEST(SelectionStatus, NamesTheRowWhileThePlayerIsInactive) {
  for (const PlayerState state :
       {PlayerState::kStopped, PlayerState::kCannotPlay, PlayerState::kCutShort, PlayerState::kIdle}) {
    Fixture f;
    f.status.ShowPlayer(state, "x.mid");
    f.status.ShowSelection("b.mid");
    EXPECT_EQ(f.log.Events().back(), "panel player: 選択： b.mid") << PlayerText(state, "x.mid");
  }
}

TEST(SelectionStatus, LeavesThePlayersOwnTextsAlone) {
  for (const PlayerState state : {PlayerState::kLoading, PlayerState::kPlaying, PlayerState::kPaused}) {
    for (const std::string& file : Texts({"x.mid", "停止： y", "選択： y", ""})) {
      Fixture f;
      f.status.ShowPlayer(state, file);
      f.status.ShowSelection("b.mid");
      EXPECT_EQ(f.log.Events(), Texts({"panel player: " + PlayerText(state, file)}));
    }
  }
}

TEST(SelectionStatus, NamesOneRowAfterTheOther) {
  Fixture f;
  f.status.ShowSelection("a");
  f.status.ShowSelection("b");
  f.status.ShowPlayer(PlayerState::kPlaying, "b");
  f.status.ShowSelection("c");
  f.status.ShowPlayer(PlayerState::kStopped, "b");
  f.status.ShowSelection("c");
  EXPECT_EQ(f.log.Events(), Texts({"panel player: 選択： a", "panel player: 選択： b", "panel player: 再生中： b",
                                   "panel player: 停止： b", "panel player: 選択： c"}));
}

TEST(SelectionStatus, TheModeHasItsOwnPanel) {
  Fixture f;
  f.status.ShowPlayer(PlayerState::kPlaying, "x");
  f.status.SetModeText("選択： x");
  f.status.ShowSelection("b");
  EXPECT_EQ(f.log.StartingWith("panel player: 選択"), Texts());
}

}  // namespace
}  // namespace quillon
