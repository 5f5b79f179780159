#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/multimedia/basMCIControl.h"
#include "player/MusicPlayer.h"
#include "player/PlayerRecorders.h"
#include "support/FakeDevice.h"
#include "support/MemoryFileSystem.h"
#include "support/Recorders.h"
#include "support/Replies.h"
#include "support/Rows.h"

namespace quillon {
namespace {

using Texts = std::vector<std::string>;
using Counts = std::vector<int>;

constexpr const char* kIdle = "panel player: プレイヤー待機中...";
constexpr const char* kCannotPlay =
    "box [プレイヤー] "
    "指定されたファイルは再生できません\\r\\nこのファイルはサポートされていないか、壊れている可能性があります";

class MusicPlayerTest : public testing::Test {
 protected:
  MusicPlayerTest() {
    AddRow("/m/a.mp3", "MP3", 4000);
    AddRow("/m/page.html", "HTML", 0);
    AddRow("/m/b.mid", "MIDI", 185000);
    AddRow("/m/clip.avi", "AVI", 9000, "320 240");
  }

  void AddRow(const std::string& path, const std::string& type, std::int32_t length, const std::string& picture = {}) {
    FileItem row = test::RowFor(path, PathStyle::kLinux);
    row.type = type;
    list.Add(row);
    files.AddFile(path, "x");
    if (length > 0) device.AddFile(path, length, picture);
  }

  /// Selects the row as a click does.
  void Select(int row) {
    list.SelectOnly(row);
    player.Choose(list.Row(row).Location());
  }

  void Start(int row) {
    Select(row);
    player.cmdPlay();
    ports.log.Clear();
    device.TakeSent();
  }

  /// Lets time pass, with the ticks of the timer.
  void Pass(std::int32_t milliseconds) {
    for (std::int32_t passed = 0; passed < milliseconds; passed += 50) {
      device.Pass(50);
      if (panel.interval != 0) player.timMCIChecker();
    }
  }

  std::string Mode() { return test::TextOf(device.Send("status mci mode", 16)); }
  Texts Statuses() { return ports.log.StartingWith("panel player: "); }

