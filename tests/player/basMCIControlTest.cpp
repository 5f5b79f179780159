#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "player/basMCIControl.h"
#include "support/CommandRecorder.h"
#include "support/FakeDevice.h"
#include "support/MemoryFileSystem.h"

namespace quillon {
namespace {

using Texts = std::vector<std::string>;
using Sizes = std::vector<int>;

struct Fixture {
  test::CommandRecorder device;
  test::MemoryFileSystem files{{PathStyle::kWindows, true}};
  PlayerPaths paths{"C:\\my songs\\a b.mp3", ""};
  basMCIControl mci{device, files, paths};

  Fixture() { files.AddFile(paths.playFilePath, "x"); }
};

TEST(MCICommand, SendsTheStringOfEachVerb) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"open", "Open \"C:\\my songs\\a b.mp3\" alias MCI"},
      {"play", "Play MCI"},
      {"stop", "Stop MCI"},
      {"pause", "Pause MCI"},
      {"prev", "Seek MCI to Start"},
      {"close", "Close MCI"},
      {"PLAY", "Play MCI"},
      {"Open", "Open \"C:\\my songs\\a b.mp3\" alias MCI"},
  };
  for (const auto& [verb, command] : cases) {
    Fixture f;
    EXPECT_EQ(f.mci.MCICommand(verb), 0) << verb;
    EXPECT_EQ(f.device.sent, Texts({command}));
    EXPECT_EQ(f.device.sizes, Sizes({0}));
  }
}

TEST(MCICommand, ReturnsTwoForAnUnknownVerbAndSendsNothing) {
  for (const std::string& verb : Texts({"rewind", "", "play ", "seek"})) {
    Fixture f;
    EXPECT_EQ(f.mci.MCICommand(verb), 2) << verb;
    EXPECT_EQ(f.device.sent, Texts());
  }
}

TEST(MCICommand, OpenReturnsOneWithoutTheFileAndSendsNothing) {
  Fixture f;
  ASSERT_FALSE(f.files.Remove(f.paths.playFilePath));
  EXPECT_EQ(f.mci.MCICommand("open"), 1);
  f.paths.playFilePath = "C:\\my songs";
  EXPECT_EQ(f.mci.MCICommand("open"), 1) << "a folder is no file";
  f.paths.playFilePath.clear();
  EXPECT_EQ(f.mci.MCICommand("open"), 1);
  EXPECT_EQ(f.device.sent, Texts());
}

TEST(MCICommand, OpensAHiddenFile) {
  Fixture f;
  f.files.Hide(f.paths.playFilePath);
  EXPECT_EQ(f.mci.MCICommand("open"), 0);
  EXPECT_EQ(f.device.sent.size(), 1u);
}

TEST(MCICommand, ReturnsZeroWhenTheDeviceFails) {
  Fixture f;
  f.device.Fail("Play MCI", MediaError::kNotOpen);
  EXPECT_EQ(f.mci.MCICommand("play"), 0);
}

TEST(MCIStatusMode, FillsTheAnswerUpToSixteenCharacters) {
  Fixture f;
  f.device.Answer("status MCI mode", "playing");
  EXPECT_EQ(f.mci.MCIStatusMode(), "playing         ");
  EXPECT_EQ(f.device.sent, Texts({"status MCI mode"}));
  EXPECT_EQ(f.device.sizes, Sizes({16}));
  f.device.Fail("status MCI mode", MediaError::kNotOpen);
  EXPECT_EQ(f.mci.MCIStatusMode(), "                ");
}

TEST(Mode, LooksAtTheStartOfTheAnswerOnly) {
  const std::vector<std::pair<std::string, MCIMode>> cases = {
      {"playing", MCIMode::kPlaying},    {"playing fast", MCIMode::kPlaying}, {"paused", MCIMode::kPaused},
      {"paused here", MCIMode::kPaused}, {"stopped", MCIMode::kStopped},      {"", MCIMode::kNone},
      {"not ready", MCIMode::kOther},    {"seeking", MCIMode::kOther},        {"pause", MCIMode::kOther},
      {"Playing", MCIMode::kOther},
  };
  for (const auto& [answer, mode] : cases) {
    Fixture f;
    f.device.Answer("status MCI mode", answer);
    EXPECT_EQ(f.mci.Mode(), mode) << answer;
  }
}

TEST(MCIPosition, SetsTheTimeFormatEveryTimeAndAsks) {
  Fixture f;
  f.device.Answer("status MCI position", "61500");
  EXPECT_EQ(f.mci.MCIPosition(), 61500);
  EXPECT_EQ(f.mci.MCIPosition(), 61500);
  EXPECT_EQ(f.device.sent, Texts({"set MCI time format milliseconds", "status MCI position",
                                  "set MCI time format milliseconds", "status MCI position"}));
  EXPECT_EQ(f.device.sizes, Sizes({0, 16, 0, 16}));
}

