#include "platform/AnsiPair.h"

#include <windows.h>

#include <array>

namespace quillon {

AnsiPairs::AnsiPairs() = default;

char32_t AnsiPairs::Decode(unsigned char lead, unsigned char trail) const {
  constexpr UINT kCodePage = 932;
  const std::array<char, 2> bytes = {static_cast<char>(lead), static_cast<char>(trail)};
  std::array<wchar_t, 2> characters = {};
  const int count = ::MultiByteToWideChar(kCodePage, MB_ERR_INVALID_CHARS, bytes.data(), static_cast<int>(bytes.size()),
                                          characters.data(), static_cast<int>(characters.size()));
  return count == 1 ? static_cast<char32_t>(characters[0]) : kNoCharacter;
}

}  // namespace quillon
