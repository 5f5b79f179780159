#include "platform/Ansi.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "base/Text.h"
#include "platform/AnsiPair.h"

namespace quillon {
namespace {

constexpr char32_t kReplacement = 0x30FB;
constexpr std::size_t kCodes = 0x10000;  // code page 932 has only characters of the basic plane
using Table = std::array<std::uint16_t, kCodes>;

constexpr unsigned char Byte(char c) {
  return static_cast<unsigned char>(c);
}

constexpr bool IsTrailByte(unsigned char byte) {
  return byte >= 0x40 && byte <= 0xFC && byte != 0x7F;
}

constexpr std::size_t Code(unsigned char lead, unsigned char trail) {
  return std::size_t{lead} << 8u | trail;
}

// The single-byte codes are few and regular. Systems disagree about the unusual ones, so they are decoded here, as on
// Windows.
constexpr char32_t SingleCharacter(unsigned char byte) {
  if (byte <= 0x80) return byte;
  if (byte == 0xA0) return 0xF8F0;
  if (byte >= 0xA1 && byte <= 0xDF) return 0xFF61 + (byte - 0xA1u);
  if (byte >= 0xFD) return 0xF8F1 + (byte - 0xFDu);
  return kReplacement;
}

template <class Visit>
void ForEachPair(unsigned firstLead, unsigned lastLead, Visit visit) {
  for (unsigned lead = firstLead; lead <= lastLead; ++lead) {
    for (unsigned trail = 0x40; trail <= 0xFC; ++trail) {
      const auto first = static_cast<unsigned char>(lead);
      const auto second = static_cast<unsigned char>(trail);
      if (IsTrailByte(second)) visit(first, second);
    }
  }
}

// Indexed by lead and trail byte; 0 where the pair is unassigned. Built once, at the first text that is not ASCII.
const Table& DecodeTable() {
  static const std::unique_ptr<const Table> table = [] {
    auto made = std::make_unique<Table>();
    const AnsiPairs pairs;
    const auto add = [&](unsigned char lead, unsigned char trail) {
      (*made)[Code(lead, trail)] = static_cast<std::uint16_t>(pairs.Decode(lead, trail));
    };
    ForEachPair(0x81, 0x9F, add);
    ForEachPair(0xE0, 0xFC, add);
    return made;
  }();
  return *table;
}

// Indexed by character; 0 where there is no code. Characters with several codes get the one that Windows writes: the
// lowest, except that IBM's block (FA to FC) goes before NEC's copy of it (ED, EE).
const Table& EncodeTable() {
  static const std::unique_ptr<const Table> table = [] {
    auto made = std::make_unique<Table>();
    const Table& decode = DecodeTable();
    const auto add = [&](unsigned char lead, unsigned char trail) {
      const std::uint16_t character = decode[Code(lead, trail)];
      if (character == 0 || (*made)[character] != 0) return;
      (*made)[character] = static_cast<std::uint16_t>(Code(lead, trail));
    };
    ForEachPair(0x81, 0x9F, add);
    ForEachPair(0xE0, 0xEC, add);
    ForEachPair(0xEF, 0xFC, add);
    ForEachPair(0xED, 0xEE, add);
    for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
      const char32_t character = SingleCharacter(static_cast<unsigned char>(byte));
      if (character != kReplacement) (*made)[character] = static_cast<std::uint16_t>(byte);
    }
    return made;
  }();
  return *table;
}

/// Appends characters of the basic plane to a UTF-8 text in pieces; appending byte by byte takes several times as long.
class Utf8Pieces {
 public:
  explicit Utf8Pieces(std::string& text) : text_(text) {}

  void Append(char32_t character) {
    if (length_ + 3 > piece_.size()) Flush();
    if (character < 0x80) {
      Put(character);
    } else if (character < 0x800) {
      Put(0xC0 | character >> 6u);
      Put(0x80 | (character & 0x3F));
    } else {
      Put(0xE0 | character >> 12u);
      Put(0x80 | (character >> 6u & 0x3F));
      Put(0x80 | (character & 0x3F));
    }
  }

  void Flush() {
    text_.append(piece_.data(), length_);
    length_ = 0;
  }

 private:
  void Put(char32_t byte) { piece_[length_++] = static_cast<char>(static_cast<unsigned char>(byte)); }

  std::string& text_;
  std::array<char, 256> piece_;
  std::size_t length_ = 0;
};

std::size_t AsciiPrefix(std::string_view text) {
  const auto end = std::find_if(text.begin(), text.end(), [](char c) { return Byte(c) >= 0x80; });
  return static_cast<std::size_t>(end - text.begin());
}

}  // namespace

bool IsAnsiLeadByte(unsigned char byte) {
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

std::string AnsiToUtf8(std::string_view bytes) {
  const std::size_t ascii = AsciiPrefix(bytes);
  std::string text(bytes.substr(0, ascii));
  if (ascii == bytes.size()) return text;
  text.reserve(bytes.size() + bytes.size() / 2 + 2);  // doubled once, this is enough for three bytes per character
  const Table& table = DecodeTable();
  Utf8Pieces pieces(text);
  for (std::size_t i = ascii; i < bytes.size(); ++i) {
    const unsigned char lead = Byte(bytes[i]);
    if (!IsAnsiLeadByte(lead)) {
      pieces.Append(SingleCharacter(lead));
      continue;
    }
    const unsigned char trail = i + 1 < bytes.size() ? Byte(bytes[i + 1]) : static_cast<unsigned char>(0);
    const char32_t character = IsTrailByte(trail) ? table[Code(lead, trail)] : kNoCharacter;
    pieces.Append(character == kNoCharacter ? kReplacement : character);
    if (IsTrailByte(trail)) ++i;
  }
  pieces.Flush();
  return text;
}

std::optional<std::string> Utf8ToAnsi(std::string_view text) {
  const std::size_t ascii = AsciiPrefix(text);
  std::string bytes(text.substr(0, ascii));
  if (ascii == text.size()) return bytes;
  const Table& table = EncodeTable();
  for (std::size_t i = ascii; i < text.size();) {
    const Character c = CharacterAt(text, i);
    i += c.length;
    if (c.codePoint < 0x80) {
      bytes += static_cast<char>(c.codePoint);
      continue;
    }
    const std::uint16_t code = c.valid && c.codePoint < kCodes ? table[c.codePoint] : std::uint16_t{0};
    if (code == 0) return std::nullopt;
    if (code > 0xFF) bytes += static_cast<char>(code >> 8u);
    bytes += static_cast<char>(code & 0xFFu);
  }
  return bytes;
}

}  // namespace quillon
