#include "multimedia/windows/DeviceFixture.h"
#include "support/MediaBuilders.h"

namespace quillon::test {
namespace {

using ::testing::AnyOf;

class WaveTest : public DeviceFixture {
 protected:
  std::string Wave(std::uint32_t milliseconds, const std::string& name = "a.wav") {
    return folder.Write(name, WaveFile(milliseconds));
  }
};

TEST_F(WaveTest, TheLengthIsThatOfTheSound) {
  for (const std::uint32_t milliseconds : {50U, 1000U, 2345U, 600000U}) {
    ASSERT_EQ(Open(Wave(milliseconds)), kDone);
    EXPECT_NEAR(static_cast<double>(Length()), milliseconds, 50);
    EXPECT_EQ(Error("Close X"), kDone);
  }
}

TEST_F(WaveTest, WhatHasBeenOpenedIsStoppedAtItsStart) {
  ASSERT_EQ(Open(Wave(500)), kDone);
  EXPECT_EQ(Mode(), "stopped");
  EXPECT_EQ(Position(), 0);
}

TEST_F(WaveTest, PlayingAdvancesThePositionAndStopsAtTheEnd) {
  if (!HasSound()) GTEST_SKIP() << kNoSound;
  ASSERT_EQ(Open(Wave(1500)), kDone);
  const auto start = Clock::now();
  ASSERT_EQ(Error("Play X"), kDone);
  EXPECT_EQ(Mode(), "playing");
  EXPECT_TRUE(AwaitPositionAbove(100));
  EXPECT_EQ(Mode(), "playing");
  EXPECT_TRUE(AwaitStop());
  EXPECT_GT(Clock::now() - start, std::chrono::milliseconds(1000));
  EXPECT_NEAR(static_cast<double>(Position()), 1500, 50);
}

TEST_F(WaveTest, APauseKeepsThePositionUntilPlay) {
  if (!HasSound()) GTEST_SKIP() << kNoSound;
  ASSERT_EQ(Open(Wave(3000)), kDone);
  ASSERT_EQ(Error("Play X"), kDone);
  ASSERT_TRUE(AwaitPositionAbove(300));
  EXPECT_EQ(Error("Pause X"), kDone);
  EXPECT_EQ(Mode(), "paused");
  const std::int64_t held = Position();
  std::this_thread::sleep_for(std::chrono::milliseconds(500));
  EXPECT_EQ(Position(), held);
  EXPECT_EQ(Error("Play X"), kDone);
  EXPECT_EQ(Mode(), "playing");
  EXPECT_TRUE(AwaitPositionAbove(held));
}

TEST_F(WaveTest, ASeekStopsAtItsPositionAndPlayContinuesThere) {
  if (!HasSound()) GTEST_SKIP() << kNoSound;
  ASSERT_EQ(Open(Wave(5000)), kDone);
  ASSERT_EQ(Error("Play X"), kDone);
  EXPECT_EQ(Error("seek X to 4000"), kDone);
  EXPECT_EQ(Mode(), "stopped");
  EXPECT_EQ(Position(), 4000);
  EXPECT_EQ(Error("Play X"), kDone);
  EXPECT_EQ(Mode(), "playing");
  EXPECT_GE(Position(), 4000);
  EXPECT_EQ(Error("Seek X to Start"), kDone);
  EXPECT_EQ(Mode(), "stopped");
  EXPECT_EQ(Position(), 0);
}

TEST_F(WaveTest, ASeekOutOfTheFileIsRefused) {
  ASSERT_EQ(Open(Wave(1000)), kDone);
  ASSERT_EQ(Error("seek X to 400"), kDone);
  EXPECT_EQ(Error("seek X to 5000"), MediaError::kOutOfRange);
  EXPECT_EQ(Error("seek X to abc"), MediaError::kBadNumber);
  EXPECT_EQ(Position(), 400);
}

TEST_F(WaveTest, AnAliasInUseKeepsItsFile) {
  ASSERT_EQ(Open(Wave(1000)), kDone);
  EXPECT_EQ(Open(Wave(2000, "b.wav")), MediaError::kAliasInUse);
  EXPECT_EQ(Length(), 1000);
}

TEST_F(WaveTest, ASecondAliasDoesNotDisturbThePlayingOne) {
  if (!HasSound()) GTEST_SKIP() << kNoSound;
  ASSERT_EQ(Open(Wave(3000)), kDone);
  ASSERT_EQ(Error("Play X"), kDone);
  ASSERT_EQ(Open(Wave(700, "b.wav"), "MCILENGTH"), kDone);
  EXPECT_EQ(Length("MCILENGTH"), 700);
  EXPECT_EQ(Error("Close MCILENGTH"), kDone);
  EXPECT_EQ(Mode("MCILENGTH"), "");
  EXPECT_EQ(Mode(), "playing");
  EXPECT_TRUE(AwaitPositionAbove(0));
}

TEST_F(WaveTest, CloseAllClosesEveryAlias) {
  ASSERT_EQ(Open(Wave(1000)), kDone);
  ASSERT_EQ(Open(Wave(700, "b.wav"), "Y"), kDone);
  EXPECT_EQ(Error("close all"), kDone);
  EXPECT_NE(Error("status X mode"), kDone);
  EXPECT_NE(Error("status Y mode"), kDone);
}

TEST_F(WaveTest, WhatIsOpenIsClosedWithTheDevice) {
  ASSERT_EQ(Open(Wave(1000)), kDone);
  device.reset();
  device = MakeCommandDevice();
  EXPECT_NE(Error("status X mode"), kDone);
  EXPECT_EQ(Open(folder.At("a.wav")), kDone);
}

TEST_F(WaveTest, LettersMayHaveAnyCase) {
  ASSERT_EQ(Open(Wave(1000), "Song"), kDone);
  EXPECT_EQ(Text("STATUS song MODE"), "stopped");
  EXPECT_EQ(Error("pLaY SONG"), kDone);
}

TEST_F(WaveTest, ALongReplyIsCut) {
  ASSERT_EQ(Open(Wave(600000)), kDone);
  EXPECT_EQ(Send("status X mode", 4), CommandReply("sto"));
  EXPECT_EQ(Send("status X length", 4), CommandReply("600"));
  EXPECT_EQ(Send("status X length", 1), CommandReply(""));
  EXPECT_EQ(Send("status X length", 0), CommandReply(""));
}

TEST_F(WaveTest, AnyNameAndLengthOfPathOpens) {
  if (!HasSound()) GTEST_SKIP() << "DirectShow, which opens what is left, needs a sound device";
  const std::string longFolder(90, 'd');
  for (const std::string& name : {std::string("荒城の月 (第二番).wav"), std::string("a & b's 100%.wav"),
                                  std::string("🎵.wav"), longFolder + "/" + longFolder + "/a.wav"}) {
    SCOPED_TRACE(name);
    ASSERT_EQ(Open(Wave(1000, name)), kDone);
    EXPECT_EQ(Length(), 1000);
    EXPECT_EQ(Error("Close X"), kDone);
  }
}

/// It must not fall back to DirectShow, which opens files that the extension's device does not open.
TEST_F(WaveTest, APathOfMoreThan260CharactersOpensByItsDevice) {
  const std::string longFolder(90, 'd');
  const std::string path = Wave(1000, longFolder + "/" + longFolder + "/" + longFolder + "/長い 曲.wav");
  ASSERT_GT(path.size(), 260U);
  ASSERT_EQ(Open(path), kDone);
  EXPECT_EQ(Text("capability X device type"), "waveaudio");
  EXPECT_EQ(Length(), 1000);
}

TEST_F(WaveTest, UnplayableFilesDoNotOpen) {
  const std::string whole = WaveFile(1000);
  const struct {
    const char* name;
    std::string bytes;
  } kCases[] = {{"empty.wav", ""},
                {"text.wav", "This is no sound. This is no sound."},
                {"head.wav", whole.substr(0, 8)},
                {"form.wav", whole.substr(0, 20)},
                {"text.avi", "This is no film. This is no film."},
                {"head.avi", AviFile()},
                {"text.mid", "This is no song. This is no song."},
                {"text.mpg", "This is no film. This is no film."},
                {"head.mpg", MpegFile()}};
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.name);
    const auto start = Clock::now();
    EXPECT_THAT(Open(folder.Write(row.name, row.bytes)), AnyOf(MediaError::kInvalidFile, MediaError::kInternal));
    EXPECT_LT(Clock::now() - start, kPatience);
    EXPECT_EQ(Mode(), "");
    EXPECT_EQ(Length(), 0);
  }
}

TEST_F(WaveTest, AMissingFileIsNotFound) {
  EXPECT_EQ(Open(folder.At("missing.wav")), MediaError::kFileNotFound);
  EXPECT_EQ(Mode(), "");
}

TEST_F(WaveTest, SoundHasNoPicture) {
  ASSERT_EQ(Open(Wave(1000)), kDone);
  EXPECT_EQ(Text("where X source"), "");
}

TEST_F(WaveTest, NothingOpenAnswersNothing) {
  EXPECT_NE(Error("status X mode"), kDone);
  EXPECT_EQ(Mode(), "");
  EXPECT_NE(Error("Play X"), kDone);
  EXPECT_EQ(Error("Close X"), MediaError::kNotOpen);
}

}  // namespace
}  // namespace quillon::test
