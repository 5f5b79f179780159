#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Texts are UTF-8 in std::string. A character is a code point; a byte that does not belong to valid UTF-8 (a Linux
/// file name may hold any bytes) counts as one character, is never changed, and equals only itself.
namespace quillon {

struct Character {
  char32_t codePoint = 0;  ///< U+FFFD where `valid` is false
  std::size_t length = 0;  ///< bytes, at least 1
  bool valid = false;
};

/// The character that starts at byte `offset`, which must lie inside `text`.
[[nodiscard]] Character CharacterAt(std::string_view text, std::size_t offset);

/// Appends the UTF-8 form of a code point (at most U+10FFFF).
void AppendUtf8(std::string& text, char32_t codePoint);

[[nodiscard]] std::size_t CharacterCount(std::string_view text);

/// The byte offset of the character with 0-based number `character`; the text's size when it has fewer characters.
[[nodiscard]] std::size_t ByteOffset(std::string_view text, std::size_t character);

/// At most the first `count` characters.
[[nodiscard]] std::string_view FirstCharacters(std::string_view text, std::size_t count);

/// At most the last `count` characters.
[[nodiscard]] std::string_view LastCharacters(std::string_view text, std::size_t count);

[[nodiscard]] bool IsValidUtf8(std::string_view text);

/// The text with U+FFFD in place of every byte that is not valid UTF-8, for display.
[[nodiscard]] std::string WithReplacementCharacters(std::string_view text);

/// Letter case by Unicode's simple mappings, which map one character to one character; the same on every system.
[[nodiscard]] char32_t LowerCharacter(char32_t codePoint);
[[nodiscard]] char32_t UpperCharacter(char32_t codePoint);
[[nodiscard]] std::string ToLower(std::string_view text);
[[nodiscard]] std::string ToUpper(std::string_view text);

/// True when both texts have the same lower-case form.
[[nodiscard]] bool EqualIgnoringCase(std::string_view left, std::string_view right);

/// The text without leading and trailing blanks, or without trailing ones. Only U+0020 is a blank.
[[nodiscard]] std::string_view Trim(std::string_view text);
[[nodiscard]] std::string_view TrimRight(std::string_view text);

/// The pieces between single occurrences of `separator`; an empty text is one empty piece.
[[nodiscard]] std::vector<std::string_view> Split(std::string_view text, char separator);

/// Decimal digits in groups of three: "###,###,###,##0".
[[nodiscard]] std::string FormatThousands(std::uint64_t number);

/// The number that the text starts with, after blanks and an optional sign; 0 when there is none. Saturates.
[[nodiscard]] std::int64_t LeadingNumber(std::string_view text);

/// "m:ss" in whole seconds, halves to even; at least so many digits of minutes, which go on beyond 59. Signs are left
/// out.
[[nodiscard]] std::string MinutesAndSeconds(std::int32_t milliseconds, std::size_t minuteDigits);

}  // namespace quillon
