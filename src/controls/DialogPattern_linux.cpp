#include "base/Text.h"
#include "controls/DialogPattern.h"

namespace quillon {

// GTK's patterns are case-sensitive, and "*.*" does not match names without a dot.
std::string DialogPattern(const std::string& pattern) {
  if (pattern == "*.*") return "*";
  std::string anyCase;
  for (std::size_t at = 0; at < pattern.size();) {
    const Character character = CharacterAt(pattern, at);
    const char32_t lower = LowerCharacter(character.codePoint);
    const char32_t upper = UpperCharacter(character.codePoint);
    if (!character.valid || lower == upper) {
      anyCase.append(pattern, at, character.length);
    } else {
      anyCase += '[';
      AppendUtf8(anyCase, lower);
      AppendUtf8(anyCase, upper);
      anyCase += ']';
    }
    at += character.length;
  }
  return anyCase;
}

}  // namespace quillon
