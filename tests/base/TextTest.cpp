#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "base/Text.h"

namespace quillon {
namespace {

constexpr char32_t kReplacementCharacter = 0xFFFD;

TEST(CharacterAt, DecodesValidUtf8) {
  const struct {
    const char* name;
    std::string_view text;
    char32_t expected;
  } rows[] = {
      {"NUL", std::string_view("\0", 1), 0},
      {"last of one byte", "\x7F", 0x7F},
      {"first of two bytes", "\xC2\x80", 0x80},
      {"last of two bytes", "\xDF\xBF", 0x7FF},
      {"first of three bytes", "\xE0\xA0\x80", 0x800},
      {"last before the surrogates", "\xED\x9F\xBF", 0xD7FF},
      {"first after the surrogates", "\xEE\x80\x80", 0xE000},
      {"replacement character itself", "\xEF\xBF\xBD", 0xFFFD},
      {"last of three bytes", "\xEF\xBF\xBF", 0xFFFF},
      {"first of four bytes", "\xF0\x90\x80\x80", 0x10000},
      {"last of all", "\xF4\x8F\xBF\xBF", 0x10FFFF},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Character c = CharacterAt(row.text, 0);
    EXPECT_EQ(c.codePoint, row.expected);
    EXPECT_EQ(c.length, row.text.size());
    EXPECT_TRUE(c.valid);
    EXPECT_TRUE(IsValidUtf8(row.text));
    std::string again;
    AppendUtf8(again, c.codePoint);
    EXPECT_EQ(again, row.text);
  }
}

TEST(CharacterAt, TakesInvalidBytesOneByOne) {
  const struct {
    const char* name;
    std::string_view text;
    std::size_t expectedCharacters;
  } rows[] = {
      {"continuation byte alone", "\x80", 1},
      {"last continuation byte alone", "\xBF", 1},
      {"overlong slash in two bytes", "\xC0\xAF", 2},
      {"overlong in two bytes, C1", "\xC1\xBF", 2},
      {"overlong in three bytes", "\xE0\x9F\xBF", 3},
      {"overlong in four bytes", "\xF0\x8F\xBF\xBF", 4},
      {"overlong NUL", "\xE0\x80\x80", 3},
      {"first high surrogate", "\xED\xA0\x80", 3},
      {"last low surrogate", "\xED\xBF\xBF", 3},
      {"a surrogate pair", "\xED\xA0\xBD\xED\xB8\x80", 6},
      {"above the last code point", "\xF4\x90\x80\x80", 4},
      {"lead F5", "\xF5\x80\x80\x80", 4},
      {"lead F8, five bytes", "\xF8\x88\x80\x80\x80", 5},
      {"FE and FF", "\xFE\xFF", 2},
      {"two bytes cut short", "\xC3", 1},
      {"three bytes cut short after one", "\xE3", 1},
      {"three bytes cut short after two", "\xE3\x81", 2},
      {"four bytes cut short after three", "\xF0\x9F\x98", 3},
      {"lead byte before ASCII", "\xE3\x41", 2},
      {"lead byte before another character", "\xE3\xE3\x81\x82", 2},
      {"lead byte before NUL", std::string_view("\xC3\0", 2), 2},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_FALSE(IsValidUtf8(row.text));
    const Character c = CharacterAt(row.text, 0);
    EXPECT_EQ(c.codePoint, kReplacementCharacter);
    EXPECT_EQ(c.length, 1u);
    EXPECT_FALSE(c.valid);
    EXPECT_EQ(CharacterCount(row.text), row.expectedCharacters);
  }
}

TEST(CharacterAt, NeverReadsBehindTheViewsEnd) {
  const std::string text = "あい";
  EXPECT_FALSE(CharacterAt(std::string_view(text).substr(0, 2), 0).valid);
  EXPECT_EQ(CharacterAt(text, 3).codePoint, U'い');
  EXPECT_FALSE(CharacterAt(text, 1).valid) << "inside a character";
}

TEST(AppendUtf8, IsTheInverseOfDecodingForEveryCodePoint) {
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    std::string text;
    AppendUtf8(text, c);
    const Character decoded = CharacterAt(text, 0);
    ASSERT_TRUE(decoded.valid && decoded.codePoint == c && decoded.length == text.size()) << std::uint32_t{c};
  }
}

TEST(CharacterCount, CountsCodePoints) {
  EXPECT_EQ(CharacterCount(""), 0u);
  EXPECT_EQ(CharacterCount("abc"), 3u);
  EXPECT_EQ(CharacterCount("音楽"), 2u);
  EXPECT_EQ(CharacterCount("😀"), 1u);
  EXPECT_EQ(CharacterCount("か\u3099"), 2u) << "a combining mark is a character";
  EXPECT_EQ(CharacterCount("a\xFF\xE9"
                           "b"),
            4u);
}

TEST(ByteOffset, FindsTheCharacter) {
  EXPECT_EQ(ByteOffset("a音b", 0), 0u);
  EXPECT_EQ(ByteOffset("a音b", 1), 1u);
  EXPECT_EQ(ByteOffset("a音b", 2), 4u);
  EXPECT_EQ(ByteOffset("a音b", 3), 5u);
  EXPECT_EQ(ByteOffset("a音b", 99), 5u) << "the text's size when it has fewer";
  EXPECT_EQ(ByteOffset("", 1), 0u);
}

TEST(FirstAndLastCharacters, CutBetweenCharacters) {
  EXPECT_EQ(FirstCharacters("音楽祭", 2), "音楽");
  EXPECT_EQ(FirstCharacters("音楽祭", 0), "");
  EXPECT_EQ(FirstCharacters("音楽祭", 3), "音楽祭");
  EXPECT_EQ(FirstCharacters("音楽祭", 9), "音楽祭");
  EXPECT_EQ(LastCharacters("音楽祭", 2), "楽祭");
  EXPECT_EQ(LastCharacters("音楽祭", 0), "");
  EXPECT_EQ(LastCharacters("音楽祭", 3), "音楽祭");
  EXPECT_EQ(LastCharacters("音楽祭", 9), "音楽祭");
  EXPECT_EQ(LastCharacters("音\xFF", 1), "\xFF");
}

TEST(WithReplacementCharacters, ReplacesInvalidBytesOnly) {
  EXPECT_EQ(WithReplacementCharacters("a音😀"), "a音😀");
  EXPECT_EQ(WithReplacementCharacters("a\xFF"
                                      "b\xE3\x81"),
            "a\uFFFD"
            "b\uFFFD\uFFFD");
  EXPECT_EQ(WithReplacementCharacters(""), "");
  EXPECT_TRUE(IsValidUtf8(WithReplacementCharacters("\xED\xA0\x80\xC0\xAF")));
}

TEST(LetterCase, MapsOneCharacterToOneCharacter) {
  const struct {
    const char* name;
    const char* text;
    const char* lower;
    const char* upper;
  } rows[] = {
      {"ASCII", "Quillon 1.0", "quillon 1.0", "QUILLON 1.0"},
      {"neighbours of the letters", "@[`{", "@[`{", "@[`{"},
      {"full-width", "Ａｂ", "ａｂ", "ＡＢ"},
      {"Latin", "Éé", "éé", "ÉÉ"},
      {"Greek", "Σσ", "σσ", "ΣΣ"},
      {"Cyrillic", "Жж", "жж", "ЖЖ"},
      {"Roman numerals", "Ⅳⅳ", "ⅳⅳ", "ⅣⅣ"},
      {"sharp s does not become two letters", "ß", "ß", "ß"},
      {"a ligature stays one", "ﬁ", "ﬁ", "ﬁ"},
      {"beyond the first plane", "𐐀𐐨", "𐐨𐐨", "𐐀𐐀"},
      {"Japanese has no case", "あアｱ音", "あアｱ音", "あアｱ音"},
      {"bytes that are not UTF-8 stay",
       "É\xC3"
       "a\xFF",
       "é\xC3"
       "a\xFF",
       "É\xC3"
       "A\xFF"},
      {"empty", "", "", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(ToLower(row.text), row.lower);
    EXPECT_EQ(ToUpper(row.text), row.upper);
  }
}

TEST(LetterCase, KeepsTheNumberOfCharactersOfEveryCodePoint) {
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    const char32_t lower = LowerCharacter(c);
    const char32_t upper = UpperCharacter(c);
    ASSERT_TRUE(lower <= 0x10FFFF && upper <= 0x10FFFF) << std::uint32_t{c};
    ASSERT_FALSE(lower >= 0xD800 && lower <= 0xDFFF) << std::uint32_t{c};
    ASSERT_FALSE(upper >= 0xD800 && upper <= 0xDFFF) << std::uint32_t{c};
  }
}

TEST(LetterCase, TextsAgreeWithTheirCharacters) {
  // The fast path for ASCII and the general one give the same result.
  for (char32_t c = 0; c < 0x500; ++c) {
    std::string text;
    AppendUtf8(text, c);
    std::string lower;
    AppendUtf8(lower, LowerCharacter(c));
    std::string upper;
    AppendUtf8(upper, UpperCharacter(c));
    EXPECT_EQ(ToLower(text), lower);
    EXPECT_EQ(ToUpper(text), upper);
    EXPECT_EQ(ToLower("A音" + text), "a音" + lower);
  }
}

TEST(EqualIgnoringCase, ComparesLowerCaseForms) {
  EXPECT_TRUE(EqualIgnoringCase("", ""));
  EXPECT_TRUE(EqualIgnoringCase("MidI", "mIDi"));
  EXPECT_TRUE(EqualIgnoringCase("ＡＢé", "ａｂÉ"));
  EXPECT_FALSE(EqualIgnoringCase("mid", "midi"));
  EXPECT_FALSE(EqualIgnoringCase("midi", "mid"));
  EXPECT_FALSE(EqualIgnoringCase("a", "ａ"));
  EXPECT_FALSE(EqualIgnoringCase("[", "{")) << "a letter's distance apart, but no letters";
  EXPECT_FALSE(EqualIgnoringCase("あ", "ア"));
  EXPECT_TRUE(EqualIgnoringCase("A\xFF", "a\xFF"));
  EXPECT_FALSE(EqualIgnoringCase("\xFE", "\xFF"));
  EXPECT_FALSE(EqualIgnoringCase("\xFF", "\uFFFD")) << "a byte equals only itself";
}

TEST(Trim, RemovesOnlyBlanks) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("a"), "a");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim("\ta\n"), "\ta\n");
  EXPECT_EQ(Trim("　a　"), "　a　");
  EXPECT_EQ(Trim(" \ta\t "), "\ta\t");
  EXPECT_EQ(TrimRight("  a  "), "  a");
  EXPECT_EQ(TrimRight("   "), "");
  EXPECT_EQ(TrimRight("a\t"), "a\t");
  EXPECT_EQ(Trim(std::string_view(" a\0 ", 4)), std::string_view("a\0", 2));
}

