#include "paths/PortableName.h"

#include <algorithm>
#include <array>

#include "base/Text.h"
#include "paths/WideTwins.h"

namespace quillon {
namespace {

std::string WithoutControls(std::string_view name) {
  std::string result;
  for (std::size_t i = 0; i < name.size();) {
    const Character c = CharacterAt(name, i);
    const bool control = c.codePoint < 0x20 || (c.codePoint >= 0x7F && c.codePoint < 0xA0);
    if (!control) result += name.substr(i, c.length);
    i += c.length;
  }
  return result;
}

bool IsDevice(std::string_view name) {
  constexpr std::array<std::string_view, 6> kNames = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
  // Superscript digits count as digits.
  constexpr std::array<std::string_view, 12> kNumbers = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "¹", "²", "³"};
  const std::string upper = ToUpper(name);
  if (std::find(kNames.begin(), kNames.end(), upper) != kNames.end()) return true;
  if (!upper.starts_with("COM") && !upper.starts_with("LPT")) return false;
  return std::find(kNumbers.begin(), kNumbers.end(), std::string_view(upper).substr(3)) != kNumbers.end();
}

}  // namespace

std::string PortableName(std::string_view name) {
  std::string result = WithWideTwins(WithoutControls(name));
  result.erase(result.find_last_not_of(". ") + 1);
  const std::size_t dot = std::min(result.find('.'), result.size());
  const std::string_view stem = TrimRight(std::string_view(result).substr(0, dot));
  if (IsDevice(stem)) result.insert(stem.size(), 1, '_');
  return result;
}

}  // namespace quillon
