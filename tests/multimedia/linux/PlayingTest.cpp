#include <gtest/gtest.h>

#include "multimedia/linux/FailingSoundSink.h"
#include "multimedia/linux/GstSamples.h"
#include "multimedia/linux/PlainWindow.h"
#include "multimedia/linux/Player.h"
#include "platform/multimedia/MediaDevice.h"
#include "support/MediaBuilders.h"
#include "support/Replies.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

constexpr int kTolerance = 120;
constexpr int kPatience = 3000;

/// The player's device, used without command strings.
class PlayingTest : public testing::Test {
 protected:
  PlayingTest() { SilenceSound(); }

  bool WaitForMode(MediaMode mode) {
    for (const Stopwatch watch; device_->Mode() != mode; Sleep(5)) {
      if (watch.Elapsed() > kPatience) return false;
    }
    return true;
  }

  TempFolder folder_;
  std::unique_ptr<MediaDevice> device_ = MakeMediaDevice();
};

TEST_F(PlayingTest, TimePassesExceptInAPauseUntilTheEnd) {
  ASSERT_EQ(device_->Open(folder_.Write("a\" alias B.wav", WaveFile(1000))), kDone);
  ASSERT_EQ(device_->Play(), kDone);
  EXPECT_EQ(device_->Mode(), MediaMode::kPlaying);
  const Stopwatch first;
  Sleep(200);
  EXPECT_NEAR(device_->Position(), first.Elapsed(), kTolerance);
  ASSERT_EQ(device_->Pause(), kDone);
  EXPECT_EQ(device_->Mode(), MediaMode::kPaused);
  const int held = device_->Position();
  Sleep(100);
  EXPECT_EQ(device_->Position(), held);
  ASSERT_EQ(device_->Play(), kDone);
  ASSERT_TRUE(WaitForMode(MediaMode::kStopped));
  EXPECT_EQ(device_->Position(), 1000);
  ASSERT_EQ(device_->SeekToStart(), kDone);
  ASSERT_EQ(device_->Play(), kDone);
  Sleep(100);
  ASSERT_EQ(device_->Stop(), kDone);
  EXPECT_EQ(device_->Mode(), MediaMode::kStopped);
  EXPECT_NEAR(device_->Position(), 100, kTolerance);
}

TEST_F(PlayingTest, AFileThatFailsWhileItPlaysHasNoModeUntilItIsPlayedAnew) {
  auto sink = std::make_unique<FailingSoundSink>(FailingSoundSink::Blames::kStream);
  ASSERT_EQ(device_->Open(folder_.Write("a.wav", WaveFile(1500))), kDone);
  ASSERT_EQ(device_->Play(), kDone);
  ASSERT_TRUE(WaitForMode(MediaMode::kNone));
  EXPECT_EQ(sink->Failures(), 1);
  EXPECT_EQ(device_->Length(), 1500) << "it is open";
  sink.reset();
  ASSERT_EQ(device_->Play(), kDone);
  EXPECT_EQ(device_->Mode(), MediaMode::kPlaying);
}

TEST_F(PlayingTest, APictureIsDrawnIntoItsPartOfTheWindow) {
  const std::unique_ptr<PlainWindow> window = PlainWindow::Make(500, 400);
  if (!window) GTEST_SKIP() << "no display to show a picture on";
  MakeAvi(folder_.At("a.avi"), 1000, AviCodec::kMpeg4);
  ASSERT_EQ(device_->Open(folder_.At("a.avi")), kDone);
  EXPECT_EQ(device_->Picture(), (PictureSize{320, 240}));
  ASSERT_EQ(device_->SetWindow(window->Handle()), kDone);
  ASSERT_EQ(device_->PutPicture({300, 200}), kDone);
  // The second of the seven bars is yellow; the window itself is grey.
  const auto yellow = [&window](int x, int y) {
    const std::uint32_t pixel = window->Pixel(x, y);
    return pixel >> 16U > 120 && (pixel >> 8U & 0xFFU) > 120 && (pixel & 0xFFU) < 60;
  };
  for (const Stopwatch watch; watch.Elapsed() < kPatience && !yellow(64, 10);) Sleep(10);
  EXPECT_TRUE(yellow(64, 10));
  EXPECT_TRUE(yellow(64, 120)) << "the bars take the upper two thirds";
  EXPECT_EQ(window->Pixel(64, 210), 0x808080U);
  EXPECT_EQ(window->Pixel(310, 10), 0x808080U);
}

}  // namespace
}  // namespace quillon::test