TEST(MCIPosition, IsZeroWithNothingOpen) {
  test::FakeDevice device;
  test::MemoryFileSystem files;
  PlayerPaths paths;
  basMCIControl mci(device, files, paths);
  EXPECT_EQ(mci.MCIPosition(), 0);
}

TEST(MCISeek, SendsThePositionInDecimal) {
  Fixture f;
  f.mci.MCISeek(0);
  f.mci.MCISeek(90005);
  EXPECT_EQ(f.device.sent, Texts({"set MCI time format milliseconds", "seek MCI to 0",
                                  "set MCI time format milliseconds", "seek MCI to 90005"}));
}

TEST(MCIFileLength, MeasuresUnderAnAliasOfItsOwn) {
  Fixture f;
  f.device.Answer("status MCILENGTH length", "185000");
  EXPECT_EQ(f.mci.MCIFileLength(), 185000);
  EXPECT_EQ(f.device.sent,
            Texts({"Open \"C:\\my songs\\a b.mp3\" alias MCILENGTH", "set MCILENGTH time format milliseconds",
                   "status MCILENGTH length", "Close MCILENGTH"}));
  EXPECT_EQ(f.device.sizes, Sizes({0, 0, 16, 0}));
}

TEST(MCIFileLength, IsZeroForAFileThatCannotBeOpened) {
  test::FakeDevice device;
  test::MemoryFileSystem files;
  PlayerPaths paths{"/gone.mp3", ""};
  basMCIControl mci(device, files, paths);
  EXPECT_EQ(mci.MCIFileLength(), 0);
}

TEST(MCIFileLength, DoesNotDisturbWhatPlays) {
  test::FakeDevice device;
  device.AddFile("/a.mp3", 4000);
  device.AddFile("/b.mp3", 9000);
  test::MemoryFileSystem files({PathStyle::kLinux, false});
  files.AddFile("/a.mp3");
  PlayerPaths paths{"/a.mp3", ""};
  basMCIControl mci(device, files, paths);
  mci.MCICommand("open");
  mci.MCICommand("play");
  device.Pass(1500);
  paths.playFilePath = "/b.mp3";
  EXPECT_EQ(mci.MCIFileLength(), 9000);
  EXPECT_EQ(mci.Mode(), MCIMode::kPlaying);
  EXPECT_EQ(mci.MCIPosition(), 1500);
  EXPECT_EQ(device.OpenFile("mci"), "/a.mp3");
  EXPECT_EQ(device.OpenFile("mcilength"), "");
}

TEST(Length, SetsTheTimeFormatAndAsks) {
  Fixture f;
  f.device.Answer("status MCI length", "185000");
  EXPECT_EQ(f.mci.Length(), 185000);
  EXPECT_EQ(f.device.sent, Texts({"set MCI time format milliseconds", "status MCI length"}));
  EXPECT_EQ(f.device.sizes, Sizes({0, 16}));
}

TEST(Source, AsksWithRoomForALongAnswer) {
  Fixture f;
  f.device.Answer("where MCI source", "0 0 320 240");
  EXPECT_EQ(f.mci.Source(), "0 0 320 240");
  EXPECT_EQ(f.device.sizes, Sizes({1024}));
}

TEST(Picture, IsSentToAWindowAndStretchedThere) {
  Fixture f;
  f.mci.SetWindow(4294967300u);
  f.mci.SetDestination(640, 480);
  f.mci.CloseAll();
  EXPECT_EQ(f.device.sent, Texts({"window MCI handle 4294967300", "put MCI destination at 0 0 640 480", "close all"}));
}

TEST(PictureSizeOf, TakesTheThirdAndFourthField) {
  EXPECT_EQ(PictureSizeOf("0 0 320 240"), (PictureSize{320, 240}));
  EXPECT_EQ(PictureSizeOf("5 7 1 2 9"), (PictureSize{1, 2}));
  for (const char* none : {"", "0 0", "0 0 320", "0 0 x y", "0 0 0 240", "0 0 320 -1", "0 0 99999999999 1"}) {
    EXPECT_EQ(PictureSizeOf(none), std::nullopt) << none;
  }
}

TEST(ReplyNumber, ReadsAsFarAsANumberGoes) {
  const std::vector<std::pair<std::string, std::optional<std::int32_t>>> cases = {
      {"", 0},
      {"abc", 0},
      {"0", 0},
      {"185000", 185000},
      {" 42", 42},
      {"42 ms", 42},
      {"42abc", 42},
      {"-7", -7},
      {"+7", 7},
      {"1.5", 2},
      {"2.5", 2},
      {"3.5", 4},
      {"-2.5", -2},
      {"1:30", 1},
      {"1.2.3", 1},
      {"1-2", 1},
      {".5", 0},
      {"-", 0},
      {"2147483647", 2147483647},
      {"2147483648", std::nullopt},
      {"-2147483649", std::nullopt},
      {"99999999999999999999", std::nullopt},
  };
  for (const auto& [reply, number] : cases) EXPECT_EQ(ReplyNumber(reply), number) << reply;
}

}  // namespace
}  // namespace quillon
