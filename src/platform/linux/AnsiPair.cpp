#include "platform/AnsiPair.h"

#include <iconv.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace quillon {
namespace {

// Returns null when the C library does not support CP932.
std::shared_ptr<void> OpenConverter() {
  iconv_t converter = iconv_open("UCS-4LE", "CP932");
  if (reinterpret_cast<std::intptr_t>(converter) == -1) return nullptr;
  return {converter, iconv_close};
}

}  // namespace

AnsiPairs::AnsiPairs() : converter_(OpenConverter()) {}

char32_t AnsiPairs::Decode(unsigned char lead, unsigned char trail) const {
  if (!converter_) return kNoCharacter;
  std::array<char, 2> bytes = {static_cast<char>(lead), static_cast<char>(trail)};
  char* from = bytes.data();
  std::size_t fromLeft = bytes.size();
  char32_t character = kNoCharacter;
  char* into = reinterpret_cast<char*>(&character);
  std::size_t intoLeft = sizeof(character);
  const std::size_t result = iconv(converter_.get(), &from, &fromLeft, &into, &intoLeft);
  const bool whole = result == 0 && fromLeft == 0 && intoLeft == 0;
  if (!whole) iconv(converter_.get(), nullptr, nullptr, nullptr, nullptr);
  return whole ? character : kNoCharacter;
}

}  // namespace quillon
