#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>

#include "multimedia/linux/GstSamples.h"
#include "multimedia/linux/PlainWindow.h"
#include "multimedia/linux/Player.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

using std::chrono::milliseconds;

constexpr int kWindowWidth = 500;
constexpr int kWindowHeight = 400;

class PictureTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = std::make_unique<TempFolder>();
    MakeMpeg(MpegPath(), 2000);
    MakeAvi(AviPath(), 2000, AviCodec::kMpeg4);
  }
  static void TearDownTestSuite() { folder_.reset(); }

  void SetUp() override {
    window_ = PlainWindow::Make(kWindowWidth, kWindowHeight);
    if (!window_) GTEST_SKIP() << "no display to show a picture on";
  }

  static std::string MpegPath() { return folder_->At("a.mpg"); }
  static std::string AviPath() { return folder_->At("a.avi"); }

  MediaStatus GiveWindow() { return player_.Error("window X handle " + std::to_string(window_->Handle())); }

  /// Waits until the seven bars fill the rectangle and are nowhere else.
  [[nodiscard]] testing::AssertionResult ShowsBarsIn(int left, int top, int width, int height) const {
    std::string seen;
    const Stopwatch watch;
    while (watch.Elapsed() < 3000) {
      seen = BarsIn(left, top, width, height);
      if (seen == "WYCGMRB") return testing::AssertionSuccess();
      Sleep(10);
    }
    return testing::AssertionFailure() << "the bars are " << seen;
  }

  /// One letter for the colour in the middle of each bar; "?" for any other colour.
  [[nodiscard]] std::string BarsIn(int left, int top, int width, int height) const {
    std::string bars;
    for (int i = 0; i < 7; ++i) {
      const int x = left + width * (2 * i + 1) / 14;
      // The bars take the upper two thirds.
      const char upper = Letter(window_->Pixel(x, top + 2));
      bars += Letter(window_->Pixel(x, top + height * 6 / 10)) == upper ? upper : '?';
    }
    return bars;
  }

  static char Letter(std::uint32_t pixel) {
    const std::string letters = "-BGCRMYW";  // by red, green and blue as three bits
    constexpr unsigned kBright = 120;
    constexpr unsigned kDark = 60;
    unsigned bits = 0;
    for (const unsigned shift : {16U, 8U, 0U}) {
      const unsigned part = pixel >> shift & 0xFFU;
      if (part > kDark && part < kBright) return '?';
      bits = bits << 1U | (part >= kBright ? 1U : 0U);
    }
    return letters[bits];
  }

  std::unique_ptr<PlainWindow> window_;
  Player player_;

 private:
  static std::unique_ptr<TempFolder> folder_;
};

std::unique_ptr<TempFolder> PictureTest::folder_;

TEST_F(PictureTest, TheFirstPictureFillsTheWindowBeforeItPlays) {
  ASSERT_EQ(player_.Open(AviPath()), kDone);
  ASSERT_EQ(GiveWindow(), kDone);
  EXPECT_EQ(player_.Text("where X destination"), "0 0 500 400");
  EXPECT_TRUE(ShowsBarsIn(0, 0, kWindowWidth, kWindowHeight));
  EXPECT_EQ(player_.Text("status X mode"), "stopped");
}

TEST_F(PictureTest, PutStretchesThePictureToItsRectangleInEveryMode) {
  ASSERT_EQ(player_.Open(AviPath()), kDone);
  EXPECT_EQ(player_.Text("where X destination"), "0 0 320 240");
  EXPECT_EQ(player_.Error("put X destination at 0 0 200 300"), kDone);
  ASSERT_EQ(GiveWindow(), kDone);
  ASSERT_EQ(player_.Error("play X"), kDone);
  EXPECT_TRUE(ShowsBarsIn(0, 0, 200, 300));
  EXPECT_EQ(window_->Pixel(300, 350), 0x808080U);
  EXPECT_EQ(player_.Error("put X destination at 50 20 400 100"), kDone);
  EXPECT_EQ(player_.Text("where X destination"), "50 20 400 100");
  EXPECT_TRUE(ShowsBarsIn(50, 20, 400, 100));
  EXPECT_EQ(window_->Child(), "50 20 400 100");
  ASSERT_EQ(player_.Text("status X mode"), "playing");
  ASSERT_EQ(player_.Error("pause X"), kDone);
  EXPECT_EQ(player_.Error("put X destination at 0 0 300 390"), kDone);
  EXPECT_TRUE(ShowsBarsIn(0, 0, 300, 390));
  EXPECT_EQ(player_.Text("status X mode"), "paused");
  ASSERT_EQ(player_.Error("seek X to end"), kDone);
  EXPECT_EQ(player_.Error("put X destination"), kDone);
  EXPECT_TRUE(ShowsBarsIn(0, 0, kWindowWidth, kWindowHeight));
  EXPECT_EQ(player_.Number("status X position"), player_.Number("status X length"));
}

