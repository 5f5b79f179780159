#include <gtest/gtest.h>

#include "base/FoldedText.h"

namespace quillon {
namespace {

TEST(FoldedText, LetterCaseIsFolded) {
  EXPECT_EQ(Folded("Quillon ÄÉ Ωж"), Folded("qUILLON äé ωЖ"));
  EXPECT_EQ(Folded("ABC"), "abc");
}

TEST(FoldedText, FullWidthEqualsHalfWidth) {
  EXPECT_EQ(Folded("ＡＢｃ　１２！"), "abc 12!");
  EXPECT_EQ(Folded("ｱｲｳ｡｢ｰ｣"), "アイウ。「ー」");
  EXPECT_EQ(Folded("￥"), Folded("¥"));
}

TEST(FoldedText, AVoicedKanaEqualsItsPartsInEveryForm) {
  EXPECT_EQ(Folded("ｶﾞｷﾞﾊﾟｳﾞ"), "ガギパヴ");
  EXPECT_EQ(Folded("か\u3099は\u309A"), "がぱ");
  EXPECT_EQ(Folded("カﾞ"), "ガ");
  EXPECT_NE(Folded("カ"), Folded("ガ"));
  EXPECT_EQ(Folded("ｶﾞ").find(Folded("ｶ")), std::string::npos) << "an unvoiced kana is not in a voiced one";
}

TEST(FoldedText, AMarkThatJoinsNothingStays) {
  EXPECT_EQ(Folded("ｱﾞ"), "ア\u3099");
  EXPECT_EQ(Folded("ﾞ"), "\u3099");
  EXPECT_EQ(Folded("xﾟ"), "x\u309A");
}

TEST(FoldedText, ALetterAndItsMarkEqualTheLetterWithTheMark) {
  EXPECT_EQ(Folded("E\u0301tude"), Folded("étude"));
}

TEST(FoldedText, HiraganaIsNotKatakana) {
  EXPECT_NE(Folded("あ"), Folded("ア"));
  EXPECT_EQ(Folded("あ漢字"), "あ漢字");
}

TEST(FoldedText, LineBreaksAreBlanksAndWrongBytesAreShownOnes) {
  EXPECT_EQ(Folded("a\r\nb\tc\u2028d"), "a  b c d");
  EXPECT_EQ(Folded("a\xFF"
                   "b"),
            "a\uFFFDb");
}

TEST(FoldedText, IsAppended) {
  std::string text = "か";
  AppendFolded(text, "\u3099");
  EXPECT_EQ(text, "か\u3099") << "texts that are appended one after the other do not join";
  AppendFolded(text, "E\u0301");
  EXPECT_EQ(text, "か\u3099é");
}

TEST(FoldedText, CharactersBeyondTheFirstPlaneAreFolded) {
  EXPECT_EQ(Folded("𐐀"), "𐐨");
  EXPECT_EQ(Folded("🎵"), "🎵");
}

}  // namespace
}  // namespace quillon
