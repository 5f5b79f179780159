#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "multimedia/linux/FailingSoundSink.h"
#include "multimedia/linux/GstSamples.h"
#include "multimedia/linux/Player.h"
#include "platform/linux/Descriptor.h"
#include "platform/multimedia/linux/Medium.h"
#include "platform/multimedia/linux/Pipeline.h"
#include "support/MediaBuilders.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

using std::chrono::milliseconds;

constexpr int kTolerance = 300;  // includes the time for restarting the pipeline
constexpr int kLength = 1500;
constexpr int kTwoBlocks = 512;  // milliseconds; the third block (4096 samples, 8000 Hz) comes when the second is heard

class FailureTest : public testing::Test {
 protected:
  void OpenWave() { ASSERT_EQ(player_.Open(folder_.Write("a.wav", WaveFile(kLength))), kDone); }

  TempFolder folder_;
  Player player_;
};

TEST_F(FailureTest, LosingTheSoundDeviceContinuesSilently) {
  const FailingSoundSink sink(FailingSoundSink::Blames::kItself);
  OpenWave();
  ASSERT_EQ(player_.Error("play X"), kDone);
  const Stopwatch watch;
  ASSERT_TRUE(player_.WaitForMode("stopped", milliseconds(3 * kLength)));
  EXPECT_NEAR(watch.Elapsed(), kLength, kTolerance);
  EXPECT_EQ(player_.Number("status X position"), kLength);
  EXPECT_EQ(sink.Failures(), 1);
  // The sound device is not requested again.
  ASSERT_EQ(player_.Error("play X from 1000"), kDone);
  EXPECT_TRUE(player_.WaitForMode("stopped", milliseconds(kLength)));
  EXPECT_EQ(sink.Failures(), 1);
}

TEST_F(FailureTest, AnErrorWhilePlayingStopsAndPlayTriesAgain) {
  auto sink = std::make_unique<FailingSoundSink>(FailingSoundSink::Blames::kStream);
  OpenWave();
  ASSERT_EQ(player_.Error("play X"), kDone);
  ASSERT_TRUE(player_.WaitForMode("", milliseconds(3 * kLength)));
  EXPECT_EQ(sink->Failures(), 1);
  EXPECT_EQ(player_.Error("status X mode"), MediaError::kNotReady) << "it has not come to its end";
  const int place = player_.Number("status X position");
  EXPECT_NEAR(place, kTwoBlocks, kTolerance);
  EXPECT_EQ(player_.Error("seek X to start"), kDone);
  EXPECT_EQ(player_.Text("status X mode"), "stopped");
  ASSERT_EQ(player_.Error("play X"), kDone);
  EXPECT_EQ(player_.Text("status X mode"), "playing");
  ASSERT_TRUE(player_.WaitForMode("", milliseconds(3 * kLength)));
  EXPECT_EQ(sink->Failures(), 2);
  sink.reset();
  ASSERT_EQ(player_.Error("play X"), kDone);
  ASSERT_TRUE(player_.WaitForMode("stopped", milliseconds(3 * kLength)));
  EXPECT_EQ(player_.Number("status X position"), kLength);
}

TEST_F(FailureTest, ASeekLosesNeitherSoundNorEnd) {
  const FailingSoundSink sink(FailingSoundSink::Blames::kNobody);
  OpenWave();
  ASSERT_EQ(player_.Error("play X"), kDone);
  Sleep(100);
  for (const char* const place : {"1000", "300", "1200"}) {
    SCOPED_TRACE(place);
    ASSERT_EQ(player_.Error(std::string("seek X to ") + place), kDone);
    ASSERT_EQ(player_.Error("play X"), kDone);
    Sleep(100);
  }
  EXPECT_TRUE(player_.WaitForMode("stopped", milliseconds(2 * kLength)));
  ASSERT_EQ(player_.Error("seek X to start"), kDone);
  ASSERT_EQ(player_.Error("play X"), kDone);
  EXPECT_TRUE(player_.WaitForMode("stopped", milliseconds(2 * kLength)));
  EXPECT_EQ(sink.Failures(), 0);
}

TEST_F(FailureTest, AFilmThatIsDeletedPlaysOnAfterSeeksAndEnds) {
  const FailingSoundSink sink(FailingSoundSink::Blames::kNobody);
  const std::string path = folder_.At("a.mpg");
  MakeMpeg(path, kLength);
  ASSERT_EQ(player_.Open(path), kDone);
  ASSERT_EQ(player_.Error("play X"), kDone);
  Sleep(100);
  ASSERT_TRUE(std::filesystem::remove(path));
  for (const char* const place : {"1000", "300"}) {
    SCOPED_TRACE(place);
    ASSERT_EQ(player_.Error(std::string("seek X to ") + place), kDone);
    ASSERT_EQ(player_.Error("play X"), kDone);
    Sleep(100);
  }
  EXPECT_TRUE(player_.WaitForMode("stopped", milliseconds(2 * kLength)));
  EXPECT_EQ(sink.Failures(), 0);
}

TEST_F(FailureTest, PreparingGivesUpWithoutData) {
  const std::string path = folder_.At("fifo");
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  ASSERT_TRUE(StartGStreamer());
  // Kept open for writing, so that a reader neither waits for a writer nor reaches the end; closed before the pipeline.
  Pipeline pipeline(path);
  const Descriptor writer(::open(path.c_str(), O_RDWR | O_CLOEXEC));
  ASSERT_TRUE(writer.Open());
  const Stopwatch watch;
  EXPECT_EQ(pipeline.Prepare(milliseconds(300)), Pipeline::Event::kFailed);
  EXPECT_GE(watch.Elapsed(), 300);
  EXPECT_LT(watch.Elapsed(), 300 + 1000);
}

TEST_F(FailureTest, OpeningAnyFileEndsInTime) {
  constexpr std::uintmax_t kVeryLarge = std::uintmax_t{64} << 30U;
  constexpr milliseconds kLimit(600);
  const std::string path = folder_.Write("torn.mp3", Mp3Audio(40));
  std::filesystem::resize_file(path, kVeryLarge);
  const Stopwatch watch;
  static_cast<void>(Medium::Open(path, kLimit));
  EXPECT_LT(watch.Elapsed(), kLimit.count() + 500);
}

}  // namespace
}  // namespace quillon::test