TEST(Split, GivesThePiecesBetweenSeparators) {
  using Pieces = std::vector<std::string_view>;
  EXPECT_EQ(Split("a b c", ' '), (Pieces{"a", "b", "c"}));
  EXPECT_EQ(Split("", ' '), Pieces{""});
  EXPECT_EQ(Split(" ", ' '), (Pieces{"", ""}));
  EXPECT_EQ(Split("a  b", ' '), (Pieces{"a", "", "b"}));
  EXPECT_EQ(Split(" a ", ' '), (Pieces{"", "a", ""}));
  EXPECT_EQ(Split("a,b", ' '), Pieces{"a,b"});
  EXPECT_EQ(Split("音,楽", ','), (Pieces{"音", "楽"}));
}

TEST(FormatThousands, GroupsDigitsByThree) {
  EXPECT_EQ(FormatThousands(0), "0");
  EXPECT_EQ(FormatThousands(999), "999");
  EXPECT_EQ(FormatThousands(1000), "1,000");
  EXPECT_EQ(FormatThousands(12345), "12,345");
  EXPECT_EQ(FormatThousands(999999), "999,999");
  EXPECT_EQ(FormatThousands(1000000), "1,000,000");
  EXPECT_EQ(FormatThousands(4294967296u), "4,294,967,296");
  EXPECT_EQ(FormatThousands(std::numeric_limits<std::uint64_t>::max()), "18,446,744,073,709,551,615");
}

