#include <cstdlib>
#include <functional>
#include <vector>

#include "multimedia/windows/DeviceFixture.h"
#include "platform/multimedia/windows/WineFaults.h"
#include "support/Wine.h"

namespace quillon::test {
namespace {

using std::chrono::milliseconds;

/// Shows a film with a moving picture, made by scripts/media-samples.sh, in a separate window.
class PictureTest : public DeviceFixture {
 protected:
  static constexpr int kWidth = 320;
  static constexpr int kHeight = 240;

  void SetUp() override {
    if (!HasSound()) GTEST_SKIP() << kNoSound;
    const std::string film = Sample("moving.mpg");
    if (GetFileAttributesA(film.c_str()) == INVALID_FILE_ATTRIBUTES) {
      GTEST_SKIP() << "there is no moving.mpg: QUILLON_MEDIA_SAMPLES names no folder of scripts/media-samples.sh";
    }
    window_ = CreateWindowW(L"STATIC", nullptr, WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 100, 100, kWidth, kHeight,
                            nullptr, nullptr, nullptr, nullptr);
    if (window_ == nullptr) GTEST_SKIP() << "there is no display";
    ASSERT_EQ(Open(film), kDone);
    ASSERT_EQ(Error("window X handle " + std::to_string(reinterpret_cast<std::uintptr_t>(window_))), kDone);
    ASSERT_EQ(Put(kWidth, kHeight), kDone);
  }

  void TearDown() override {
    device.reset();
    if (window_ != nullptr) DestroyWindow(window_);
  }

  MediaStatus Put(int width, int height) {
    return Error("put X destination at 0 0 " + std::to_string(width) + ' ' + std::to_string(height));
  }

  void PlayPast(std::int64_t position) {
    ASSERT_EQ(Error("Play X"), kDone);
    ASSERT_TRUE(Until([&] { return Position() > position; })) << Position();
  }

  /// Waits while processing messages, because this thread owns the film's window.
  static void Wait(milliseconds time) {
    for (const auto end = Clock::now() + time; Clock::now() < end;) {
      MSG message;
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) DispatchMessageW(&message);
      std::this_thread::sleep_for(milliseconds(5));
    }
  }

  static bool Until(const std::function<bool()>& condition) {
    for (const auto deadline = Clock::now() + kPatience; !condition();) {
      if (Clock::now() >= deadline) return false;
      Wait(milliseconds(10));
    }
    return true;
  }

  /// The pixels on the screen in the window's upper left part.
  [[nodiscard]] std::vector<std::uint32_t> Shot(int width = kWidth, int height = kHeight) const {
    POINT place = {0, 0};
    ClientToScreen(window_, &place);
    BITMAPINFO form = {};
    form.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(memory, &form, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, screen, place.x, place.y, SRCCOPY);
    GdiFlush();
    const auto* const pixels = static_cast<const std::uint32_t*>(bits);
    std::vector<std::uint32_t> shot(pixels, pixels + static_cast<std::size_t>(width) * height);
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return shot;
  }

  /// Compares several times, because pictures are skipped on a busy machine.
  [[nodiscard]] bool PictureMoves(int width = kWidth, int height = kHeight,
                                  milliseconds limit = milliseconds(1500)) const {
    const std::vector<std::uint32_t> first = Shot(width, height);
    for (const auto deadline = Clock::now() + limit; Clock::now() < deadline;) {
      Wait(milliseconds(50));
      if (Shot(width, height) != first) return true;
    }
    return false;
  }

  static std::string Sample(const std::string& name) {
    const char* const samples = std::getenv("QUILLON_MEDIA_SAMPLES");
    if (samples == nullptr) return {};
    std::string path = std::string(samples) + '/' + name;
    // Wine shows the root folder as this drive.
    if (path.starts_with('/')) path = "Z:" + path;
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
  }

 private:
  HWND window_ = nullptr;
};

TEST_F(PictureTest, MovesOnAfterAPause) {
  PlayPast(300);
  EXPECT_TRUE(PictureMoves());
  ASSERT_EQ(Error("Pause X"), kDone);
  Wait(milliseconds(100));
  EXPECT_FALSE(PictureMoves(kWidth, kHeight, milliseconds(300)));
  ASSERT_EQ(Error("Play X"), kDone);
  EXPECT_EQ(Mode(), "playing");
  EXPECT_TRUE(PictureMoves());
}

TEST_F(PictureTest, FollowsItsDestinationAfterAPause) {
  PlayPast(300);
  ASSERT_EQ(Error("Pause X"), kDone);
  ASSERT_EQ(Error("Play X"), kDone);
  ASSERT_EQ(Put(kWidth / 4, kHeight / 4), kDone);
  Wait(milliseconds(100));
  EXPECT_TRUE(PictureMoves(kWidth / 4, kHeight / 4));
}

TEST_F(PictureTest, ThePositionGoesOnFromEachPause) {
  PlayPast(400);
  for (int pause = 1; pause <= 3; ++pause) {
    SCOPED_TRACE(pause);
    const std::int64_t before = Position();
    ASSERT_EQ(Error("Pause X"), kDone);
    const std::int64_t held = Position();
    EXPECT_NEAR(static_cast<double>(held), static_cast<double>(before), 100);
    Wait(milliseconds(100));
    EXPECT_EQ(Position(), held);
    ASSERT_EQ(Error("Play X"), kDone);
    EXPECT_NEAR(static_cast<double>(Position()), static_cast<double>(held), 100);
    ASSERT_TRUE(Until([&] { return Position() > held + 200; }));
  }
  ASSERT_EQ(Error("seek X to 1000"), kDone);
  EXPECT_NEAR(static_cast<double>(Position()), 1000, 50);
}

/// The workarounds for Wine's faults are tested by observing the faults without them.
TEST_F(PictureTest, WorkaroundsAreUsedOnWineOnly) {
  if (!RunsUnderWine()) GTEST_SKIP() << "Windows' own answers are the right ones";
  for (const bool makesUp : {true, false}) {
    SCOPED_TRACE(makesUp);
    device = MakeCommandDevice(makesUp);
    ASSERT_EQ(Open(Sample("moving.mpg")), kDone);
    PlayPast(400);
    EXPECT_EQ(Error("Pause X"), kDone);
    EXPECT_EQ(Error("resume X"), kDone);
    ASSERT_TRUE(Until([this] { return Position() > 600; }));
    const std::int64_t before = Position();
    EXPECT_EQ(Error("Pause X"), kDone);
    EXPECT_EQ(Position() < before + 100, makesUp) << Position() << " after " << before;
    EXPECT_EQ(Error("seek X to 1000"), makesUp ? kDone : MediaError::kInternal);
  }
}

TEST_F(PictureTest, StopsAfterAPause) {
  PlayPast(100);
  ASSERT_EQ(Error("Pause X"), kDone);
  ASSERT_EQ(Error("Play X"), kDone);
  ASSERT_EQ(Error("Stop X"), kDone);
  EXPECT_EQ(Mode(), "stopped");
}

TEST_F(PictureTest, EndsAfterAPause) {
  PlayPast(100);
  ASSERT_EQ(Error("Pause X"), kDone);
  ASSERT_EQ(Error("Play X"), kDone);
  EXPECT_TRUE(Until([this] { return Mode() == "stopped"; }));
}

}  // namespace
}  // namespace quillon::test
