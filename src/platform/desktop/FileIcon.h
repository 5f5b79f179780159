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

/// The desktop's small icon for this file, about `size` pixels wide and high; nullopt when the desktop has none. Chosen
/// by the file's name, so the file need not be readable. Needs a running window system.
[[nodiscard]] std::optional<Pixels> SmallFileIcon(const std::string& path, int size);

}  // namespace quillon
