#include <gmock/gmock.h>

#include <array>

#include "platform/desktop/linux/PixbufPixels.h"

namespace quillon {
namespace {

using testing::ElementsAre;

TEST(PixbufPixels, KeepTheAlpha) {
  const std::array<std::uint8_t, 8> bytes = {1, 2, 3, 4, 5, 6, 7, 8};
  GdkPixbuf* const pixbuf =
      gdk_pixbuf_new_from_data(bytes.data(), GDK_COLORSPACE_RGB, TRUE, 8, 2, 1, 8, nullptr, nullptr);
  const Pixels pixels = PixelsOfPixbuf(pixbuf);
  g_object_unref(pixbuf);
  EXPECT_EQ(pixels.width, 2);
  EXPECT_EQ(pixels.height, 1);
  EXPECT_THAT(pixels.rgba, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
}

TEST(PixbufPixels, AreOpaqueWithoutAlphaAndSkipTheEndsOfRows) {
  const std::array<std::uint8_t, 7> bytes = {1, 2, 3, 99, 4, 5, 6};
  GdkPixbuf* const pixbuf =
      gdk_pixbuf_new_from_data(bytes.data(), GDK_COLORSPACE_RGB, FALSE, 8, 1, 2, 4, nullptr, nullptr);
  const Pixels pixels = PixelsOfPixbuf(pixbuf);
  g_object_unref(pixbuf);
  EXPECT_EQ(pixels.height, 2);
  EXPECT_THAT(pixels.rgba, ElementsAre(1, 2, 3, 255, 4, 5, 6, 255));
}

}  // namespace
}  // namespace quillon
