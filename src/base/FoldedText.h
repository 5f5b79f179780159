#pragma once

#include <string>
#include <string_view>

/// The form in which texts are compared when a person looks for one. Letter case is folded, full-width letters, digits,
/// symbols and blanks are equal to half-width ones, half-width katakana to full-width ones, a letter and its mark to
/// the letter that has the mark, and a line break to a blank, which lists show in its place. Hiragana and katakana stay
/// different. Widths are those of the Unicode Character Database, case that of base/Text.h.
namespace quillon {

/// Appends the folded text. A byte that is not valid UTF-8 becomes U+FFFD, as lists show it.
void AppendFolded(std::string& folded, std::string_view text);
[[nodiscard]] std::string Folded(std::string_view text);

}  // namespace quillon
