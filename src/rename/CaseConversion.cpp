#include "rename/CaseConversion.h"

#include <cstddef>

#include "base/Text.h"

namespace quillon {
namespace {

bool SeparatesWords(char32_t c) {
  return c == 0 || (c >= 0x09 && c <= 0x0D) || c == ' ' || c == 0x3000;
}

}  // namespace

std::string ToProper(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  bool wordStarts = true;
  for (std::size_t i = 0; i < text.size();) {
    const Character c = CharacterAt(text, i);
    if (c.valid) {
      AppendUtf8(result, wordStarts ? UpperCharacter(c.codePoint) : LowerCharacter(c.codePoint));
    } else {
      result += text[i];
    }
    wordStarts = c.valid && SeparatesWords(c.codePoint);
    i += c.length;
  }
  return result;
}

}  // namespace quillon
