#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "app/ApplicationFixture.h"
#include "support/Replies.h"

namespace quillon {
namespace {

using enum Command;
using test::ApplicationFixture;
using Texts = std::vector<std::string>;

constexpr const char* kIdle = "プレイヤー待機中...";

/// A program with three files, all of which the device can play for ten seconds.
struct PlayingFixture : ApplicationFixture {
  explicit PlayingFixture(const OptionValues& options = Options()) : ApplicationFixture(options) {
    Load({"a.mp3", "b.mid", "c.wav"});
    for (int row = 1; row <= app.List().Count(); ++row) device.AddFile(app.List().Row(row).Location(), 10000);
  }

  /// A double click.
  void Activate(int row) {
    Select({row});
    app.RowActivated(row);
  }

  [[nodiscard]] std::string Playing() const { return device.OpenFile("mci"); }
  [[nodiscard]] std::string At(const char* name) const { return folder.At(name); }
};

TEST(Playing, ADoubleClickPlaysTheRowInsteadOfThePlayingFile) {
  PlayingFixture f;
  f.Activate(1);
  EXPECT_EQ(f.Playing(), f.At("a.mp3"));
  EXPECT_EQ(f.LastPanel("player"), "再生中： a.mp3");
  f.Activate(2);
  EXPECT_EQ(f.Playing(), f.At("b.mid"));
  EXPECT_EQ(f.LastPanel("player"), "再生中： b.mid");
  EXPECT_EQ(f.Log().StartingWith("shell"), Texts());
}

TEST(Playing, OfSeveralSelectedRowsTheActivatedOneIsPlayed) {
  PlayingFixture f;
  f.folder.Write("0.html");
  f.app.LoadPaths({f.folder.At("0.html")});
  f.app.HeaderClicked(Column::kLocation);
  f.app.HeaderClicked(Column::kLocation);
  ASSERT_EQ(f.app.List().Row(1).type, "HTML");
  f.Select({1, 3});
  f.app.RowActivated(3);
  EXPECT_EQ(f.Playing(), f.At("b.mid"));
  EXPECT_EQ(f.Log().StartingWith("shell"), Texts());
}

TEST(Playing, TheCommandPlaysTheSelectedRow) {
  PlayingFixture f;
  f.Select({3});
  f.app.Execute(mnuPlay);
  EXPECT_EQ(f.Playing(), f.At("c.wav"));
}

TEST(Playing, AnotherSelectionLeavesThePlayersTextAlone) {
  PlayingFixture f;
  f.Activate(1);
  f.Select({2});
  EXPECT_EQ(f.LastPanel("player"), "再生中： a.mp3");
  f.app.Player().cmdStop();
  EXPECT_EQ(f.LastPanel("player"), "停止： a.mp3");
  f.Select({3});
  EXPECT_EQ(f.LastPanel("player"), "選択： c.wav");
}

TEST(Playing, TheButtonWorksWithoutASelectionToo) {
  PlayingFixture f;
  f.Activate(1);
  f.Select({});
  f.app.Player().cmdPlay();
  EXPECT_EQ(f.LastPanel("player"), "一時停止： a.mp3");
}

TEST(Playing, ApplyingANameReleasesTheFileAndTheRenamedOneCanBePlayed) {
  PlayingFixture f;
  f.Activate(1);
  f.app.List().SetRenameName(1, "new");
  f.app.Execute(mnuThisUpdate);
  EXPECT_EQ(f.Playing(), "");
  EXPECT_TRUE(f.folder.Exists("new.mp3"));
  EXPECT_TRUE(f.Log().Has("panel player: " + std::string(kIdle)));
  f.device.AddFile(f.At("new.mp3"), 10000);
  f.app.Player().cmdPlay();
  EXPECT_EQ(f.Playing(), f.At("new.mp3"));
}

TEST(Playing, ApplyingReleasesTheFileEvenWhenTheNameCannotBeUsed) {
  PlayingFixture f;
  f.Activate(1);
  f.app.List().SetRenameName(1, "a:b");
  f.app.Execute(mnuThisUpdate);
  EXPECT_EQ(f.Playing(), "");
}

TEST(Playing, ABatchReleasesTheFileThatItRenames) {
  OptionValues options = ApplicationFixture::Options();
  options.system.suppressConfirmations = true;
  PlayingFixture f(options);
  f.Activate(2);
  f.app.List().SetRenameName(2, "new");
  f.app.List().SetChecked(1, true);
  f.app.Execute(mnuUpdate);
  EXPECT_EQ(f.Playing(), f.At("b.mid")) << "its row is not checked";
  f.app.Execute(mnuAllUpdate);
  EXPECT_EQ(f.Playing(), "");
  EXPECT_TRUE(f.folder.Exists("new.mid"));
}

TEST(Playing, DeletingStopsFirst) {
  PlayingFixture f;
  f.Activate(1);
  f.app.Execute(mnuThisDel);
  EXPECT_EQ(f.Playing(), "");
  EXPECT_FALSE(f.folder.Exists("a.mp3"));
  EXPECT_EQ(f.app.Player().Paths().playFilePath, "");
  EXPECT_EQ(f.LastPanel("player"), kIdle);
}

TEST(Playing, AMovedFileIsReleasedAndPlaysFromItsNewPlace) {
  PlayingFixture f;
  f.Activate(1);
  const std::string target = f.home.MakeFolder("target");
  f.ports.folders.Answer(target);
  f.app.Execute(mnuThisMove);
  EXPECT_EQ(f.Playing(), "");
  f.device.AddFile(target + "a.mp3", 10000);
  f.app.Player().cmdPlay();
  EXPECT_EQ(f.Playing(), target + "a.mp3");
}

TEST(Playing, RemovingTheRowFromTheListStops) {
  for (const Command command : {mnuThisListDel, mnuUnChkListRem}) {
    PlayingFixture f;
    f.Activate(1);
    f.app.Execute(command);
    EXPECT_EQ(f.Playing(), "");
    EXPECT_EQ(f.app.Player().Paths().playFilePath, "");
    EXPECT_EQ(f.LastPanel("player"), kIdle);
  }
}

TEST(Playing, ClearingTheListStops) {
  PlayingFixture f;
  f.Activate(1);
  f.ports.boxes.Answer(true);
  f.app.Execute(mnuAllClear);
  EXPECT_EQ(f.Playing(), "");
  f.app.Player().cmdPlay();
  EXPECT_EQ(f.Log().Events().back().rfind("box [プレイヤー] 再生するファイルを指定してください", 0), 0u);
}

TEST(Playing, ReloadingStopsAndTheFileStaysChosen) {
  PlayingFixture f;
  f.Activate(1);
  f.ports.boxes.Answer(true);
  f.app.Execute(mnuReload);
  EXPECT_EQ(f.Playing(), "");
  EXPECT_EQ(f.app.Player().Paths().playFilePath, f.At("a.mp3"));
}

TEST(Playing, LoadingIntoAListThatIsClearedFirstStops) {
  OptionValues options = ApplicationFixture::Options();
  options.list.clearBeforeLoading = true;
  PlayingFixture f(options);
  f.Activate(1);
  f.home.Write("other/d.mp3");
  f.ports.folders.Answer(f.home.At("other/"));
  f.app.Execute(mnuFolderReference);
  EXPECT_EQ(f.app.List().Count(), 1);
  EXPECT_EQ(f.Playing(), "");
}

TEST(Playing, GoesOnThroughTheListWhenTheSettingSaysSo) {
  OptionValues options = ApplicationFixture::Options();
  options.player.continuous = true;
  PlayingFixture f(options);
  f.Activate(3);
  f.device.Pass(10000);
  f.app.Player().timMCIChecker();
  EXPECT_EQ(f.Playing(), f.At("a.mp3")) << "behind the last comes the first";
}

TEST(PlayTime, IsShownForTheSelectedRowAndDisturbsNothing) {
  OptionValues options = ApplicationFixture::Options();
  options.system.readPlayTimes = true;
  PlayingFixture f(options);
  f.Activate(1);
  f.device.Pass(1000);
  f.device.AddFile(f.At("b.mid"), 185000);
  f.device.TakeSent();
  f.Select({2});
  EXPECT_TRUE(f.information.summary.ends_with(" / 演奏時間： 3:05")) << f.information.summary;
  EXPECT_EQ(f.device.TakeSent(),
            Texts({"Open \"" + f.At("b.mid") + "\" alias MCILENGTH", "set MCILENGTH time format milliseconds",
                   "status MCILENGTH length", "Close MCILENGTH"}));
  EXPECT_EQ(f.Playing(), f.At("a.mp3"));
  EXPECT_EQ(test::TextOf(f.device.Send("status mci mode", 16)), "playing");
}

TEST(PlayTime, IsNotAskedForUnlessTheSettingSaysSo) {
  PlayingFixture f;
  f.device.TakeSent();
  f.Select({2});
  EXPECT_EQ(f.device.TakeSent(), Texts());
}

TEST(Playing, TheMenuPausesGoesOnAndStops) {
  PlayingFixture f;
  f.Select({1});
  f.app.Execute(mnuPause);
  f.app.Execute(mnuStop);
  EXPECT_EQ(f.Playing(), "") << "nothing plays, so nothing happens";
  f.app.Execute(mnuPlay);
  f.app.Execute(mnuPause);
  EXPECT_EQ(f.LastPanel("player"), "一時停止： a.mp3");
  f.app.Execute(mnuPause);
  EXPECT_EQ(f.LastPanel("player"), "再生中： a.mp3");
  f.app.Execute(mnuStop);
  EXPECT_EQ(f.LastPanel("player"), "停止： a.mp3");
}

TEST(Playing, TheMenuTurnsTheRepeatOnAndOff) {
  ApplicationFixture f;
  f.app.Execute(mnuRepeat);
  EXPECT_TRUE(f.app.Options().player.repeat);
  f.app.Execute(mnuRepeat);
  EXPECT_FALSE(f.app.Options().player.repeat);
  EXPECT_EQ(f.Log().StartingWith("main repeats").size(), 1u);
  f.app.SetRepeat(true);
  EXPECT_TRUE(f.app.Options().player.repeat);
}

}  // namespace
}  // namespace quillon
