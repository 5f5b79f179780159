#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillon {

/// A picture: rows from the top, each pixel red, green, blue, alpha (not premultiplied), 8 bits each.
struct Pixels {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> rgba;
};

/// The small icon that the desktop gives this file, `size` pixels wide and high or near it. Needs a running window
/// system; nullopt when the desktop has none for it. The file need not be readable; its name decides.
[[nodiscard]] std::optional<Pixels> SmallFileIcon(const std::string& path, int size);

}  // namespace quillon
