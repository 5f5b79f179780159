#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillon {

/// The first eight bytes of a text as one number, which is ordered as they are. A shorter text ends with zeros.
[[nodiscard]] inline std::uint64_t FirstBytes(std::string_view text) {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < sizeof(number); ++i) {
    number = number << 8u | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0u);
  }
  return number;
}

}  // namespace quillon
