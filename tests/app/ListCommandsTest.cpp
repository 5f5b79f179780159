#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/CommandFixture.h"
#include "app/ListCommands.h"
#include "support/Recorders.h"
#include "support/Rows.h"

namespace quillon {
namespace {

using test::CheckedRows;
using test::Locations;
using test::RowFor;
using Indices = std::vector<int>;
using Texts = std::vector<std::string>;

const char* const kClearQuestion =
    "box [リストクリア] 現在の編集内容を破棄して、リストをクリアします (question, yes/no)";
const char* const kAutoOn = "box [設定] 自動適応モードが有効になりました (information, ok)";
const Texts kPanelsReset = {"file panel reset", "panel player: プレイヤー待機中..."};

struct Fixture : test::CommandFixture {
  ListCommands commands{session, screen};

  explicit Fixture(const Texts& names) {
    for (const std::string& name : names) list.Add(RowFor("/f/" + name, PathStyle::kLinux));
  }
};

Texts Joined(Texts first, const Texts& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

TEST(CheckCommands, AskNothingAndReportNothing) {
  Fixture f({"a", "b", "c"});
  f.commands.mnuAllChk();
  EXPECT_EQ(CheckedRows(f.list), Indices({1, 2, 3}));
  f.list.SetChecked(1, false);
  f.commands.mnuTurnChk();
  EXPECT_EQ(CheckedRows(f.list), Indices({1}));
  f.commands.mnuChkRem();
  EXPECT_EQ(CheckedRows(f.list), Indices());
  EXPECT_EQ(f.ports.log.Events(), Texts());
}

TEST(mnuThisListDel, RemovesTheSelectedRowAndResetsThePanels) {
  Fixture f({"a", "b", "c"});
  f.list.SelectOnly(2);
  f.commands.mnuThisListDel();
  EXPECT_EQ(Locations(f.list), Texts({"/f/a", "/f/c"}));
  EXPECT_EQ(f.list.SelectedIndex(), 0);
  EXPECT_EQ(f.ports.log.Events(), Joined({"player forgets /f/b"}, kPanelsReset));
}

TEST(mnuThisListDel, DoesNothingWithoutASelection) {
  Fixture f({"a", "b"});
  f.commands.mnuThisListDel();
  EXPECT_EQ(f.list.Count(), 2);
  EXPECT_EQ(f.ports.log.Events(), Texts());
}

TEST(mnuThisListDel, StopsThePlayerWhenItsFileLeaves) {
  Fixture f({"a", "b"});
  f.ports.player.loaded = "/f/b";
  f.list.SelectOnly(2);
  f.commands.mnuThisListDel();
  EXPECT_EQ(f.ports.player.loaded, "");
  EXPECT_EQ(f.ports.log.Events(), Joined({"player forgets /f/b", "player stopped"}, kPanelsReset));
}

TEST(mnuThisListDel, LeavesThePlayerAloneWhenAnotherFileLeaves) {
  Fixture f({"a", "b"});
  f.ports.player.loaded = "/f/b";
  f.list.SelectOnly(1);
  f.commands.mnuThisListDel();
  EXPECT_EQ(f.ports.player.loaded, "/f/b");
}

// A player may read the list when it releases a file, so the removal must be complete by then.
TEST(mnuUnChkListRem, LetsThePlayerSeeTheListAsItIsAfterTheRemoval) {
  Fixture f({"a", "b", "c"});
  f.list.SetChecked(3, true);
  struct LookingPlayer final : PlayerControl {
    explicit LookingPlayer(const FileList& seen) : list(seen) {}
    void ReleaseFile(const std::string&) override {}
    void Stop() override {}
    void Choose(const std::string&) override {}
    void FileMoved(const std::string&, const std::string&) override {}
    void FileRemoved(const std::string& path) override { released.push_back(path + " of " + Rows()); }
    std::string Rows() const {
      std::string rows;
      for (int index = 1; index <= list.Count(); ++index) rows += list.Row(index).Location();
      return rows;
    }
    const FileList& list;
    Texts released;
  } player(f.list);
  const Session session = {f.list, f.options, f.mode, player, f.style};
  ListCommands commands(session, f.screen);
  commands.mnuUnChkListRem();
  EXPECT_EQ(player.released, Texts({"/f/a of /f/c", "/f/b of /f/c"}));
}

TEST(mnuUnChkListRem, LeavesAListWhoseRowsAreAllCheckedUnchanged) {
  Fixture f({"a", "b"});
  f.list.CheckAll();
  f.list.SelectOnly(2);
  f.commands.mnuUnChkListRem();
  EXPECT_EQ(Locations(f.list), Texts({"/f/a", "/f/b"}));
  EXPECT_EQ(f.list.SelectedIndex(), 2);
  EXPECT_EQ(f.ports.log.Events(), Texts());
}

TEST(mnuUnChkListRem, EmptiesAListWithoutChecks) {
  Fixture f({"a", "b"});
  f.commands.mnuUnChkListRem();
  EXPECT_EQ(f.list.Count(), 0);
  EXPECT_EQ(f.ports.log.Events(), Joined({"player forgets /f/a", "player forgets /f/b"}, kPanelsReset));
}

TEST(mnuUnChkListRem, KeepsTheCheckedRowsInTheirOrder) {
  Fixture f({"a", "b", "c", "d"});
  f.list.SetChecked(4, true);
  f.list.SetChecked(2, true);
  f.list.SelectOnly(4);
  f.ports.player.loaded = "/f/c";
  f.commands.mnuUnChkListRem();
  EXPECT_EQ(Locations(f.list), Texts({"/f/b", "/f/d"}));
  EXPECT_EQ(CheckedRows(f.list), Indices({1, 2}));
  EXPECT_EQ(f.list.SelectedIndex(), 0) << "the panels show no row, so none is selected";
  EXPECT_EQ(f.ports.player.loaded, "");
}

TEST(mnuAllClear, AsksAndStopsOnNo) {
  Fixture f({"a"});
  f.options.update.automatic = true;
  f.ports.boxes.Answer(false);
  f.commands.mnuAllClear();
  EXPECT_EQ(f.list.Count(), 1);
  EXPECT_FALSE(f.mode.automatic);
  EXPECT_EQ(f.ports.log.Events(), Texts({kClearQuestion}));
}

TEST(mnuAllClear, EmptiesTheListStopsThePlayerAndShowsTheMode) {
  Fixture f({"a", "b"});
  f.ports.player.loaded = "/f/a";
  f.list.SelectOnly(1);
  f.ports.boxes.Answer(true);
  f.commands.mnuAllClear();
  EXPECT_EQ(f.list.Count(), 0);
  EXPECT_EQ(f.list.SelectedIndex(), 0);
  EXPECT_EQ(f.ports.player.loaded, "");
  EXPECT_EQ(f.ports.log.Events(), Joined(Joined({kClearQuestion, "player stop", "player chooses "}, kPanelsReset),
                                         {"panel mode: 手動適応モード"}));
}

TEST(mnuAllClear, AsksNothingWhenConfirmationsAreOff) {
  Fixture f({"a"});
  f.options.system.suppressConfirmations = true;
  f.commands.mnuAllClear();
  EXPECT_EQ(f.list.Count(), 0);
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts());
}

TEST(mnuAllClear, SwitchesToAutoApplyModeWhenTheSettingIsOn) {
  Fixture f({"a"});
  f.options.system.suppressConfirmations = true;
  f.options.update.automatic = true;
  f.commands.mnuAllClear();
  EXPECT_TRUE(f.mode.automatic);
  EXPECT_EQ(f.ports.log.Events(),
            Joined(Joined({"player stop", "player chooses "}, kPanelsReset), {kAutoOn, "panel mode: 自動適応モード"}));
}

TEST(mnuAllClear, LeavesAutoApplyModeWhenTheSettingIsOff) {
  Fixture f({"a"});
  f.options.system.suppressConfirmations = true;
  f.mode.automatic = true;
  f.commands.mnuAllClear();
  EXPECT_FALSE(f.mode.automatic);
  EXPECT_TRUE(f.ports.log.Has("panel mode: 手動適応モード"));
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts());
}

}  // namespace
}  // namespace quillon
