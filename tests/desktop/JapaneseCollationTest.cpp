#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "desktop/ExpectOrder.h"
#include "platform/desktop/JapaneseCollation.h"

namespace quillon {
namespace {

using test::ExpectOrder;

TEST(JapaneseCollation, HoldsKanaOfOneSoundTogether) {
  ExpectOrder({{"ぁ", "ァ", "ｧ"},      {"あ", "ア", "ｱ"},
               {"あい", "アイ", "ｱｲ"}, {"い", "イ", "ｲ"},
               {"う", "ウ", "ｳ"},      {"ヴ", "ゔ"},
               {"か", "カ", "ｶ"},      {"が", "ガ"},
               {"かい", "カイ", "ｶｲ"}, {"がい", "ガイ"},
               {"かう", "カウ", "ｶｳ"}, {"きゃ", "キャ", "ｷｬ"},
               {"きや", "キヤ", "ｷﾔ"}, {"きゃく", "キャク", "ｷｬｸ"},
               {"っ", "ッ", "ｯ"},      {"つ", "ツ", "ﾂ"},
               {"は", "ハ", "ﾊ"},      {"ば", "バ"},
               {"ぱ", "パ"},           {"ゐ", "ヰ"},
               {"を", "ヲ", "ｦ"},      {"ん", "ン", "ﾝ"}});
}

TEST(JapaneseCollation, HasSymbolsDigitsLettersKanaAndKanjiInThisOrder) {
  ExpectOrder({{""},           {"!", "！"}, {"「あ」"}, {"1", "１"}, {"a", "ａ"}, {"a b", "a　b"}, {"a1"},
               {"ab", "ａｂ"}, {"b", "ｂ"}, {"e"},      {"é"},       {"f"},       {"z", "ｚ"},     {"あ"},
               {"あ!"},        {"あ1"},     {"あa"},    {"ああ"},    {"ん"},      {"亜"},          {"一"},
               {"漢字"},       {"山"},      {"川"},     {"東京"},    {"日本"},    {"龠"}});
}

TEST(JapaneseCollation, ComparesDigitsAsTexts) {
  ExpectOrder({{"01 曲"}, {"1", "１"}, {"1,000"}, {"10", "１０"}, {"2"}, {"9"}, {"9 曲"}, {"曲1"}, {"曲10"}, {"曲2"}});
}

TEST(JapaneseCollation, ComparesHyphensAndApostrophesAtTheirPositions) {
  ExpectOrder({{"co-op"}, {"co1"}, {"coa"}, {"coop"}, {"it's"}, {"it1"}, {"its"}});
}

TEST(JapaneseCollation, GivesEveryTextAKey) {
  const auto collation = MakeJapaneseCollation();
  const std::string broken = "あ\xFFい\xE3\x81";
  const std::string alone = "\xED\xA0\x80";  // half a surrogate pair, which Windows file names may contain
  for (const std::string& text : {broken, alone, std::string("\0あ", 4), std::string("\xFF")}) {
    EXPECT_THAT(collation->KeyOf(text), testing::Not(testing::IsEmpty()));
    EXPECT_EQ(collation->KeyOf(text), collation->KeyOf(text));
  }
  EXPECT_LT(collation->KeyOf("あ"), collation->KeyOf(broken));
  EXPECT_LT(collation->KeyOf(broken), collation->KeyOf("い"));
  EXPECT_LT(collation->KeyOf("あ\xFF い"), collation->KeyOf("あ\xFFう")) << "what can be decoded counts";
}

TEST(JapaneseCollation, TellsLongTextsApartByTheirEnds) {
  const auto collation = MakeJapaneseCollation();
  for (const char* part : {"あ", "ｶﾞ", "亜", "é", "😀", "㌔"}) {
    std::string text;
    for (int i = 0; i < 20000; ++i) text += part;
    EXPECT_LT(collation->KeyOf(text + "a"), collation->KeyOf(text + "b")) << part;
  }
}

}  // namespace
}  // namespace quillon