TEST(LeadingNumber, ReadsWhatTheTextStartsWith) {
  constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();
  const struct {
    const char* name;
    std::string_view text;
    std::int64_t expected;
  } rows[] = {
      {"plain", "42", 42},
      {"text behind", "42ms", 42},
      {"blanks in front", "   42", 42},
      {"minus", "-42", -42},
      {"plus", "+42", 42},
      {"a fraction is left off", "3.9", 3},
      {"leading zeros", "0042", 42},
      {"a comma ends it", "1,234", 1},
      {"a blank behind the sign", "- 42", 0},
      {"two signs", "+-42", 0},
      {"a sign alone", "-", 0},
      {"text", "abc", 0},
      {"text in front", "a1", 0},
      {"a tab in front", "\t42", 0},
      {"empty", "", 0},
      {"blanks only", "   ", 0},
      {"full-width digits are text", "４２", 0},
      {"largest", "9223372036854775807", kLargest},
      {"one more stays at the largest", "9223372036854775808", kLargest},
      {"far more stays at the largest", "99999999999999999999999999", kLargest},
      {"just below saturation", "9223372036854775799", 9223372036854775799},
      {"saturated digits go on being read", "92233720368547758070", kLargest},
      {"most negative", "-99999999999999999999999999", -kLargest},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(LeadingNumber(row.text), row.expected);
  }
}

TEST(MinutesAndSeconds, AreWholeSecondsHalvesToEven) {
  const struct {
    std::int32_t milliseconds;
    std::size_t digits;
    const char* expected;
  } cases[] = {{0, 1, "0:00"},
               {499, 1, "0:00"},
               {500, 1, "0:00"},
               {501, 1, "0:01"},
               {1500, 1, "0:02"},
               {2500, 1, "0:02"},
               {59'499, 2, "00:59"},
               {59'500, 2, "01:00"},
               {61'000, 2, "01:01"},
               {6'000'000, 2, "100:00"},
               {2'147'483'647, 1, "35791:24"},
               {-61'000, 2, "01:01"}};
  for (const auto& c : cases) EXPECT_EQ(MinutesAndSeconds(c.milliseconds, c.digits), c.expected) << c.milliseconds;
}

}  // namespace
}  // namespace quillon
