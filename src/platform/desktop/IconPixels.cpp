#include "platform/desktop/IconPixels.h"

#include <cstddef>

namespace quillon {

Pixels PixelsOfIcon(const IconBitmaps& icon) {
  constexpr std::size_t kBytes = 4;
  constexpr std::size_t kAlpha = 3;
  bool hasAlpha = false;
  for (std::size_t at = kAlpha; at < icon.colour.size(); at += kBytes) hasAlpha = hasAlpha || icon.colour[at] != 0;
  Pixels pixels = {icon.width, icon.height, icon.colour};
  for (std::size_t at = 0; at < pixels.rgba.size(); at += kBytes) {
    pixels.rgba[at] = icon.colour[at + 2];
    pixels.rgba[at + 2] = icon.colour[at];
    if (!hasAlpha) pixels.rgba[at + kAlpha] = icon.mask[at] == 0 ? 255 : 0;
  }
  return pixels;
}

}  // namespace quillon
