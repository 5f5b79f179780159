#include <gmock/gmock.h>

#include "platform/desktop/IconPixels.h"

namespace quillon {
namespace {

using testing::ElementsAre;

TEST(IconPixels, ReverseBlueGreenRed) {
  const Pixels pixels = PixelsOfIcon({1, 1, {10, 20, 30, 40}, {0, 0, 0, 0}});
  EXPECT_EQ(pixels.width, 1);
  EXPECT_EQ(pixels.height, 1);
  EXPECT_THAT(pixels.rgba, ElementsAre(30, 20, 10, 40));
}

TEST(IconPixels, UseTheAlphaIfAnyPixelHasSome) {
  const Pixels pixels = PixelsOfIcon({2, 1, {1, 2, 3, 0, 4, 5, 6, 128}, {0, 0, 0, 0, 255, 255, 255, 0}});
  EXPECT_THAT(pixels.rgba, ElementsAre(3, 2, 1, 0, 6, 5, 4, 128));
}

TEST(IconPixels, UseTheMaskIfNoPixelHasAlpha) {
  const Pixels pixels = PixelsOfIcon({1, 2, {1, 2, 3, 0, 4, 5, 6, 0}, {0, 0, 0, 0, 255, 255, 255, 0}});
  EXPECT_EQ(pixels.height, 2);
  EXPECT_THAT(pixels.rgba, ElementsAre(3, 2, 1, 255, 6, 5, 4, 0));
}

TEST(IconPixels, OfAnEmptyIconAreEmpty) {
  EXPECT_TRUE(PixelsOfIcon({}).rgba.empty());
}

}  // namespace
}  // namespace quillon
