#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace quillon {

/// One picture of a film. The pixels are 32-bit numbers in the machine's byte order: red, green and blue from the 24th
/// bit down.
struct PictureFrame {
  int width = 0;
  int height = 0;
  std::ptrdiff_t rowBytes = 0;
  std::shared_ptr<const std::uint8_t> pixels;
};

/// Receives a film's pictures where windows have no numbers, so that a player cannot draw into them itself.
class PictureCanvas {
 public:
  PictureCanvas() = default;
  PictureCanvas(const PictureCanvas&) = delete;
  PictureCanvas& operator=(const PictureCanvas&) = delete;
  virtual ~PictureCanvas() = default;

  /// Called for each picture when it is due, from a thread of the player's.
  virtual void Show(PictureFrame frame) = 0;
};

}  // namespace quillon
