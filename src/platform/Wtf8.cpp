#include "platform/Wtf8.h"

#include "base/Text.h"

namespace quillon {
namespace {

bool IsHigh(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLow(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

unsigned ByteAt(std::string_view text, std::size_t i) {
  return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
}

// ED A0..BF 80..BF is what UTF-8 would make of a surrogate.
bool IsSurrogate(std::string_view text, std::size_t i) {
  return ByteAt(text, i) == 0xED && ByteAt(text, i + 1) >= 0xA0 && ByteAt(text, i + 1) <= 0xBF &&
         ByteAt(text, i + 2) >= 0x80 && ByteAt(text, i + 2) <= 0xBF;
}

void AppendUtf16(std::u16string& text, char32_t codePoint) {
  if (codePoint < 0x10000) {
    text += static_cast<char16_t>(codePoint);
    return;
  }
  text += static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10u));
  text += static_cast<char16_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FFu));
}

}  // namespace

std::optional<std::u16string> Wtf8ToUtf16(std::string_view text) {
  std::u16string units;
  units.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    if (IsSurrogate(text, i)) {
      units += static_cast<char16_t>(0xD000u | (ByteAt(text, i + 1) & 0x3Fu) << 6u | (ByteAt(text, i + 2) & 0x3Fu));
      i += 3;
      continue;
    }
    const Character c = CharacterAt(text, i);
    if (!c.valid) return std::nullopt;
    AppendUtf16(units, c.codePoint);
    i += c.length;
  }
  return units;
}

std::string Utf16ToWtf8(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char32_t unit = text[i];
    if (IsHigh(unit) && i + 1 < text.size() && IsLow(text[i + 1])) {
      AppendUtf8(bytes, 0x10000 + ((unit - 0xD800) << 10u) + (char32_t{text[++i]} - 0xDC00));
    } else {
      AppendUtf8(bytes, unit);
    }
  }
  return bytes;
}

}  // namespace quillon
