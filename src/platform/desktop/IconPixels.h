#pragma once

#include <cstdint>
#include <vector>

#include "platform/desktop/FileIcon.h"

namespace quillon {

/// The bitmaps of a system icon: 4 bytes for each pixel (blue, green, red, alpha), rows from the top.
struct IconBitmaps {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> colour;
  std::vector<std::uint8_t> mask;  ///< white where the icon is transparent, else black
};

/// Uses the alpha channel of `colour`, or the mask if alpha is 0 everywhere, as in old icons. Each vector has width x
/// height pixels.
[[nodiscard]] Pixels PixelsOfIcon(const IconBitmaps& icon);

}  // namespace quillon