TEST_F(PictureTest, FilmsOfMpegAreShownToo) {
  ASSERT_EQ(player_.Open(MpegPath()), kDone);
  ASSERT_EQ(GiveWindow(), kDone);
  ASSERT_EQ(player_.Error("put X destination at 0 0 210 200"), kDone);
  ASSERT_EQ(player_.Error("play X"), kDone);
  EXPECT_TRUE(ShowsBarsIn(0, 0, 210, 200));
}

TEST_F(PictureTest, ThePictureStaysWhenTheWindowWasCovered) {
  ASSERT_EQ(player_.Open(AviPath()), kDone);
  ASSERT_EQ(GiveWindow(), kDone);
  ASSERT_TRUE(ShowsBarsIn(0, 0, kWindowWidth, kWindowHeight));
  window_->CoverForAMoment();
  EXPECT_TRUE(ShowsBarsIn(0, 0, kWindowWidth, kWindowHeight));
}

TEST_F(PictureTest, ClicksGoToTheOwner) {
  ASSERT_EQ(player_.Open(AviPath()), kDone);
  ASSERT_EQ(GiveWindow(), kDone);
  ASSERT_TRUE(ShowsBarsIn(0, 0, kWindowWidth, kWindowHeight));
  EXPECT_TRUE(window_->GetsClicksOfItsChild());
}

TEST_F(PictureTest, CloseTakesThePictureAway) {
  ASSERT_EQ(player_.Open(AviPath()), kDone);
  ASSERT_EQ(GiveWindow(), kDone);
  ASSERT_EQ(player_.Error("play X"), kDone);
  ASSERT_NE(window_->Child(), "");
  EXPECT_EQ(player_.Error("close X"), kDone);
  EXPECT_EQ(window_->Child(), "");
  window_->Destroy();
}

TEST_F(PictureTest, WithoutAWindowItPlaysUnseen) {
  ASSERT_EQ(player_.Open(AviPath()), kDone);
  ASSERT_EQ(GiveWindow(), kDone);
  ASSERT_EQ(player_.Error("play X from 1500"), kDone);
  EXPECT_EQ(player_.Error("window X handle 0"), kDone);
  EXPECT_EQ(window_->Child(), "");
  EXPECT_EQ(player_.Text("status X mode"), "playing");
  EXPECT_TRUE(player_.WaitForMode("stopped", milliseconds(2000)));
}

TEST_F(PictureTest, AWindowThatIsDestroyedWhilePlayingHarmsNothing) {
  ASSERT_EQ(player_.Open(AviPath()), kDone);
  ASSERT_EQ(GiveWindow(), kDone);
  ASSERT_EQ(player_.Error("play X"), kDone);
  ASSERT_TRUE(ShowsBarsIn(0, 0, kWindowWidth, kWindowHeight));
  window_->Destroy();
  Sleep(200);
  EXPECT_EQ(player_.Error("put X destination at 0 0 10 10"), kDone);
  EXPECT_EQ(player_.Text("status X mode"), "playing");
  EXPECT_EQ(player_.Error("play X from 1800"), kDone);
  EXPECT_TRUE(player_.WaitForMode("stopped", milliseconds(2000)));
  EXPECT_EQ(player_.Error("close X"), kDone);
}

TEST_F(PictureTest, AWindowThatIsNotThereIsRefused) {
  ASSERT_EQ(player_.Open(AviPath()), kDone);
  const std::uint64_t gone = window_->Handle();
  window_->Destroy();
  EXPECT_EQ(player_.Error("window X handle " + std::to_string(gone)), MediaError::kNoPicture);
  EXPECT_EQ(player_.Error("play X"), kDone);
  EXPECT_EQ(player_.Text("status X mode"), "playing");
}

TEST_F(PictureTest, TwoFilmsHaveTwoWindows) {
  const std::unique_ptr<PlainWindow> other = PlainWindow::Make(100, 100);
  ASSERT_EQ(player_.Open(AviPath()), kDone);
  ASSERT_EQ(player_.Error("open \"" + MpegPath() + "\" alias Y"), kDone);
  ASSERT_EQ(GiveWindow(), kDone);
  ASSERT_EQ(player_.Error("window Y handle " + std::to_string(other->Handle())), kDone);
  EXPECT_EQ(window_->Child(), "0 0 500 400");
  EXPECT_EQ(other->Child(), "0 0 100 100");
  EXPECT_EQ(player_.Error("close Y"), kDone);
  EXPECT_EQ(other->Child(), "");
  EXPECT_EQ(window_->Child(), "0 0 500 400");
}

}  // namespace
}  // namespace quillon::test
