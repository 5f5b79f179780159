#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/multimedia/basMCIControl.h"
#include "support/CommandRecorder.h"
#include "support/FakeDevice.h"
#include "support/MemoryFileSystem.h"
#include "support/Replies.h"

namespace quillon {
namespace {

using Texts = std::vector<std::string>;
using Sizes = std::vector<int>;

constexpr const char* kSong = "C:\\my songs\\a b.mp3";

struct Fixture {
  test::CommandRecorder device;
  test::MemoryFileSystem files{{PathStyle::kWindows, true}};
  basMCIControl mci{device, files};

  Fixture() { files.AddFile(kSong, "x"); }
};

TEST(basMCIControl, SendsTheStringOfEachCommand) {
  using Command = std::function<MediaStatus(MediaDevice&)>;
  const std::vector<std::pair<Command, std::string>> cases = {
      {[](MediaDevice& mci) { return mci.Open(kSong); }, "Open \"C:\\my songs\\a b.mp3\" alias MCI"},
      {[](MediaDevice& mci) { return mci.Play(); }, "Play MCI"},
      {[](MediaDevice& mci) { return mci.Stop(); }, "Stop MCI"},
      {[](MediaDevice& mci) { return mci.Pause(); }, "Pause MCI"},
      {[](MediaDevice& mci) { return mci.SeekToStart(); }, "Seek MCI to Start"},
      {[](MediaDevice& mci) { return mci.Close(); }, "Close MCI"},
      {[](MediaDevice& mci) { return mci.SetWindow(4294967300U); }, "window MCI handle 4294967300"},
      {[](MediaDevice& mci) {
         return mci.PutPicture({640, 480});
       },
       "put MCI destination at 0 0 640 480"},
      {[](MediaDevice& mci) { return mci.CloseAll(); }, "close all"},
  };
  for (const auto& [send, command] : cases) {
    Fixture f;
    EXPECT_EQ(send(f.mci), test::kDone) << command;
    EXPECT_EQ(f.device.sent, Texts({command}));
    EXPECT_EQ(f.device.sizes, Sizes({0}));
    f.device.Fail(command, MediaError::kNotReady);
    EXPECT_EQ(send(f.mci), MediaError::kNotReady) << command;
  }
}

TEST(Open, SendsNothingWithoutTheFile) {
  Fixture f;
  ASSERT_FALSE(f.files.Remove(kSong));
  EXPECT_EQ(f.mci.Open(kSong), MediaError::kFileNotFound);
  EXPECT_EQ(f.mci.Open("C:\\my songs"), MediaError::kFileNotFound) << "a folder is no file";
  EXPECT_EQ(f.mci.Open(""), MediaError::kFileNotFound);
  EXPECT_EQ(f.device.sent, Texts());
}

TEST(Open, OpensAHiddenFile) {
  Fixture f;
  f.files.Hide(kSong);
  EXPECT_EQ(f.mci.Open(kSong), test::kDone);
  EXPECT_EQ(f.device.sent.size(), 1u);
}

TEST(Mode, LooksAtTheStartOfTheAnswerOnly) {
  const std::vector<std::pair<std::string, MediaMode>> cases = {
      {"playing", MediaMode::kPlaying},    {"playing fast", MediaMode::kPlaying}, {"paused", MediaMode::kPaused},
      {"paused here", MediaMode::kPaused}, {"stopped", MediaMode::kStopped},      {"", MediaMode::kNone},
      {"not ready", MediaMode::kOther},    {"seeking", MediaMode::kOther},        {"pause", MediaMode::kOther},
      {"Playing", MediaMode::kOther},
  };
  for (const auto& [answer, mode] : cases) {
    Fixture f;
    f.device.Answer("status MCI mode", answer);
    EXPECT_EQ(f.mci.Mode(), mode) << answer;
    EXPECT_EQ(f.device.sent, Texts({"status MCI mode"}));
    EXPECT_EQ(f.device.sizes, Sizes({16}));
    f.device.Fail("status MCI mode", MediaError::kNotOpen);
    EXPECT_EQ(f.mci.Mode(), MediaMode::kNone);
  }
}

TEST(Position, SetsTheTimeFormatEveryTimeAndAsks) {
  Fixture f;
  f.device.Answer("status MCI position", "61500");
  EXPECT_EQ(f.mci.Position(), 61500);
  EXPECT_EQ(f.mci.Position(), 61500);
  EXPECT_EQ(f.device.sent, Texts({"set MCI time format milliseconds", "status MCI position",
                                  "set MCI time format milliseconds", "status MCI position"}));
  EXPECT_EQ(f.device.sizes, Sizes({0, 16, 0, 16}));
}

TEST(Position, IsZeroWithNothingOpen) {
  test::FakeDevice device;
  test::MemoryFileSystem files;
  EXPECT_EQ(basMCIControl(device, files).Position(), 0);
}

TEST(Seek, SendsThePositionInDecimal) {
  Fixture f;
  EXPECT_EQ(f.mci.Seek(0), test::kDone);
  f.device.Fail("seek MCI to 90005", MediaError::kOutOfRange);
  EXPECT_EQ(f.mci.Seek(90005), MediaError::kOutOfRange);
  EXPECT_EQ(f.device.sent, Texts({"set MCI time format milliseconds", "seek MCI to 0",
                                  "set MCI time format milliseconds", "seek MCI to 90005"}));
}

TEST(LengthOf, MeasuresUnderAnAliasOfItsOwn) {
  Fixture f;
  f.device.Answer("status MCILENGTH length", "185000");
  EXPECT_EQ(f.mci.LengthOf(kSong), 185000);
  EXPECT_EQ(f.device.sent,
            Texts({"Open \"C:\\my songs\\a b.mp3\" alias MCILENGTH", "set MCILENGTH time format milliseconds",
                   "status MCILENGTH length", "Close MCILENGTH"}));
  EXPECT_EQ(f.device.sizes, Sizes({0, 0, 16, 0}));
}

TEST(LengthOf, IsZeroForAFileThatCannotBeOpened) {
  test::FakeDevice device;
  test::MemoryFileSystem files;
  EXPECT_EQ(basMCIControl(device, files).LengthOf("/gone.mp3"), 0);
}

TEST(LengthOf, DoesNotDisturbWhatPlays) {
  test::FakeDevice device;
  device.AddFile("/a.mp3", 4000);
  device.AddFile("/b.mp3", 9000);
  test::MemoryFileSystem files({PathStyle::kLinux, false});
  files.AddFile("/a.mp3");
  basMCIControl mci(device, files);
  mci.Open("/a.mp3");
  mci.Play();
  device.Pass(1500);
  EXPECT_EQ(mci.LengthOf("/b.mp3"), 9000);
  EXPECT_EQ(mci.Mode(), MediaMode::kPlaying);
  EXPECT_EQ(mci.Position(), 1500);
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

TEST(Picture, AsksWithRoomForALongAnswer) {
  Fixture f;
  f.device.Answer("where MCI source", "0 0 320 240");
  EXPECT_EQ(f.mci.Picture(), (PictureSize{320, 240}));
  EXPECT_EQ(f.device.sent, Texts({"where MCI source"}));
  EXPECT_EQ(f.device.sizes, Sizes({1024}));
  f.device.Fail("where MCI source", MediaError::kNoPicture);
  EXPECT_EQ(f.mci.Picture(), std::nullopt);
}

TEST(PictureIn, TakesTheThirdAndFourthField) {
  EXPECT_EQ(PictureIn("0 0 320 240"), (PictureSize{320, 240}));
  EXPECT_EQ(PictureIn("5 7 1 2 9"), (PictureSize{1, 2}));
  EXPECT_EQ(PictureIn(""), std::nullopt);
  for (const char* none : {" ", "0 0", "0 0 320", "0 0 x y", "0 0 0 240", "0 0 320 -1", "0 0 99999999999 1"}) {
    const std::optional<PictureSize> picture = PictureIn(none);
    ASSERT_TRUE(picture) << none;
    EXPECT_TRUE(picture->width <= 0 || picture->height <= 0) << none;
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
