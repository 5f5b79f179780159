#include "base/Text.h"

#include <utf8proc.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace quillon {
namespace {

bool IsContinuation(unsigned char byte) {
  return (byte & 0xC0u) == 0x80u;
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}
char UpperAscii(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

template <class Mapping>
std::string MapCharacters(std::string_view text, Mapping mapping) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const Character c = CharacterAt(text, i);
    if (c.valid) {
      AppendUtf8(result, mapping(c.codePoint));
    } else {
      result += text[i];
    }
    i += c.length;
  }
  return result;
}

}  // namespace

Character CharacterAt(std::string_view text, std::size_t offset) {
  const auto byte = [&](std::size_t i) {
    return offset + i < text.size() ? static_cast<unsigned char>(text[offset + i]) : static_cast<unsigned char>(0);
  };
  const unsigned char lead = byte(0);
  if (lead < 0x80) return {lead, 1, true};
  std::size_t length = 0;
  char32_t codePoint = 0;
  char32_t smallest = 0;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2, codePoint = lead & 0x1Fu, smallest = 0x80;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3, codePoint = lead & 0x0Fu, smallest = 0x800;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4, codePoint = lead & 0x07u, smallest = 0x10000;
  } else {
    return {0xFFFD, 1, false};
  }
  for (std::size_t i = 1; i < length; ++i) {
    if (!IsContinuation(byte(i))) return {0xFFFD, 1, false};
    codePoint = codePoint << 6u | (byte(i) & 0x3Fu);
  }
  const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
  if (codePoint < smallest || codePoint > 0x10FFFF || surrogate) return {0xFFFD, 1, false};
  return {codePoint, length, true};
}

void AppendUtf8(std::string& text, char32_t codePoint) {
  const auto byte = [&](char32_t value) { text += static_cast<char>(static_cast<unsigned char>(value)); };
  if (codePoint < 0x80) {
    byte(codePoint);
  } else if (codePoint < 0x800) {
    byte(0xC0 | codePoint >> 6u);
    byte(0x80 | (codePoint & 0x3F));
  } else if (codePoint < 0x10000) {
    byte(0xE0 | codePoint >> 12u);
    byte(0x80 | (codePoint >> 6u & 0x3F));
    byte(0x80 | (codePoint & 0x3F));
  } else {
    byte(0xF0 | codePoint >> 18u);
    byte(0x80 | (codePoint >> 12u & 0x3F));
    byte(0x80 | (codePoint >> 6u & 0x3F));
    byte(0x80 | (codePoint & 0x3F));
  }
}

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size(); i += CharacterAt(text, i).length) ++count;
  return count;
}

std::size_t ByteOffset(std::string_view text, std::size_t character) {
  std::size_t offset = 0;
  for (; character > 0 && offset < text.size(); --character) offset += CharacterAt(text, offset).length;
  return offset;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  return text.substr(0, ByteOffset(text, count));
}

std::string_view LastCharacters(std::string_view text, std::size_t count) {
  const std::size_t all = CharacterCount(text);
  return count >= all ? text : text.substr(ByteOffset(text, all - count));
}

bool IsValidUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    if (static_cast<unsigned char>(text[i]) < 0x80) {
      ++i;
      continue;
    }
    const Character c = CharacterAt(text, i);
    if (!c.valid) return false;
    i += c.length;
  }
  return true;
}

std::string WithReplacementCharacters(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const Character c = CharacterAt(text, i);
    AppendUtf8(result, c.codePoint);
    i += c.length;
  }
  return result;
}

char32_t LowerCharacter(char32_t codePoint) {
  return static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(codePoint)));
}

char32_t UpperCharacter(char32_t codePoint) {
  constexpr char32_t kSharpS = 0xDF;  // utf8proc maps it to U+1E9E; Unicode and Windows do not
  if (codePoint == kSharpS) return codePoint;
  return static_cast<char32_t>(utf8proc_toupper(static_cast<utf8proc_int32_t>(codePoint)));
}

std::string ToLower(std::string_view text) {
  if (!IsAscii(text)) return MapCharacters(text, LowerCharacter);
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), LowerAscii);
  return result;
}

std::string ToUpper(std::string_view text) {
  if (!IsAscii(text)) return MapCharacters(text, UpperCharacter);
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), UpperAscii);
  return result;
}

bool EqualIgnoringCase(std::string_view left, std::string_view right) {
  if (IsAscii(left) && IsAscii(right)) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
  }
  return ToLower(left) == ToLower(right);
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view() : TrimRight(text.substr(first));
}

std::string_view TrimRight(std::string_view text) {
  const std::size_t last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = text.find(separator, start);
    if (end == std::string_view::npos) break;
    pieces.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  pieces.push_back(text.substr(start));
  return pieces;
}

std::string FormatThousands(std::uint64_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t i = digits.size(); i > 3; i -= 3) digits.insert(i - 3, ",");
  return digits;
}

std::int64_t LeadingNumber(std::string_view text) {
  std::size_t i = text.find_first_not_of(' ');
  if (i == std::string_view::npos) return 0;
  const bool negative = text[i] == '-';
  if (text[i] == '-' || text[i] == '+') ++i;
  constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();
  std::int64_t value = 0;
  for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
    const std::int64_t digit = text[i] - '0';
    value = value > (kLargest - digit) / 10 ? kLargest : value * 10 + digit;
  }
  return negative ? -value : value;
}

std::string MinutesAndSeconds(std::int32_t milliseconds, std::size_t minuteDigits) {
  const auto digits = [](long long number, std::size_t least) {
    const std::string text = std::to_string(std::llabs(number));
    return text.size() < least ? std::string(least - text.size(), '0') + text : text;
  };
  const long long seconds = std::llrint(milliseconds / 1000.0);  // halves to even
  return digits(seconds / 60, minuteDigits) + ":" + digits(seconds % 60, 2);
}

}  // namespace quillon
