#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "bregexp/Command.h"

/// The form in which texts are matched: valid UTF-8, or plain bytes, from which the very same bytes come back. Bytes
/// that stand for no character, and in code page 932 codes that are a second way to write one, become characters of
/// Unicode's last private plane, so that each counts as one character and equals only itself.
namespace quillon::bregexp {

[[nodiscard]] std::string ToWorkingText(std::string_view bytes, Encoding encoding);

/// Nullopt when a character has no form in the encoding.
[[nodiscard]] std::optional<std::string> FromWorkingText(std::string_view text, Encoding encoding);

/// True for the characters that stand for bytes.
[[nodiscard]] constexpr bool IsRawCode(char32_t character) {
  return character >= 0x100000;
}

}  // namespace quillon::bregexp
