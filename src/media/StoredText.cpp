#include "media/StoredText.h"

#include <algorithm>

#include "base/Text.h"
#include "platform/Ansi.h"

namespace quillon {
namespace {

unsigned char Byte(char c) {
  return static_cast<unsigned char>(c);
}

/// The number of bytes at the end that are the beginning of a longer character.
std::size_t TornLength(std::string_view bytes) {
  constexpr std::size_t kLongest = 3;
  for (std::size_t length = 1; length <= std::min(kLongest, bytes.size()); ++length) {
    const unsigned char first = Byte(bytes[bytes.size() - length]);
    if (first < 0x80) return 0;
    if (first < 0xC0) continue;
    const std::size_t whole = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    return length < whole ? length : 0;
  }
  return 0;
}

bool HasOnlyAscii(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char c) { return Byte(c) < 0x80; });
}

}  // namespace

std::string DecodeStoredText(std::string_view bytes, StoredText stored) {
  return stored == StoredText::kUtf8OrAnsi && IsValidUtf8(bytes) ? std::string(bytes) : AnsiToUtf8(bytes);
}

std::string DecodeStoredField(std::string_view field, StoredText stored) {
  const std::string_view bytes = field.substr(0, field.find('\0'));
  if (stored == StoredText::kUtf8OrAnsi && bytes.size() == field.size()) {
    // Without another character of several bytes nothing tells the torn one from one of code page 932.
    const std::string_view whole = bytes.substr(0, bytes.size() - TornLength(bytes));
    if (!HasOnlyAscii(whole) && IsValidUtf8(whole)) return std::string(whole);
  }
  return DecodeStoredText(bytes, stored);
}

}  // namespace quillon
