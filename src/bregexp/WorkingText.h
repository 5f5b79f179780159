#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "bregexp/Command.h"

/// The form in which texts are matched: valid UTF-8, or plain bytes. The conversion is lossless. Bytes that are no
/// valid character, and duplicate codes of a character in code page 932, become characters of Unicode's last private
/// plane, so that each counts as one character and equals only itself.
namespace quillon::bregexp {

[[nodiscard]] std::string ToWorkingText(std::string_view bytes, Encoding encoding);

/// Returns nullopt when a character cannot be represented in the encoding.
[[nodiscard]] std::optional<std::string> FromWorkingText(std::string_view text, Encoding encoding);

/// True for the private characters that stand for raw bytes.
[[nodiscard]] constexpr bool IsRawCode(char32_t character) {
  return character >= 0x100000;
}

}  // namespace quillon::bregexp
