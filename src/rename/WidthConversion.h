#pragma once

#include <string>
#include <string_view>

/// Full-width and half-width forms, as Windows converts them for Japanese (LCMapStringEx with LCMAP_HALFWIDTH and
/// LCMAP_FULLWIDTH), by one table on every system. Converted are blanks, ASCII letters, digits and symbols, a few more
/// signs, katakana with its punctuation, and Korean letters; hiragana, kanji and everything else stay as they are.
///
/// Where this differs from the system: "\" and "＼" are converted like every other ASCII symbol; a lone half-width
/// voice mark becomes the spacing mark ("゛", "゜"), which itself is already full-width; "ヸ", "ヹ" and "ヾ" stay
/// whole, since what they are made of has no half-width form.
namespace quillon {

/// A katakana with a voice mark becomes two half-width characters.
[[nodiscard]] std::string ToHalfWidth(std::string_view text);

/// A half-width katakana and a voice mark after it become one character, if there is one for both.
[[nodiscard]] std::string ToFullWidth(std::string_view text);

}  // namespace quillon
