#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "rename/ReplaceText.h"

namespace quillon {
namespace {

struct Row {
  const char* name;
  std::string text, find, replacement, expected;
};

void Check(const std::vector<Row>& rows, CompareMode compareMode) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(ReplaceText(row.text, row.find, row.replacement, 1, kAllOccurrences, compareMode), row.expected);
  }
}

TEST(ReplaceText, ReplacesEveryOccurrence) {
  const std::vector<Row> rows = {
      {"several", "banana", "an", "x", "bxxa"},
      {"none", "banana", "q", "x", "banana"},
      {"whole text", "a", "a", "", ""},
      {"at both ends", "aba", "a", "xx", "xxbxx"},
      {"from left to right, not overlapping", "aaa", "aa", "b", "ba"},
      {"what is put in is not searched", "a", "a", "aa", "aa"},
      {"empty find", "abc", "", "x", "abc"},
      {"empty text", "", "a", "x", ""},
      {"empty text, empty find", "", "", "x", ""},
      {"find longer than the text", "ab", "abc", "x", "ab"},
      {"Japanese", "東京都東", "東", "西", "西京都西"},
      {"NUL", std::string("a\0b", 3), std::string("\0", 1), "-", "a-b"},
      {"stray byte",
       "a\xFF"
       "b",
       "\xFF", "-", "a-b"},
      {"stray byte is not found inside a character", "あ\x81", "\x81", "-", "あ-"},
      {"line breaks", "a\r\nb", "\r\n", " ", "a b"},
  };
  Check(rows, CompareMode::kBinary);
  Check(rows, CompareMode::kText);
}

TEST(ReplaceText, BinaryComparisonTellsLetterCaseApart) {
  Check({{"ASCII", "aAbB", "a", "x", "xAbB"},
         {"full-width", "ａＡ", "ａ", "x", "xＡ"},
         {"composed and decomposed", "é", "e\u0301", "x", "é"}},
        CompareMode::kBinary);
}

TEST(ReplaceText, TextComparisonIgnoresLetterCaseAndNothingElse) {
  Check({{"ASCII", "aAbB", "a", "x", "xxbB"},
         {"capital find", "aAbB", "AB", "x", "axB"},
         {"full-width", "ａＡa", "Ａ", "x", "xxa"},
         {"Greek and Cyrillic", "ΑαДд", "α", "x", "xxДд"},
         {"half-width is not full-width", "aａ", "A", "x", "xａ"},
         {"hiragana is not katakana", "あア", "ア", "x", "あx"},
         {"half-width kana is not katakana", "ｱア", "ア", "x", "ｱx"},
         {"sharp s is not two letters", "ßss", "ss", "x", "ßx"},
         {"accents count", "eé", "E", "x", "xé"},
         {"small kana is not big", "ぁあ", "あ", "x", "ぁx"},
         {"lower case of another length", "\u212A1k", "k1", "x", "xk"},  // the Kelvin sign has three bytes
         {"replacement keeps its case", "abc", "B", "Q", "aQc"}},
        CompareMode::kText);
}

TEST(ReplaceText, HonoursTheCount) {
  EXPECT_EQ(ReplaceText("aaaa", "a", "b", 1, 0, CompareMode::kBinary), "aaaa");
  EXPECT_EQ(ReplaceText("aaaa", "a", "b", 1, 1, CompareMode::kBinary), "baaa");
  EXPECT_EQ(ReplaceText("aaAa", "a", "b", 1, 3, CompareMode::kText), "bbba");
  EXPECT_EQ(ReplaceText("aa", "a", "b", 1, 9, CompareMode::kBinary), "bb");
}

TEST(ReplaceText, DropsWhatComesBeforeTheStart) {
  EXPECT_EQ(ReplaceText("abca", "a", "x", 2, kAllOccurrences, CompareMode::kBinary), "bcx");
  EXPECT_EQ(ReplaceText("東京東", "東", "x", 2, kAllOccurrences, CompareMode::kBinary), "京x");
  EXPECT_EQ(ReplaceText("東京東", "東", "x", 3, kAllOccurrences, CompareMode::kText), "x");
  EXPECT_EQ(ReplaceText("abc", "a", "x", 4, kAllOccurrences, CompareMode::kBinary), "");
  EXPECT_EQ(ReplaceText("abc", "a", "x", 9, kAllOccurrences, CompareMode::kBinary), "");
  EXPECT_EQ(ReplaceText("abc", "", "x", 2, kAllOccurrences, CompareMode::kBinary), "bc");
  EXPECT_EQ(ReplaceText("abca", "a", "x", 2, 0, CompareMode::kBinary), "bca");
}

TEST(FindOccurrences, BytesThatAreNoTextAreOnlyFoundByThemselves) {
  using Ranges = std::vector<TextRange>;
  for (const CompareMode mode : {CompareMode::kBinary, CompareMode::kText}) {
    EXPECT_EQ(FindOccurrences("a\xFE\xFF", "\xFF", mode, Overlapping::kNo), (Ranges{{2, 1}}));
    EXPECT_EQ(FindOccurrences("\xFE", "\xFF", mode, Overlapping::kNo), Ranges{});
  }
}

TEST(FindOccurrences, CanOverlap) {
  using Ranges = std::vector<TextRange>;
  EXPECT_EQ(FindOccurrences("aaa", "aa", CompareMode::kBinary, Overlapping::kNo), (Ranges{{0, 2}}));
  EXPECT_EQ(FindOccurrences("aaa", "aa", CompareMode::kBinary, Overlapping::kYes), (Ranges{{0, 2}, {1, 2}}));
  EXPECT_EQ(FindOccurrences("あアあ", "あ", CompareMode::kText, Overlapping::kYes), (Ranges{{0, 3}, {6, 3}}));
  EXPECT_EQ(FindOccurrences("a\u212Ak", "k", CompareMode::kText, Overlapping::kNo), (Ranges{{1, 3}, {4, 1}}));
  EXPECT_EQ(FindOccurrences("abc", "", CompareMode::kBinary, Overlapping::kYes), Ranges{});
}

}  // namespace
}  // namespace quillon
