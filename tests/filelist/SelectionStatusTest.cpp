#include <gtest/gtest.h>

#include <string>
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

TEST(SelectionStatus, PassesTheTextsOn) {
  Fixture f;
  f.status.SetPlayerText("再生中： x.mid");
  f.status.SetModeText("自動適応モード");
  EXPECT_EQ(f.log.Events(), Texts({"panel player: 再生中： x.mid", "panel mode: 自動適応モード"}));
}

TEST(SelectionStatus, NamesTheRowWhereThePlayerHasNothingToSay) {
  for (const std::string& text : Texts({"停止： x.mid", "再生できません： x.mid", "途中までしか再生できません： x.mid",
                                        "プレイヤー待機中...", "選択： x.mid"})) {
    Fixture f;
    f.status.SetPlayerText(text);
    f.status.ShowSelection("b.mid");
    EXPECT_EQ(f.log.Events().back(), "panel player: 選択： b.mid") << text;
  }
}

TEST(SelectionStatus, LeavesThePlayersOwnTextsAlone) {
  for (const std::string& text : Texts({"再生中： x.mid", "一時停止： x.mid", "", "x 停止： y", "x 選択： y"})) {
    Fixture f;
    f.status.SetPlayerText(text);
    f.status.ShowSelection("b.mid");
    EXPECT_EQ(f.log.Events(), Texts({"panel player: " + text})) << text;
  }
}

TEST(SelectionStatus, NamesOneRowAfterTheOther) {
  Fixture f;
  f.status.ShowSelection("a");
  f.status.ShowSelection("b");
  f.status.SetPlayerText("再生中： b");
  f.status.ShowSelection("c");
  f.status.SetPlayerText("停止： b");
  f.status.ShowSelection("c");
  EXPECT_EQ(f.log.Events(), Texts({"panel player: 選択： a", "panel player: 選択： b", "panel player: 再生中： b",
                                   "panel player: 停止： b", "panel player: 選択： c"}));
}

TEST(SelectionStatus, TheModePanelIsAnother) {
  Fixture f;
  f.status.SetPlayerText("再生中： x");
  f.status.SetModeText("選択： x");
  f.status.ShowSelection("b");
  EXPECT_EQ(f.log.StartingWith("panel player: 選択"), Texts());
}

}  // namespace
}  // namespace quillon
