#include <gtest/gtest.h>

#include <string>

#include "tags/SongText.h"

namespace quillon {
namespace {

using namespace std::string_literals;

TEST(SongText, EndsAtItsFirstZeroByteAndHasNoBlanksAround) {
  EXPECT_EQ(SongText("  Song \0more"s), "Song");
  EXPECT_EQ(SongText(" --- "), "");
  EXPECT_EQ(SongText("a\xFF"s), "a\uFFFD");
}

TEST(SongText, LongTextsAreCutBetweenCharacters) {
  std::string text(65535, 'x');
  EXPECT_EQ(SongText(text + "歌"), text);
  EXPECT_EQ(SongText(text + "ab"), text + "a");
}

TEST(SongText, GenreNumbersBecomeNames) {
  EXPECT_EQ(GenreName("17"), "Rock");
  EXPECT_EQ(GenreName("(17)"), "Rock");
  EXPECT_EQ(GenreName("(17)Rock"), "Rock");
  EXPECT_EQ(GenreName("(255)Own"), "Own");
  EXPECT_EQ(GenreName("(Own)"), "(Own)");
  EXPECT_EQ(GenreName("J-Pop"), "J-Pop");
  EXPECT_EQ(GenreName("255"), "");
  EXPECT_EQ(GenreName(0), "Blues");
  EXPECT_EQ(GenreName(255), "");
}

TEST(SongText, NumbersAreTheLeadingDigits) {
  EXPECT_EQ(SongNumber("3/12"), 3);
  EXPECT_EQ(SongNumber("2003-05-01"), 2003);
  EXPECT_EQ(SongNumber("-3"), 0);
  EXPECT_EQ(SongNumber("99999999999"), 0);
  EXPECT_EQ(SongNumber(""), 0);
}

}  // namespace
}  // namespace quillon
