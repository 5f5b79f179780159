#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/Ansi.h"

namespace quillon::test {
namespace {

const char* const kDot = "・";  // U+30FB

std::string Pair(unsigned lead, unsigned trail) {
  return {static_cast<char>(lead), static_cast<char>(trail)};
}

bool IsTrail(unsigned byte) {
  return byte >= 0x40 && byte <= 0xFC && byte != 0x7F;
}

template <class Visit>
void ForEachPair(Visit visit) {
  for (unsigned lead = 0; lead <= 0xFF; ++lead) {
    if (!IsAnsiLeadByte(static_cast<unsigned char>(lead))) continue;
    for (unsigned trail = 0; trail <= 0xFF; ++trail) {
      if (IsTrail(trail)) visit(lead, trail);
    }
  }
}

TEST(Ansi, LeadBytesAreTheTwoRangesOfTheCodePage) {
  for (unsigned byte = 0; byte <= 0xFF; ++byte) {
    const bool expected = (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
    EXPECT_EQ(IsAnsiLeadByte(static_cast<unsigned char>(byte)), expected) << byte;
  }
}

TEST(Ansi, AsciiStaysAsItIsBothWays) {
  std::string ascii;
  for (char c = 0; c < 0x7F; ++c) ascii += c;
  ascii += '\x7F';
  EXPECT_EQ(AnsiToUtf8(ascii), ascii) << "backslash and tilde among them";
  EXPECT_EQ(Utf8ToAnsi(ascii), ascii);
  EXPECT_EQ(AnsiToUtf8(""), "");
  EXPECT_EQ(Utf8ToAnsi(""), "");
}

TEST(Ansi, KnownCharactersAreDecodedAndEncoded) {
  struct Row {
    const char* name;
    std::string bytes;
    const char* text;
  };
  const std::vector<Row> rows = {{"ideographic blank", "\x81\x40", "　"},
                                 {"trail byte that is a backslash", "\x95\x5C", "表"},
                                 {"kana with that byte", "\x83\x5C", "ソ"},
                                 {"trail byte that is a pipe", "\x83\x7C", "ポ"},
                                 {"hiragana", "\x82\xA0", "あ"},
                                 {"first level kanji, first", "\x88\x9F", "亜"},
                                 {"second level kanji, last", "\xEA\xA4", "熙"},
                                 {"full-width tilde, not wave dash", "\x81\x60", "～"},
                                 {"parallel to", "\x81\x61", "∥"},
                                 {"full-width hyphen-minus", "\x81\x7C", "－"},
                                 {"cent", "\x81\x91", "￠"},
                                 {"not sign", "\x81\xCA", "￢"},
                                 {"circled digit", "\x87\x40", "①"},
                                 {"Roman numeral", "\x87\x54", "Ⅰ"},
                                 {"company", "\x87\x8A", "㈱"},
                                 {"ladder-high", "\xFB\xFC", "髙"},
                                 {"IBM's last", "\xFC\x4B", "黑"},
                                 {"half-width katakana", "\xB6\xC0\xB6\xC5", "ｶﾀｶﾅ"},
                                 {"half-width marks", "\xA1\xDE\xDF", "｡ﾞﾟ"},
                                 {"user-defined, first", "\xF0\x40", "\xEE\x80\x80"},
                                 {"user-defined, last", "\xF9\xFC", "\xEE\x9D\x97"},
                                 {"Greek and Cyrillic", "\x83\xBF\x84\x40", "αА"},
                                 {"mixed with ASCII", "No.1 \x8B\xC8!", "No.1 曲!"}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(AnsiToUtf8(row.bytes), row.text);
    EXPECT_EQ(Utf8ToAnsi(row.text), row.bytes);
  }
}

TEST(Ansi, CharactersWithTwoCodesAreWrittenAsWindowsWritesThem) {
  struct Row {
    const char* text;
    std::string written;
    std::vector<std::string> read;
  };
  const std::vector<Row> rows = {{"≒", "\x81\xE0", {"\x81\xE0", "\x87\x90"}},
                                 {"∪", "\x81\xBE", {"\x81\xBE", "\x87\x9C"}},
                                 {"∵", "\x81\xE6", {"\x81\xE6", "\x87\x9A", "\xFA\x5B"}},
                                 {"￢", "\x81\xCA", {"\x81\xCA", "\xEE\xF9", "\xFA\x54"}},
                                 {"Ⅰ", "\x87\x54", {"\x87\x54", "\xFA\x4A"}},
                                 {"ⅰ", "\xFA\x40", {"\xEE\xEF", "\xFA\x40"}},
                                 {"纊", "\xFA\x5C", {"\xED\x40", "\xFA\x5C"}}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(Utf8ToAnsi(row.text), row.written);
    for (const std::string& bytes : row.read) EXPECT_EQ(AnsiToUtf8(bytes), row.text);
  }
}

TEST(Ansi, EveryCodeOfTheCodePageIsDecoded) {
  int pairs = 0;
  ForEachPair([&](unsigned lead, unsigned trail) {
    if (AnsiToUtf8(Pair(lead, trail)) != kDot || (lead == 0x81 && trail == 0x45)) ++pairs;
  });
  int singles = 0;
  for (unsigned byte = 0; byte <= 0xDF; ++byte) {
    const bool ordinary = byte <= 0x80 || byte >= 0xA1;
    if (ordinary && !IsAnsiLeadByte(static_cast<unsigned char>(byte))) ++singles;
  }
  EXPECT_EQ(pairs, 9604);
  EXPECT_EQ(pairs + singles, 9796);
}

TEST(Ansi, EveryPairIsWrittenBackAsItselfOrAsTheOtherCodeOfItsCharacter) {
  int doubles = 0;
  ForEachPair([&](unsigned lead, unsigned trail) {
    const std::string bytes = Pair(lead, trail);
    const std::string text = AnsiToUtf8(bytes);
    if (text == kDot && bytes != "\x81\x45") return;
    const auto written = Utf8ToAnsi(text);
    ASSERT_TRUE(written) << lead << ' ' << trail;
    EXPECT_EQ(AnsiToUtf8(*written), text) << lead << ' ' << trail;
    if (*written != bytes) ++doubles;
  });
  EXPECT_EQ(doubles, 398) << "NEC's selection of IBM's characters, and some signs of NEC's and IBM's rows";
}

TEST(Ansi, OddSingleBytesAreThoseOfWindows) {
  EXPECT_EQ(AnsiToUtf8("\x80"), "\xC2\x80");
  EXPECT_EQ(AnsiToUtf8("\xA0"), "\xEF\xA3\xB0");
  EXPECT_EQ(AnsiToUtf8("\xFD\xFE\xFF"), "\xEF\xA3\xB1\xEF\xA3\xB2\xEF\xA3\xB3");
  EXPECT_EQ(Utf8ToAnsi("\xEF\xA3\xB0"), "\xA0");
}

TEST(Ansi, InvalidBytesBecomeADot) {
  struct Row {
    const char* name;
    std::string bytes;
    std::string text;
  };
  const std::vector<Row> rows = {{"lead byte at the end", "a\x82", std::string("a") + kDot},
                                 {"lead byte before a digit",
                                  "\x82"
                                  "1",
                                  std::string(kDot) + "1"},
                                 {"lead byte before DEL", "\x82\x7F", std::string(kDot) + "\x7F"},
                                 {"lead byte before a line break", "\x82\n", std::string(kDot) + "\n"},
                                 {"lead byte before FD", "\x82\xFD", std::string(kDot) + "\xEF\xA3\xB1"},
                                 {"lead byte before a zero", std::string("\x82\0", 2), kDot + std::string("\0", 1)},
                                 {"unassigned pair", "\x82\x40", kDot},
                                 {"unassigned pair before a letter", "\x85\x40z", std::string(kDot) + "z"},
                                 {"two lead bytes", "\x82\x82", "ｂ"},
                                 {"the dot itself", "\x81\x45", kDot}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(AnsiToUtf8(row.bytes), row.text);
  }
}

TEST(Ansi, ZeroCharactersAreKept) {
  const std::string bytes("a\0\x82\xA0\0", 5);
  EXPECT_EQ(AnsiToUtf8(bytes), std::string("a\0あ\0", 6));
  EXPECT_EQ(Utf8ToAnsi(AnsiToUtf8(bytes)), bytes);
}

TEST(Ansi, CharactersWithoutAnExactCodeAreNotEncoded) {
  struct Row {
    const char* name;
    std::string text;
  };
  const std::vector<Row> rows = {{"wave dash", "\xE3\x80\x9C"},
                                 {"em dash", "—"},
                                 {"accent", "é"},
                                 {"yen sign", "¥"},
                                 {"emoji", "😀"},
                                 {"Hangul", "한"},
                                 {"simplified", "们"},
                                 {"bytes that are not UTF-8", "\xFF"},
                                 {"replacement character", "\xEF\xBF\xBD"},
                                 {"one among many", "あいうéえ"}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Utf8ToAnsi(row.text), std::nullopt);
  }
}

}  // namespace
}  // namespace quillon::test
