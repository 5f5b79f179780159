#include "bregexp/WorkingText.h"

#include <algorithm>
#include <cstddef>

#include "base/Text.h"
#include "platform/Ansi.h"

namespace quillon::bregexp {
namespace {

constexpr char32_t kRawCodes = 0x100000;

unsigned char Byte(char c) {
  return static_cast<unsigned char>(c);
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return Byte(c) < 0x80; });
}

void AppendRawCode(std::string& text, std::string_view bytes) {
  char32_t code = 0;
  for (const char byte : bytes) code = code << 8u | Byte(byte);
  AppendUtf8(text, kRawCodes + code);
}

void AppendRawBytes(std::string& bytes, char32_t character) {
  const char32_t code = character - kRawCodes;
  if (code > 0xFF) bytes += static_cast<char>(code >> 8u & 0xFFu);
  bytes += static_cast<char>(code & 0xFFu);
}

/// The length of the character at the start of `bytes`: 2 for a lead byte with a possible trail byte behind it, else 1.
std::size_t AnsiLength(std::string_view bytes) {
  if (bytes.size() < 2 || !IsAnsiLeadByte(Byte(bytes[0]))) return 1;
  const unsigned char trail = Byte(bytes[1]);
  return trail >= 0x40 && trail <= 0xFC && trail != 0x7F ? 2 : 1;
}

bool IsExact(std::string_view bytes, std::string_view text) {
  const std::optional<std::string> back = Utf8ToAnsi(text);
  return back && *back == bytes;
}

std::string FromAnsi(std::string_view bytes) {
  std::string all = AnsiToUtf8(bytes);
  if (IsExact(bytes, all)) return all;
  std::string text;
  while (!bytes.empty()) {
    const std::string_view one = bytes.substr(0, AnsiLength(bytes));
    const std::string character = AnsiToUtf8(one);
    if (IsExact(one, character)) {
      text += character;
    } else {
      AppendRawCode(text, one);
    }
    bytes.remove_prefix(one.size());
  }
  return text;
}

/// A character from the range of the raw codes is stored as its single bytes, so that it can be converted back, too.
std::string FromUtf8(std::string_view bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size();) {
    const Character c = CharacterAt(bytes, i);
    if (c.valid && !IsRawCode(c.codePoint)) {
      text += bytes.substr(i, c.length);
    } else {
      for (std::size_t k = 0; k < c.length; ++k) AppendRawCode(text, bytes.substr(i + k, 1));
    }
    i += c.length;
  }
  return text;
}

std::optional<std::string> ToBytes(std::string_view text, Encoding encoding) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size();) {
    const Character c = CharacterAt(text, i);
    const std::string_view one = text.substr(i, c.length);
    i += c.length;
    if (IsRawCode(c.codePoint)) {
      AppendRawBytes(bytes, c.codePoint);
    } else if (encoding == Encoding::kUtf8) {
      bytes += one;
    } else if (const std::optional<std::string> ansi = Utf8ToAnsi(one)) {
      bytes += *ansi;
    } else {
      return std::nullopt;
    }
  }
  return bytes;
}

}  // namespace

std::string ToWorkingText(std::string_view bytes, Encoding encoding) {
  if (encoding == Encoding::kBytes || IsAscii(bytes)) return std::string(bytes);
  return encoding == Encoding::kUtf8 ? FromUtf8(bytes) : FromAnsi(bytes);
}

std::optional<std::string> FromWorkingText(std::string_view text, Encoding encoding) {
  if (encoding == Encoding::kBytes || IsAscii(text)) return std::string(text);
  if (encoding == Encoding::kCodePage932) {
    if (std::optional<std::string> all = Utf8ToAnsi(text)) return all;
  }
  return ToBytes(text, encoding);
}

}  // namespace quillon::bregexp
