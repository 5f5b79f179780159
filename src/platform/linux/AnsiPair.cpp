#include "platform/AnsiPair.h"

#include <iconv.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace quillon {
namespace {

// The C library's way of saying "none".
bool IsOpen(iconv_t converter) {
  return reinterpret_cast<std::intptr_t>(converter) != -1;
}

}  // namespace

AnsiPairs::AnsiPairs() : converter_(iconv_open("UCS-4LE", "CP932")) {}

AnsiPairs::~AnsiPairs() {
  if (IsOpen(converter_)) iconv_close(converter_);
}

char32_t AnsiPairs::Decode(unsigned char lead, unsigned char trail) const {
  if (!IsOpen(converter_)) return kNoCharacter;
  std::array<char, 2> bytes = {static_cast<char>(lead), static_cast<char>(trail)};
  char* from = bytes.data();
  std::size_t fromLeft = bytes.size();
  char32_t character = kNoCharacter;
  char* into = reinterpret_cast<char*>(&character);
  std::size_t intoLeft = sizeof(character);
  const std::size_t result = iconv(converter_, &from, &fromLeft, &into, &intoLeft);
  const bool whole = result == 0 && fromLeft == 0 && intoLeft == 0;
  if (!whole) iconv(converter_, nullptr, nullptr, nullptr, nullptr);
  return whole ? character : kNoCharacter;
}

}  // namespace quillon
