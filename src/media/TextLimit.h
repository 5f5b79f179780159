#pragma once

#include <cstddef>
#include <string_view>

namespace quillon {

/// At most this many stored bytes of a text in a media file are read; the rest is skipped. The cut comes before
/// decoding and may split a character: half a character at the cut is decoded like one at a text's end (U+30FB in code
/// page 932, U+FFFD in UTF-16). A decoded text, in a reader's record and in a list row, has at most three times as many
/// bytes.
inline constexpr std::size_t kLongestText = std::size_t{64} * 1024;

[[nodiscard]] inline std::string_view CutToLongestText(std::string_view bytes) {
  return bytes.substr(0, kLongestText);
}

}  // namespace quillon
