#pragma once

namespace quillon {

/// The size in pixels of a picture, or of the window that it is drawn into.
struct PictureSize {
  int width = 0;
  int height = 0;

  bool operator==(const PictureSize&) const = default;
};

}  // namespace quillon
