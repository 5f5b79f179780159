#pragma once

#include <cstddef>
#include <string_view>

namespace quillon {

/// Of a text in a media file this many bytes are read, as they are stored; what stands behind them is passed over. The
/// cut comes before decoding and does not look at characters: half a character at the cut is decoded like half a
/// character at a text's end (U+30FB in code page 932, U+FFFD in UTF-16). Decoded, a text has at most three times as
/// many bytes, in a reader's record and in a list row alike.
inline constexpr std::size_t kLongestText = std::size_t{64} * 1024;

[[nodiscard]] inline std::string_view CutToLongestText(std::string_view bytes) {
  return bytes.substr(0, kLongestText);
}

}  // namespace quillon
