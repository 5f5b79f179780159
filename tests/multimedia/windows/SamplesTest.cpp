#include <cstdlib>

#include "multimedia/windows/DeviceFixture.h"
#include "platform/FileSystem.h"
#include "support/MediaBuilders.h"

namespace quillon::test {
namespace {

/// Songs and films of three seconds; scripts/media-samples.sh makes them.
class SamplesTest : public DeviceFixture {
 protected:
  void SetUp() override {
    const char* const samples = std::getenv("QUILLON_MEDIA_SAMPLES");
    if (samples == nullptr) GTEST_SKIP() << "QUILLON_MEDIA_SAMPLES names no folder of scripts/media-samples.sh";
    samples_ = samples;
    // Wine shows the root folder as this drive.
    if (samples_.starts_with('/')) samples_ = "Z:" + samples_;
    std::replace(samples_.begin(), samples_.end(), '/', '\\');
    if (GetFileAttributesA((samples_ + "\\tone.mp3").c_str()) == INVALID_FILE_ATTRIBUTES) {
      GTEST_SKIP() << "there are no samples in " << samples_;
    }
  }

  MediaStatus OpenSample(const std::string& name) { return Open(samples_ + '\\' + name); }

  std::string SampleBytes(const std::string& name) {
    const std::unique_ptr<ByteSource> file = OpenSystemFile(samples_ + '\\' + name);
    std::string bytes(file == nullptr ? 0 : 1000, '\0');
    if (file) bytes.resize(file->ReadAt(0, bytes.data(), bytes.size()));
    EXPECT_EQ(bytes.size(), 1000U) << name;
    return bytes;
  }

  static bool HasDisplay() {
    const HWND window = CreateWindowW(L"STATIC", nullptr, WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    return window != nullptr && DestroyWindow(window) != 0;
  }

  /// Plays from start to end, with a pause and a seek in between.
  void PlayThrough(const std::string& name) {
    ASSERT_EQ(OpenSample(name), kDone);
    EXPECT_NEAR(static_cast<double>(Length()), 3000, 150);
    EXPECT_EQ(Error("Play X"), kDone);
    EXPECT_EQ(Mode(), "playing");
    EXPECT_TRUE(AwaitPositionAbove(300));
    EXPECT_EQ(Error("Pause X"), kDone);
    EXPECT_EQ(Mode(), "paused");
    const std::int64_t held = Position();
    EXPECT_GT(held, 300);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_EQ(Position(), held);
    EXPECT_EQ(Error("seek X to 2300"), kDone);
    EXPECT_EQ(Mode(), "stopped");
    EXPECT_NEAR(static_cast<double>(Position()), 2300, 50);
    EXPECT_EQ(Error("Play X"), kDone);
    EXPECT_EQ(Mode(), "playing");
    EXPECT_GE(Position(), 2250);
    EXPECT_TRUE(AwaitStop());
    EXPECT_EQ(Error("Seek X to Start"), kDone);
    EXPECT_EQ(Position(), 0);
    EXPECT_EQ(Error("seek X to 9000"), MediaError::kOutOfRange);
    EXPECT_EQ(Error("Close X"), kDone);
  }

 private:
  std::string samples_;
};

TEST_F(SamplesTest, Mp3PlaysPausesSeeksAndEnds) {
  if (!HasSound()) GTEST_SKIP() << kNoSound;
  PlayThrough("tone.mp3");
}

TEST_F(SamplesTest, AviFilesWithSoundOnlyPlay) {
  if (!HasSound()) GTEST_SKIP() << kNoSound;
  ASSERT_EQ(OpenSample("sound.avi"), kDone);
  EXPECT_NEAR(static_cast<double>(Length()), 3000, 150);
  EXPECT_EQ(Error("Play X"), kDone);
  EXPECT_TRUE(AwaitPositionAbove(300));
  EXPECT_EQ(Error("Close X"), kDone);
}

TEST_F(SamplesTest, WavePlaysPausesSeeksAndEnds) {
  if (!HasSound()) GTEST_SKIP() << kNoSound;
  PlayThrough("tone.wav");
}

TEST_F(SamplesTest, Mp3HasNoPicture) {
  if (!HasSound()) GTEST_SKIP() << kNoSound;
  ASSERT_EQ(OpenSample("tone.mp3"), kDone);
  EXPECT_EQ(Text("where X source"), "");
}

TEST_F(SamplesTest, FilmsPlayPauseSeekAndEnd) {
  if (!HasSound()) GTEST_SKIP() << kNoSound;
  if (!HasDisplay()) GTEST_SKIP() << "there is no display";
  for (const char* const name : {"mpeg1.mpg", "mpeg4.avi", "mjpeg.avi"}) {
    SCOPED_TRACE(name);
    PlayThrough(name);
  }
}

TEST_F(SamplesTest, FilmsPlayFromTheirStartToTheirEnd) {
  if (!HasSound()) GTEST_SKIP() << kNoSound;
  if (!HasDisplay()) GTEST_SKIP() << "there is no display";
  for (const char* const name : {"mpeg1.mpg", "moving.mpg", "mpeg4.avi", "mjpeg.avi"}) {
    SCOPED_TRACE(name);
    ASSERT_EQ(OpenSample(name), kDone);
    const auto start = Clock::now();
    ASSERT_EQ(Error("Play X"), kDone);
    EXPECT_TRUE(AwaitStop());
    EXPECT_GT(Clock::now() - start, std::chrono::milliseconds(2500));
    EXPECT_EQ(Error("Close X"), kDone);
  }
}

TEST_F(SamplesTest, FilmsHaveAPictureSize) {
  if (!HasSound()) GTEST_SKIP() << kNoSound;
  if (!HasDisplay()) GTEST_SKIP() << "there is no display";
  for (const char* const name : {"mpeg1.mpg", "mpeg4.avi", "mjpeg.avi", "raw.avi"}) {
    SCOPED_TRACE(name);
    ASSERT_EQ(OpenSample(name), kDone);
    EXPECT_NEAR(static_cast<double>(Length()), 3000, 150);
    EXPECT_EQ(Text("where X source"), "0 0 160 120");
    EXPECT_EQ(Error("Close X"), kDone);
  }
}

TEST_F(SamplesTest, AFilmThatEndsInItsHeadersDoesNotOpen) {
  for (const char* const name : {"mpeg4.avi", "mjpeg.avi", "raw.avi"}) {
    SCOPED_TRACE(name);
    for (const std::size_t length : {100U, 300U, 500U}) {
      EXPECT_EQ(Open(folder.Write("head.avi", SampleBytes(name).substr(0, length))), MediaError::kInvalidFile);
    }
  }
}

TEST_F(DeviceFixture, MidiPlays) {
  ASSERT_EQ(Open(folder.Write("a.mid", SimpleMidiFile("", "", 4))), kDone);
  EXPECT_NEAR(static_cast<double>(Length()), 2000, 50);
  EXPECT_EQ(Error("seek X to 1500"), kDone);
  EXPECT_EQ(Position(), 1500);
  if (midiOutGetNumDevs() == 0) GTEST_SKIP() << "there is no MIDI device, so its time does not pass";
  EXPECT_EQ(Error("Play X"), kDone);
  EXPECT_EQ(Mode(), "playing");
  EXPECT_TRUE(AwaitPositionAbove(1500));
  EXPECT_TRUE(AwaitStop());
}

}  // namespace
}  // namespace quillon::test
