#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/desktop/windows/IconReading.h"

namespace quillon {
namespace {

using testing::ElementsAre;

/// Rows of a bitmap with one bit for each pixel are two bytes long.
using MaskRow = std::array<std::uint8_t, 2>;

/// An icon of one row of two pixels: a red one and a transparent one.
HICON MakeColourIcon(std::uint8_t alphaOfRed) {
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = 2;
  info.bmiHeader.biHeight = -1;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  const HBITMAP colour = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const std::array<std::uint8_t, 8> pixels = {0, 0, 255, alphaOfRed, 0, 0, 0, 0};
  std::copy(pixels.begin(), pixels.end(), static_cast<std::uint8_t*>(bits));
  const MaskRow transparent = {0x40, 0};
  const HBITMAP mask = ::CreateBitmap(2, 1, 1, 1, transparent.data());
  ICONINFO parts = {TRUE, 0, 0, mask, colour};
  const HICON icon = ::CreateIconIndirect(&parts);
  ::DeleteObject(mask);
  ::DeleteObject(colour);
  return icon;
}

std::optional<Pixels> PixelsAndDestroy(HICON icon) {
  const std::optional<IconBitmaps> bitmaps = ReadIcon(icon);
  ::DestroyIcon(icon);
  if (!bitmaps) return std::nullopt;
  return PixelsOfIcon(*bitmaps);
}

TEST(IconReading, KeepsAnAlpha) {
  const std::optional<Pixels> pixels = PixelsAndDestroy(MakeColourIcon(128));
  ASSERT_TRUE(pixels.has_value());
  EXPECT_EQ(pixels->width, 2);
  EXPECT_EQ(pixels->height, 1);
  EXPECT_THAT(pixels->rgba, ElementsAre(255, 0, 0, 128, 0, 0, 0, 0));
}

TEST(IconReading, TakesTheMaskOfAnIconWithoutAlpha) {
  const std::optional<Pixels> pixels = PixelsAndDestroy(MakeColourIcon(0));
  ASSERT_TRUE(pixels.has_value());
  EXPECT_THAT(pixels->rgba, ElementsAre(255, 0, 0, 255, 0, 0, 0, 0));
}

TEST(IconReading, ReadsBlackAndWhite) {
  // The first row is the transparency, the second one the white pixels.
  const std::array<MaskRow, 2> rows = {{{0x20, 0}, {0x40, 0}}};
  const HBITMAP both = ::CreateBitmap(3, 2, 1, 1, rows.data());
  ICONINFO parts = {TRUE, 0, 0, both, nullptr};
  const HICON icon = ::CreateIconIndirect(&parts);
  ::DeleteObject(both);
  const std::optional<Pixels> pixels = PixelsAndDestroy(icon);
  ASSERT_TRUE(pixels.has_value());
  EXPECT_EQ(pixels->height, 1);
  EXPECT_THAT(pixels->rgba, ElementsAre(0, 0, 0, 255, 255, 255, 255, 255, 0, 0, 0, 0));
}

TEST(IconReading, FailsForNoIcon) {
  EXPECT_FALSE(ReadIcon(nullptr).has_value());
}

}  // namespace
}  // namespace quillon
