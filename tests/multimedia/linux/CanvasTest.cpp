#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

#include "multimedia/linux/GstSamples.h"
#include "platform/multimedia/MediaDevice.h"
#include "support/MediaBuilders.h"
#include "support/Replies.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

constexpr std::chrono::seconds kPatience(3);

class CanvasRecorder final : public PictureCanvas {
 public:
  void Show(PictureFrame frame) override {
    const std::lock_guard lock(mutex_);
    last_ = std::move(frame);
    ++count_;
    changed_.notify_all();
  }

  /// Waits until this many more pictures have come; false when they did not.
  [[nodiscard]] bool Await(int more) {
    std::unique_lock lock(mutex_);
    const int wanted = count_ + more;
    return changed_.wait_for(lock, kPatience, [&] { return count_ >= wanted; });
  }

  [[nodiscard]] PictureFrame Last() {
    const std::lock_guard lock(mutex_);
    return last_;
  }
  [[nodiscard]] int Count() {
    const std::lock_guard lock(mutex_);
    return count_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  PictureFrame last_;
  int count_ = 0;
};

/// One letter for the colour in the middle of each of the seven bars; "?" for any other.
std::string BarsOf(const PictureFrame& frame) {
  const std::string letters = "-BGCRMYW";  // by red, green and blue as three bits
  std::string bars;
  if (frame.pixels == nullptr) return bars;
  for (int bar = 0; bar < 7; ++bar) {
    std::uint32_t pixel = 0;
    const std::ptrdiff_t offset =
        (frame.height / 3) * frame.rowBytes + std::ptrdiff_t{4} * (frame.width * (2 * bar + 1) / 14);
    std::memcpy(&pixel, frame.pixels.get() + offset, sizeof(pixel));
    unsigned bits = 0;
    for (const unsigned shift : {16U, 8U, 0U}) bits = bits << 1U | ((pixel >> shift & 0xFFU) >= 120 ? 1U : 0U);
    bars += letters.at(bits);
  }
  return bars;
}

class CanvasTest : public testing::Test {
 protected:
  TempFolder folder_;
  std::shared_ptr<CanvasRecorder> canvas_ = std::make_shared<CanvasRecorder>();
  std::unique_ptr<MediaDevice> device_ = MakeMediaDevice();
};

TEST_F(CanvasTest, GetsTheFirstPictureBeforeItPlaysAndTheOthersWhilePlaying) {
  for (const AviCodec codec : {AviCodec::kMpeg4, AviCodec::kMotionJpeg, AviCodec::kUncompressed}) {
    const std::string path = folder_.At("a.avi");
    MakeAvi(path, 2000, codec);
    ASSERT_EQ(device_->Open(path), kDone);
    const int before = canvas_->Count();
    ASSERT_EQ(device_->SetCanvas(canvas_), kDone);
    EXPECT_GT(canvas_->Count(), before);
    EXPECT_EQ(device_->Mode(), MediaMode::kStopped);
    EXPECT_EQ(canvas_->Last().width, 320);
    EXPECT_EQ(canvas_->Last().height, 240);
    EXPECT_EQ(BarsOf(canvas_->Last()), "WYCGMRB");
    ASSERT_EQ(device_->Play(), kDone);
    EXPECT_TRUE(canvas_->Await(10));
    ASSERT_EQ(device_->Pause(), kDone);
    ASSERT_EQ(device_->Seek(1500), kDone);
    EXPECT_TRUE(canvas_->Count() > before + 10);
    ASSERT_EQ(device_->Close(), kDone);
  }
}

TEST_F(CanvasTest, PicturesComeInTime) {
  const std::string path = folder_.At("a.mpg");
  MakeMpeg(path, 2000);
  ASSERT_EQ(device_->Open(path), kDone);
  ASSERT_EQ(device_->SetCanvas(canvas_), kDone);
  const int first = canvas_->Count();
  ASSERT_EQ(device_->Play(), kDone);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(canvas_->Await(20));
  EXPECT_GT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(600)) << "25 pictures a second";
  EXPECT_GT(canvas_->Count(), first);
}

TEST_F(CanvasTest, APictureOutlivesItsFile) {
  const std::string path = folder_.At("a.avi");
  MakeAvi(path, 1000, AviCodec::kMotionJpeg);
  ASSERT_EQ(device_->Open(path), kDone);
  ASSERT_EQ(device_->SetCanvas(canvas_), kDone);
  const PictureFrame kept = canvas_->Last();
  ASSERT_EQ(device_->Close(), kDone);
  EXPECT_EQ(BarsOf(kept), "WYCGMRB");
}

TEST_F(CanvasTest, IsOnlyForFilesWithAPicture) {
  ASSERT_EQ(device_->Open(folder_.Write("a.wav", WaveFile(500))), kDone);
  EXPECT_EQ(device_->SetCanvas(canvas_), MediaError::kNoPicture);
}

TEST_F(CanvasTest, NothingIsShownAfterItIsTakenAway) {
  const std::string path = folder_.At("a.avi");
  MakeAvi(path, 2000, AviCodec::kMotionJpeg);
  ASSERT_EQ(device_->Open(path), kDone);
  ASSERT_EQ(device_->SetCanvas(canvas_), kDone);
  ASSERT_EQ(device_->Play(), kDone);
  ASSERT_TRUE(canvas_->Await(2));
  ASSERT_EQ(device_->SetCanvas(nullptr), kDone);
  const int count = canvas_->Count();
  std::weak_ptr<CanvasRecorder> gone = canvas_;
  EXPECT_FALSE(canvas_->Await(1)) << canvas_->Count() - count;
  canvas_.reset();
  EXPECT_TRUE(gone.expired());
}

}  // namespace
}  // namespace quillon::test