  FileList list{PathStyle::kLinux};
  OptionValues options;
  test::FakeDevice device;
  test::MemoryFileSystem files{{PathStyle::kLinux, false}};
  basMCIControl mci{device, files};
  test::Recorders ports;
  test::PanelControls panel;
  test::MovieControls movie;
  MusicPlayer player{list,
                     options,
                     {mci, panel, movie, ports.panels, ports.boxes, ports.window,
                      [this](const std::string& target) {
                        ports.log.Add("shell opens " + target);
                        return 42;
                      }},
                     PathStyle::kLinux};
};

// The play button.

TEST_F(MusicPlayerTest, StartsTheChosenFile) {
  Select(1);
  player.cmdPlay();
  EXPECT_EQ(device.TakeSent(),
            Texts({"status MCI mode", "Open \"/m/a.mp3\" alias MCI", "set MCI time format milliseconds",
                   "status MCI length", "where MCI source", "Play MCI"}));
  EXPECT_EQ(ports.log.Events(), Texts({"pointer busy arrow", "panel player: 読み込み中... a.mp3",
                                       "panel player: 再生中： a.mp3", "pointer normal"}));
  EXPECT_EQ(panel.button, PlayButton::kPause);
  EXPECT_EQ(panel.interval, 50);
  EXPECT_EQ(panel.length, 4000);
  EXPECT_EQ(player.Paths().playingFilePath, "/m/a.mp3");
  EXPECT_FALSE(movie.open);
}

TEST_F(MusicPlayerTest, PausesAndGoesOn) {
  Start(1);
  Pass(1000);
  device.TakeSent();
  player.cmdPlay();
  EXPECT_EQ(device.TakeSent(), Texts({"status MCI mode", "Pause MCI"}));
  EXPECT_EQ(Statuses().back(), "panel player: 一時停止： a.mp3");
  EXPECT_EQ(panel.button, PlayButton::kPlay);
  EXPECT_EQ(panel.interval, 0);
  player.cmdPlay();
  EXPECT_EQ(device.TakeSent(), Texts({"status MCI mode", "Play MCI"}));
  EXPECT_EQ(Statuses().back(), "panel player: 再生中： a.mp3");
  EXPECT_EQ(panel.button, PlayButton::kPause);
  EXPECT_EQ(panel.interval, 50);
}

TEST_F(MusicPlayerTest, PausingNamesTheFileThatPlaysNotTheOneChosenMeanwhile) {
  Start(1);
  Select(3);
  player.cmdPlay();
  EXPECT_EQ(Statuses().back(), "panel player: 一時停止： a.mp3");
  player.cmdPlay();
  EXPECT_EQ(Statuses().back(), "panel player: 再生中： a.mp3");
}

TEST_F(MusicPlayerTest, OpensARowOfAnotherKindWithTheShellAndLeavesThePlayerAsItWas) {
  Start(1);
  Select(2);
  player.cmdPlay();
  EXPECT_EQ(ports.log.Events(), Texts({"shell opens /m/page.html"}));
  EXPECT_EQ(device.TakeSent(), Texts());
  EXPECT_EQ(panel.interval, 50);
}

TEST_F(MusicPlayerTest, AsksForAFileWhenNoneIsChosen) {
  player.cmdPlay();
  EXPECT_EQ(ports.log.Events(), Texts({"box [プレイヤー] 再生するファイルを指定してください (exclamation, ok)"}));
  EXPECT_EQ(device.TakeSent(), Texts());
}

// Files that cannot be played.

TEST_F(MusicPlayerTest, SaysThatAFileCannotBePlayed) {
  ASSERT_FALSE(files.Remove("/m/a.mp3"));  // it is gone
  AddRow("/m/broken.mp3", "MP3", 0);       // the device does not open it
  for (const int row : {1, 5}) {
    Select(row);
    player.cmdPlay();
    const std::string name = row == 1 ? "a.mp3" : "broken.mp3";
    EXPECT_EQ(Statuses().back(), "panel player: 再生中： " + name);
    Pass(50);
    EXPECT_EQ(Statuses().back(), "panel player: 再生できません： " + name);
    EXPECT_EQ(panel.interval, 0);
    EXPECT_EQ(panel.button, PlayButton::kPlay);
    EXPECT_EQ(panel.time, "00:00 / 00:00");
    EXPECT_EQ(player.Paths().playingFilePath, "");
    EXPECT_THAT(ports.boxes.Shown(), testing::IsEmpty());
  }
  Select(3);
  player.cmdPlay();
  EXPECT_EQ(device.OpenFile("mci"), "/m/b.mid") << "another file starts";
}

TEST_F(MusicPlayerTest, SaysThatAFileCannotBePlayedWhenTheDeviceOpensItAndRefusesToPlay) {
  for (const bool repeat : {false, true}) {
    options.player.repeat = repeat;
    device.refused = "play mci";
    Select(1);
    player.cmdPlay();
    Pass(200);
    EXPECT_EQ(Statuses().back(), "panel player: 再生できません： a.mp3");
    EXPECT_EQ(panel.interval, 0);
    EXPECT_EQ(device.OpenFile("mci"), "");
    device.refused.clear();
    player.cmdPlay();
    Pass(1000);
    EXPECT_EQ(panel.position, 1000) << "another try";
    player.cmdStop();
  }
}

TEST_F(MusicPlayerTest, SaysThatAFileFailedWhileItPlayed) {
  Start(4);
  Pass(1000);
  device.refused = "status mci mode";
  Pass(50);
  EXPECT_EQ(Statuses().back(), "panel player: 途中までしか再生できません： clip.avi");
  EXPECT_EQ(panel.interval, 0);
  EXPECT_FALSE(movie.open);
}

TEST_F(MusicPlayerTest, RepeatsAFileThatFailedWhileItPlayed) {
  options.player.repeat = true;
  Start(1);
  Pass(1000);
  device.refused = "status mci mode";
  player.timMCIChecker();
  EXPECT_EQ(device.TakeSent().back(), "Play MCI");
  player.timMCIChecker();
  EXPECT_EQ(Statuses().back(), "panel player: 再生できません： a.mp3") << "but not for ever";
  EXPECT_EQ(panel.interval, 0);
}

TEST_F(MusicPlayerTest, ContinuousPlayGoesPastFilesThatCannotBePlayed) {
  options.player.continuous = true;
  ASSERT_FALSE(files.Remove("/m/b.mid"));
  Start(1);
  Pass(4000);
  EXPECT_EQ(Statuses().back(), "panel player: 再生中： b.mid");
  Pass(50);
  EXPECT_EQ(Statuses().back(), "panel player: 再生できません： b.mid");
  EXPECT_EQ(panel.interval, 1500) << "long enough to be read";
  EXPECT_EQ(panel.button, PlayButton::kPlay);
  player.timMCIChecker();
  EXPECT_EQ(device.OpenFile("mci"), "/m/clip.avi");
  EXPECT_EQ(Statuses().back(), "panel player: 再生中： clip.avi");
  EXPECT_EQ(panel.interval, 50);
  Pass(1000);
  EXPECT_EQ(panel.position, 1000);
  Pass(100'000);
  EXPECT_NE(panel.interval, 0) << "in each round the others have played";
}

TEST_F(MusicPlayerTest, ContinuousPlayEndsAfterARoundOfFilesThatCannotBePlayed) {
  options.player.continuous = true;
  for (int again = 0; again < 2; ++again) {
    device.refused = "play mci";
    Select(3);
    player.cmdPlay();
    ports.log.Clear();
    for (int ticks = 0; ticks < 100 && panel.interval != 0; ++ticks) player.timMCIChecker();
    EXPECT_EQ(panel.interval, 0);
    EXPECT_EQ(player.Paths().playingFilePath, "");
    EXPECT_EQ(ports.log.StartingWith("panel player: 再生できません"),
              Texts({"panel player: 再生できません： b.mid", "panel player: 再生できません： clip.avi",
                     "panel player: 再生できません： a.mp3"}));
  }
}

TEST_F(MusicPlayerTest, StopOrAnotherFileEndsTheWaitAfterAFileThatCannotBePlayed) {
  options.player.continuous = true;
  ASSERT_FALSE(files.Remove("/m/b.mid"));
  Select(3);
  player.cmdPlay();
  Pass(50);
  EXPECT_EQ(panel.interval, 1500);
  player.cmdStop();
  EXPECT_EQ(panel.interval, 0);
  EXPECT_EQ(player.Paths().playingFilePath, "");
  player.cmdPlay();
  Pass(50);
  player.Play("/m/a.mp3");
  EXPECT_EQ(device.OpenFile("mci"), "/m/a.mp3");
  EXPECT_EQ(panel.interval, 50);
  player.cmdStop();
  Select(3);
  player.cmdPlay();
  Pass(50);
  player.FileRemoved("/m/b.mid");
  EXPECT_EQ(Statuses().back(), kIdle);
  EXPECT_EQ(panel.interval, 0);
}

// Recovery.

TEST_F(MusicPlayerTest, RecoversFromALengthThatIsNoTime) {
  device.scripted["status mci length"] = "99999999999";
  Select(1);
  player.cmdPlay();
  EXPECT_EQ(ports.log.Events().back().rfind(kCannotPlay, 0), 0u) << ports.log.Events().back();
  EXPECT_NE(ports.log.Events().back().find("stop"), std::string::npos);
  EXPECT_TRUE(ports.log.Has(kIdle));
  EXPECT_TRUE(ports.log.Has("pointer normal"));
  EXPECT_EQ(device.OpenFile("mci"), "");
  EXPECT_EQ(player.Paths().playFilePath, "");
  EXPECT_EQ(player.Paths().playingFilePath, "");
  EXPECT_EQ(panel.interval, 0);
  EXPECT_EQ(panel.button, PlayButton::kPlay);
  EXPECT_EQ(panel.position, 0);
  EXPECT_EQ(panel.time, "00:00 / 00:00");
}

TEST_F(MusicPlayerTest, RecoversFromAPictureThatCannotBeShown) {
  movie.canShow = false;
  Select(4);
  player.cmdPlay();
  EXPECT_EQ(ports.log.Events().back().rfind(kCannotPlay, 0), 0u) << ports.log.Events().back();
  EXPECT_EQ(device.OpenFile("mci"), "");
  EXPECT_FALSE(movie.open);
}

TEST_F(MusicPlayerTest, RecoveringClosesTheMovieWindow) {
  Start(4);
  player.cmdPlay();
  player.SliderPressed();
  player.SliderReleased(2000);
  ASSERT_TRUE(movie.open) << "stopped at a point";
  device.scripted["status mci length"] = "99999999999";
  player.cmdPlay();
  EXPECT_EQ(ports.log.Events().back().rfind(kCannotPlay, 0), 0u) << ports.log.Events().back();
  EXPECT_FALSE(movie.open);
}

// The stop button.

TEST_F(MusicPlayerTest, StopsWhatPlays) {
  Start(1);
  Pass(1000);
  device.TakeSent();
  player.cmdStop();
  EXPECT_EQ(device.TakeSent(), Texts({"status MCI mode", "Stop MCI", "Close MCI"}));
  EXPECT_EQ(Statuses().back(), "panel player: 停止： a.mp3");
  EXPECT_EQ(panel.interval, 0);
  EXPECT_EQ(panel.position, 0);
  EXPECT_EQ(panel.time, "00:00 / 00:00");
  EXPECT_EQ(panel.button, PlayButton::kPlay);
  EXPECT_EQ(player.Paths().playingFilePath, "");
}

TEST_F(MusicPlayerTest, StopsWhatIsPaused) {
  Start(1);
  player.cmdPlay();
  player.cmdStop();
  EXPECT_EQ(device.OpenFile("mci"), "");
  EXPECT_EQ(Statuses().back(), "panel player: 停止： a.mp3");
}

TEST_F(MusicPlayerTest, StoppingDoesNothingWhileNothingPlays) {
  player.cmdStop();
  EXPECT_EQ(device.TakeSent(), Texts({"status MCI mode"}));
  EXPECT_EQ(ports.log.Events(), Texts());
}

// The menu's play.

TEST_F(MusicPlayerTest, TheMenuStartsTheChosenFileFromItsBeginning) {
  Start(1);
  Pass(1000);
  player.mnuPlay();
  EXPECT_EQ(Mode(), "playing");
  EXPECT_EQ(test::TextOf(device.Send("status mci position", 16)), "0");
  Pass(500);
  Select(3);
  player.mnuPlay();
  EXPECT_EQ(device.OpenFile("mci"), "/m/b.mid");
  EXPECT_EQ(Statuses().back(), "panel player: 再生中： b.mid");
}

TEST_F(MusicPlayerTest, TheMenuStartsFromTheBeginningAlsoWhenStoppedAtAPoint) {
  Start(1);
  player.cmdPlay();
  player.SliderPressed();
  player.SliderReleased(3000);
  player.mnuPlay();
  EXPECT_EQ(Mode(), "playing");
  EXPECT_EQ(test::TextOf(device.Send("status mci position", 16)), "0");
}

TEST_F(MusicPlayerTest, PlaysTheFileThatIsNamedWhateverTheCurrentRowIs) {
  Start(1);
  list.SelectOnly(2);
  player.Play("/m/b.mid");
  EXPECT_EQ(device.OpenFile("mci"), "/m/b.mid");
  EXPECT_EQ(player.Paths().playFilePath, "/m/b.mid");
  EXPECT_EQ(ports.log.StartingWith("shell"), Texts());
}

// The timer.

TEST_F(MusicPlayerTest, ATickMovesSliderAndLabel) {
  Start(3);
  device.Pass(61500);
  player.timMCIChecker();
  EXPECT_EQ(panel.position, 61500);
  EXPECT_EQ(panel.time, "01:02 / 03:05");
}

TEST_F(MusicPlayerTest, ATickAsksForModeAndPositionOnce) {
  Start(1);
  for (const bool held : {false, true}) {
    if (held) player.SliderPressed();
    device.Pass(50);
    device.TakeSent();
    player.timMCIChecker();
    EXPECT_EQ(device.TakeSent(), Texts({"status MCI mode", "set MCI time format milliseconds", "status MCI position"}));
  }
}

TEST_F(MusicPlayerTest, ATickTouchesSliderAndLabelOnlyWhenTheyChange) {
  Start(4);
  Pass(500);
  const auto touched = [this](std::int32_t passed) {
    panel.positionsSet = panel.timesSet = movie.positionsSet = movie.timesSet = 0;
    device.Pass(passed);
    player.timMCIChecker();
    return Counts({panel.positionsSet, movie.positionsSet, panel.timesSet, movie.timesSet});
  };
  EXPECT_EQ(touched(0), Counts({0, 0, 0, 0}));
  EXPECT_EQ(touched(50), Counts({1, 1, 1, 1})) << "the label shows another second";
  EXPECT_EQ(touched(50), Counts({1, 1, 0, 0}));
  player.SliderPressed();
  EXPECT_EQ(touched(1000), Counts({0, 0, 1, 1}));
}

TEST_F(MusicPlayerTest, ATickThatWasPendingDuringAPauseDoesNothing) {
  Start(1);
  Pass(1000);
  player.cmdPlay();
  device.TakeSent();
  device.Pass(50);
  player.timMCIChecker();
  EXPECT_EQ(device.TakeSent(), Texts());
}

TEST_F(MusicPlayerTest, ATickDoesNotMoveAHeldSliderButUpdatesTheLabel) {
  Start(1);
  Pass(1000);
  player.SliderPressed();
  Pass(1000);
  EXPECT_EQ(panel.position, 1000);
  EXPECT_EQ(panel.time, "00:02 / 00:04");
}

TEST_F(MusicPlayerTest, StopsAtTheEnd) {
  Start(1);
  Pass(3950);
  device.TakeSent();
  Pass(50);
  EXPECT_EQ(device.TakeSent(), Texts({"status MCI mode", "Stop MCI", "Close MCI", "set MCI time format milliseconds",
                                      "status MCI position"}));
  EXPECT_EQ(panel.interval, 0);
  EXPECT_EQ(panel.button, PlayButton::kPlay);
  EXPECT_EQ(Statuses().back(), "panel player: 停止： a.mp3");
  EXPECT_EQ(player.Paths().playingFilePath, "");
  EXPECT_EQ(panel.position, 0);
  EXPECT_EQ(panel.time, "00:00 / 00:04");
}

TEST_F(MusicPlayerTest, RepeatsAtTheEnd) {
  options.player.repeat = true;
  options.player.continuous = true;
  Start(1);
  Pass(3950);
  const std::string label = panel.time;
  device.TakeSent();
  Pass(50);
  EXPECT_EQ(device.TakeSent(), Texts({"status MCI mode", "Seek MCI to Start", "Play MCI"}));
  EXPECT_EQ(panel.time, label) << "not in this tick";
  EXPECT_EQ(panel.interval, 50);
  Pass(1000);
  EXPECT_EQ(panel.position, 1000);
}

TEST_F(MusicPlayerTest, DoesNotRepeatWhileTheSliderIsHeld) {
  options.player.repeat = true;
  Start(1);
  player.SliderPressed();
  Pass(4500);
  EXPECT_EQ(Mode(), "stopped");
  player.SliderReleased(2000);
  EXPECT_EQ(Mode(), "stopped") << "the release found neither playing nor paused";
  EXPECT_EQ(test::TextOf(device.Send("status mci position", 16)), "2000");
}

// Continuous play.

TEST_F(MusicPlayerTest, PlaysTheNextPlayableRowAndStartsOverAfterTheLast) {
  options.player.continuous = true;
  Start(1);
  Pass(4000);
  EXPECT_EQ(device.OpenFile("mci"), "/m/b.mid") << "past the page";
  EXPECT_EQ(player.Paths().playFilePath, "/m/b.mid");
  EXPECT_EQ(Statuses().back(), "panel player: 再生中： b.mid");
  Pass(185000);
  EXPECT_EQ(device.OpenFile("mci"), "/m/clip.avi");
  EXPECT_TRUE(movie.open);
  Pass(9000);
  EXPECT_EQ(device.OpenFile("mci"), "/m/a.mp3");
  EXPECT_FALSE(movie.open);
  EXPECT_EQ(panel.interval, 50);
}

TEST_F(MusicPlayerTest, PlaysOneFileUnlessTheSettingIsOn) {
  options.player.continuous = false;
  Start(1);
  Pass(4500);
  ASSERT_EQ(Mode(), "");
  EXPECT_EQ(Statuses().back(), "panel player: 停止： a.mp3");
}

TEST_F(MusicPlayerTest, PlaysTheOnlyPlayableRowAgain) {
  options.player.continuous = true;
  list.RemoveWhere([](int index, const FileRow&) { return index > 2; });
  Start(1);
  Pass(4000);
  EXPECT_EQ(device.OpenFile("mci"), "/m/a.mp3");
  EXPECT_EQ(Mode(), "playing");
  EXPECT_EQ(test::TextOf(device.Send("status mci position", 16)), "0");
}

TEST_F(MusicPlayerTest, GoesOnWithTheFirstRowWhenThePlayingOneIsGone) {
  options.player.continuous = true;
  Start(3);
  list.RemoveWhere([](int index, const FileRow&) { return index == 3; });
  Pass(185000);
  EXPECT_EQ(device.OpenFile("mci"), "/m/a.mp3");
}

TEST_F(MusicPlayerTest, OpensACurrentRowOfAnotherKindInsteadOfTheNextFile) {
  options.player.continuous = true;
  Start(1);
  list.SelectOnly(2);
  Pass(4000);
  EXPECT_TRUE(ports.log.Has("shell opens /m/page.html"));
  EXPECT_EQ(device.OpenFile("mci"), "");
  EXPECT_EQ(panel.interval, 0);
  EXPECT_EQ(panel.button, PlayButton::kPlay);
  EXPECT_EQ(Statuses().back(), "panel player: 停止： a.mp3");
}

TEST_F(MusicPlayerTest, ContinuousPlayGoesPastAPictureThatCannotBeShown) {
  options.player.continuous = true;
  movie.canShow = false;
  Start(3);
  Pass(185000);
  EXPECT_EQ(Statuses().back(), "panel player: 再生できません： clip.avi");
  EXPECT_EQ(panel.interval, 1500) << "long enough to be read";
  EXPECT_EQ(panel.button, PlayButton::kPlay);
  EXPECT_EQ(panel.time, "00:00 / 00:00");
  EXPECT_EQ(device.OpenFile("mci"), "");
  EXPECT_TRUE(ports.log.Has("pointer normal"));
  player.timMCIChecker();
  EXPECT_EQ(device.OpenFile("mci"), "/m/a.mp3");
  EXPECT_EQ(Statuses().back(), "panel player: 再生中： a.mp3");
  EXPECT_EQ(panel.interval, 50);
  EXPECT_THAT(ports.boxes.Shown(), testing::IsEmpty());
}

TEST_F(MusicPlayerTest, ContinuousPlayGoesPastLengthsThatAreNoTimesForOneRound) {
  options.player.continuous = true;
  Start(1);
  device.scripted["status mci length"] = "99999999999";
  Pass(4000);
  for (int ticks = 0; ticks < 100 && panel.interval != 0; ++ticks) player.timMCIChecker();
  EXPECT_EQ(ports.log.StartingWith("panel player: 再生できません"),
            Texts({"panel player: 再生できません： b.mid", "panel player: 再生できません： clip.avi",
                   "panel player: 再生できません： a.mp3"}));
  EXPECT_EQ(panel.interval, 0);
  EXPECT_EQ(panel.time, "00:00 / 00:00");
  EXPECT_EQ(player.Paths().playingFilePath, "");
  EXPECT_THAT(ports.boxes.Shown(), testing::IsEmpty());
}

TEST_F(MusicPlayerTest, EndsWhenTheListHasNothingToPlayAnyMore) {
  options.player.continuous = true;
  for (const bool empty : {false, true}) {
    MusicPlayerTest::list.SelectNone();
    Start(1);
    list.RemoveWhere([empty](int index, const FileRow&) { return empty || index != 2; });
    Pass(4000);
    EXPECT_EQ(panel.interval, 0);
    EXPECT_EQ(panel.button, PlayButton::kPlay);
    EXPECT_EQ(Statuses().back(), "panel player: 停止： a.mp3");
    list.Clear();
    AddRow("/m/a.mp3", "MP3", 4000);
  }
}

// The slider.

TEST_F(MusicPlayerTest, ReleasedWhilePlayingItGoesOnFromThere) {
  Start(1);
  Pass(500);
  player.SliderPressed();
  EXPECT_TRUE(player.SliderSeeking());
  device.TakeSent();
  player.SliderReleased(3000);
  EXPECT_EQ(device.TakeSent(),
            Texts({"status MCI mode", "set MCI time format milliseconds", "seek MCI to 3000", "Play MCI"}));
  EXPECT_FALSE(player.SliderSeeking());
  EXPECT_EQ(Mode(), "playing");
  Pass(500);
  EXPECT_EQ(panel.position, 3500);
}

TEST_F(MusicPlayerTest, ReleasedWhilePausedItIsStoppedThereAndPlayGoesOn) {
  Start(1);
  player.cmdPlay();
  player.SliderPressed();
  device.TakeSent();
  player.SliderReleased(3000);
  EXPECT_EQ(device.TakeSent(), Texts({"status MCI mode", "set MCI time format milliseconds", "seek MCI to 3000"}));
  EXPECT_EQ(Mode(), "stopped");
  player.cmdStop();
  EXPECT_EQ(device.OpenFile("mci"), "/m/a.mp3") << "the stop button does nothing";
  player.cmdPlay();
  EXPECT_EQ(Mode(), "playing");
  EXPECT_EQ(test::TextOf(device.Send("status mci position", 16)), "3000");
  EXPECT_EQ(Statuses().back(), "panel player: 再生中： a.mp3");
}

TEST_F(MusicPlayerTest, StoppedAtAPointAnotherChosenFileIsPlayedUnderItsOwnName) {
  Start(4);
  player.cmdPlay();
  player.SliderPressed();
  player.SliderReleased(3000);
  Select(3);
  player.cmdPlay();
  EXPECT_EQ(device.OpenFile("mci"), "/m/b.mid");
  EXPECT_EQ(player.Paths().playingFilePath, "/m/b.mid");
  EXPECT_FALSE(movie.open);
}

TEST_F(MusicPlayerTest, ReleasedInAnyOtherModeTheLabelFollows) {
  Start(3);
  player.cmdPlay();
  player.SliderPressed();
  player.SliderReleased(1000);
  device.TakeSent();
  player.SliderPressed();
  player.SliderReleased(61500);
  EXPECT_EQ(device.TakeSent(), Texts({"status MCI mode", "set MCI time format milliseconds", "seek MCI to 61500"}));
  EXPECT_EQ(panel.time, "01:02 / 03:05");
}

TEST_F(MusicPlayerTest, ASliderMovedInTheMovieWindowMovesTheMainOne) {
  Start(4);
  player.cmdPlay();
  player.SliderPressed();
  player.SliderReleased(3000);
  EXPECT_EQ(panel.position, 3000);
  EXPECT_EQ(movie.position, 3000);
}

// Times.

TEST(TimeText, IsMinutesAndSecondsWithHalvesToEven) {
  EXPECT_EQ(TimeText(0, 0), "00:00 / 00:00");
  EXPECT_EQ(TimeText(1500, 2500), "00:02 / 00:02");
  EXPECT_EQ(TimeText(500, 3500), "00:00 / 00:04");
  EXPECT_EQ(TimeText(59500, 59499), "01:00 / 00:59");
  EXPECT_EQ(TimeText(5405000, 6000000), "90:05 / 100:00");
  EXPECT_EQ(TimeText(2147483647, -61000), "35791:24 / 01:01");
}

TEST(SliderTip, IsThePositionAlone) {
  EXPECT_EQ(MusicPlayer::SliderTip(0), "00:00");
  EXPECT_EQ(MusicPlayer::SliderTip(61500), "01:02");
  EXPECT_EQ(MusicPlayer::SliderTip(6000000), "100:00");
}

// The movie window.

TEST_F(MusicPlayerTest, APictureOpensTheMovieWindowBeforeItPlays) {
  Select(4);
  player.cmdPlay();
  EXPECT_TRUE(movie.open);
  EXPECT_EQ(player.Length(), 9000);
  Pass(1000);
  EXPECT_EQ(movie.position, 1000);
  EXPECT_EQ(movie.time, " 00:01 / 00:09");
}

TEST_F(MusicPlayerTest, ATickDoesNotMoveTheMovieWindowsHeldSlider) {
  Start(4);
  Pass(1000);
  player.SliderPressed();
  Pass(1000);
  EXPECT_EQ(movie.position, 1000);
  EXPECT_EQ(movie.time, " 00:02 / 00:09");
}

TEST_F(MusicPlayerTest, StopAndEndCloseTheMovieWindow) {
  Start(4);
  player.cmdStop();
  EXPECT_FALSE(movie.open);
  EXPECT_EQ(Statuses().back(), "panel player: 停止： clip.avi");
  EXPECT_EQ(player.Paths().playingFilePath, "");
  Start(4);
  Pass(9000);
  EXPECT_FALSE(movie.open);
  EXPECT_EQ(device.OpenFile("mci"), "");
}

TEST_F(MusicPlayerTest, TheMovieWindowPausesAndGoesOn) {
  Start(4);
  EXPECT_TRUE(player.IsPlaying());
  player.PauseOrGoOn();
  EXPECT_FALSE(player.IsPlaying());
  EXPECT_EQ(Mode(), "paused");
  EXPECT_EQ(Statuses().back(), "panel player: 一時停止： clip.avi");
  EXPECT_EQ(panel.button, PlayButton::kPlay);
  EXPECT_EQ(panel.interval, 0);
  player.PauseOrGoOn();
  EXPECT_EQ(Mode(), "playing");
  EXPECT_EQ(Statuses().back(), "panel player: 再生中： clip.avi");
  EXPECT_EQ(panel.button, PlayButton::kPause);
  EXPECT_EQ(panel.interval, 50);
}

TEST_F(MusicPlayerTest, TheMovieWindowsButtonShowsTheSameAsTheMainWindows) {
  Start(4);
  EXPECT_EQ(movie.button, PlayButton::kPause);
  player.cmdPlay();
  EXPECT_EQ(movie.button, PlayButton::kPlay);
  player.PauseOrGoOn();
  EXPECT_EQ(movie.button, PlayButton::kPause);
}

TEST_F(MusicPlayerTest, ClosingTheMovieWindowStopsPlayback) {
  for (const bool paused : {false, true}) {
    Start(4);
    Pass(1000);
    if (paused) player.cmdPlay();
    device.TakeSent();
    player.MovieClosed();
    EXPECT_EQ(device.TakeSent(), Texts({"status MCI mode", "Stop MCI", "Close MCI"}));
    EXPECT_EQ(Statuses().back(), "panel player: 停止： clip.avi");
    EXPECT_EQ(panel.interval, 0);
    EXPECT_EQ(panel.time, "00:00 / 00:00");
    EXPECT_EQ(panel.button, PlayButton::kPlay);
    EXPECT_EQ(player.Paths().playingFilePath, "");
  }
}

TEST_F(MusicPlayerTest, AMovieWindowClosedWhileStoppedAtAPointComesBackWithPlay) {
  Start(4);
  player.cmdPlay();
  player.SliderPressed();
  player.SliderReleased(3000);
  player.MovieClosed();
  EXPECT_EQ(device.OpenFile("mci"), "/m/clip.avi");
  player.cmdPlay();
  EXPECT_EQ(movie.shown, 2);
  EXPECT_EQ(test::TextOf(device.Send("status mci position", 16)), "3000");
}

TEST_F(MusicPlayerTest, TheMovieWindowGoesOnWhereItsSliderHasLeftIt) {
  Start(4);
  player.PauseOrGoOn();
  player.SliderPressed();
  player.SliderReleased(3000);
  ASSERT_EQ(Mode(), "stopped");
  player.PauseOrGoOn();
  EXPECT_EQ(Mode(), "playing");
  EXPECT_EQ(test::TextOf(device.Send("status mci position", 16)), "3000");
  EXPECT_EQ(panel.interval, 50);
}

TEST_F(MusicPlayerTest, AMovieWindowClosedWhileItsSliderIsHeldLeavesThePlayerIdle) {
  Start(4);
  player.SliderPressed();
  player.MovieClosed();
  EXPECT_FALSE(player.SliderSeeking());
  device.TakeSent();
  player.SliderReleased(3000);
  EXPECT_EQ(device.TakeSent(), Texts());
  EXPECT_EQ(panel.time, "00:00 / 00:00");
  EXPECT_EQ(panel.position, 0);
}

// What the list's commands need.

TEST_F(MusicPlayerTest, ReleasesTheFileThatItPlaysOrHasPaused) {
  for (const bool paused : {false, true}) {
    Start(4);
    Pass(1000);
    if (paused) player.cmdPlay();
    player.ReleaseFile("/m/clip.avi");
    EXPECT_EQ(device.OpenFile("mci"), "");
    EXPECT_FALSE(movie.open);
    EXPECT_EQ(panel.interval, 0);
    EXPECT_EQ(panel.position, 0);
    EXPECT_EQ(panel.time, "00:00 / 00:00");
    EXPECT_EQ(panel.button, PlayButton::kPlay);
    EXPECT_EQ(player.Paths().playingFilePath, "");
    EXPECT_TRUE(ports.log.Has("panel player: 停止： clip.avi"));
    EXPECT_EQ(Statuses().back(), kIdle);
  }
}

TEST_F(MusicPlayerTest, ReleasesAFileStoppedAtAPoint) {
  Start(1);
  player.cmdPlay();
  player.SliderPressed();
  player.SliderReleased(3000);
  player.ReleaseFile("/m/a.mp3");
  EXPECT_EQ(device.OpenFile("mci"), "");
  EXPECT_EQ(player.Paths().playingFilePath, "");
  EXPECT_EQ(Statuses().back(), kIdle);
}

TEST_F(MusicPlayerTest, GoesOnWhenAnotherFileIsReleased) {
  Start(1);
  player.ReleaseFile("/m/b.mid");
  player.FileRemoved("/m/b.mid");
  EXPECT_EQ(Mode(), "playing");
  EXPECT_EQ(ports.log.Events(), Texts());
}

TEST_F(MusicPlayerTest, ARenamedFileStaysChosen) {
  Select(1);
  player.FileMoved("/m/b.mid", "/m/c.mid");
  EXPECT_EQ(player.Paths().playFilePath, "/m/a.mp3");
  player.FileMoved("/m/a.mp3", "/m/new.mp3");
  EXPECT_EQ(player.Paths().playFilePath, "/m/new.mp3");
}

TEST_F(MusicPlayerTest, ARemovedFileIsNoLongerChosen) {
  Start(1);
  player.FileRemoved("/m/a.mp3");
  EXPECT_EQ(device.OpenFile("mci"), "");
  EXPECT_EQ(player.Paths().playFilePath, "");
  EXPECT_EQ(Statuses().back(), kIdle);
}

TEST_F(MusicPlayerTest, StopsWhateverIsLoaded) {
  Start(1);
  player.Stop();
  EXPECT_EQ(device.OpenFile("mci"), "");
  Start(1);
  player.cmdPlay();
  player.SliderPressed();
  player.SliderReleased(3000);
  player.Stop();
  EXPECT_EQ(device.OpenFile("mci"), "");
  ports.log.Clear();
  device.TakeSent();
  player.Stop();
  EXPECT_EQ(device.TakeSent(), Texts());
  EXPECT_EQ(ports.log.Events(), Texts());
}

TEST_F(MusicPlayerTest, ClosesEverythingAtTheEndOfTheProgram) {
  Start(4);
  device.TakeSent();
  player.Shutdown();
  EXPECT_FALSE(movie.open);
  EXPECT_EQ(panel.interval, 0);
  const Texts sent = device.TakeSent();
  ASSERT_GE(sent.size(), 2u);
  EXPECT_EQ(sent[sent.size() - 2], "Close MCI");
  EXPECT_EQ(sent.back(), "close all");
}

TEST_F(MusicPlayerTest, KnowsTheLengthOfTheChosenFile) {
  Select(3);
  EXPECT_EQ(player.LengthOfChosenFile(), 185000);
}

}  // namespace
}  // namespace quillon
