#pragma once

#include <cstdint>
#include <vector>

#include "platform/desktop/FileIcon.h"

namespace quillon {

/// A system's icon as its bitmaps: 4 bytes for each pixel (blue, green, red, alpha), rows from the top.
struct IconBitmaps {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> colour;
  std::vector<std::uint8_t> mask;  ///< white where the picture is transparent, else black
};

/// The alpha of `colour` counts, unless it is 0 everywhere, as in icons older than it; then the mask does. The vectors
/// hold width x height pixels each.
[[nodiscard]] Pixels PixelsOfIcon(const IconBitmaps& icon);

}  // namespace quillon
