#include "platform/desktop/linux/PixbufPixels.h"

#include <cstddef>

namespace quillon {

Pixels PixelsOfPixbuf(const GdkPixbuf* pixbuf) {
  Pixels pixels = {gdk_pixbuf_get_width(pixbuf), gdk_pixbuf_get_height(pixbuf), {}};
  const auto width = static_cast<std::size_t>(pixels.width);
  const auto height = static_cast<std::size_t>(pixels.height);
  const auto channels = static_cast<std::size_t>(gdk_pixbuf_get_n_channels(pixbuf));
  const auto rowBytes = static_cast<std::size_t>(gdk_pixbuf_get_rowstride(pixbuf));
  const bool hasAlpha = gdk_pixbuf_get_has_alpha(pixbuf) != FALSE;
  const std::uint8_t* const bytes = gdk_pixbuf_read_pixels(pixbuf);
  pixels.rgba.reserve(width * height * 4);
  for (std::size_t y = 0; y < height; ++y) {
    for (std::size_t x = 0; x < width; ++x) {
      const std::uint8_t* const pixel = bytes + y * rowBytes + x * channels;
      pixels.rgba.insert(pixels.rgba.end(), pixel, pixel + 3);
      pixels.rgba.push_back(hasAlpha ? pixel[3] : std::uint8_t{255});
    }
  }
  return pixels;
}

}  // namespace quillon
