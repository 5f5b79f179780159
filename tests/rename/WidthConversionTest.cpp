#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "rename/WidthConversion.h"

namespace quillon {
namespace {

using Rows = std::vector<std::pair<std::string, std::string>>;

const Rows& PairsOfBothWidths() {
  static const Rows rows = {
      {"Az09", "Ａｚ０９"},
      {" ", "　"},
      {"!\"#$%&'()*+,-./", "！＂＃＄％＆＇（）＊＋，－．／"},
      {":;<=>?@[\\]^_`{|}~", "：；＜＝＞？＠［＼］＾＿｀｛｜｝～"},
      {"\u00A5", "￥"},
      {"\u00A2\u00A3\u00A6\u00AC\u00AF", "￠￡￤￢￣"},
      {"｡｢｣､･ｰ", "。「」、・ー"},
      {"ｱｲｳｴｵﾝｦｯｬｧ", "アイウエオンヲッャァ"},
      {"ｶﾞｷﾞｸﾞｹﾞｺﾞｻﾞｼﾞｽﾞｾﾞｿﾞ", "ガギグゲゴザジズゼゾ"},
      {"ﾀﾞﾁﾞﾂﾞﾃﾞﾄﾞﾊﾞﾋﾞﾌﾞﾍﾞﾎﾞ", "ダヂヅデドバビブベボ"},
      {"ﾊﾟﾋﾟﾌﾟﾍﾟﾎﾟ", "パピプペポ"},
      {"ｳﾞﾜﾞｦﾞ", "ヴヷヺ"},
      {"ﾞﾟ", "゛゜"},
      {"ｱﾞｶﾟﾊﾟﾞ", "ア゛カ゜パ゛"},
      {"abc ｱｲｳ 01", "ａｂｃ　アイウ　０１"},
  };
  return rows;
}

TEST(ToFullWidth, ConvertsAndJoinsVoiceMarks) {
  for (const auto& [narrow, wide] : PairsOfBothWidths()) EXPECT_EQ(ToFullWidth(narrow), wide);
}

TEST(ToHalfWidth, ConvertsAndSplitsVoiceMarks) {
  for (const auto& [narrow, wide] : PairsOfBothWidths()) EXPECT_EQ(ToHalfWidth(wide), narrow);
}

TEST(ToHalfWidth, ConvertsCharactersWhoseHalfWidthFormsDoNotConvertBack) {
  EXPECT_EQ(ToHalfWidth("‘a’“b”"), "'a'\"b\"");
  EXPECT_EQ(ToHalfWidth("ハ\u3099ハ\u309A"), "ﾊﾞﾊﾟ");
}

TEST(WidthConversion, LeavesEverythingElse) {
  for (const std::string text :
       {"ひらがなゔ", "漢字", "ヰヱヵヶヮヸヹヾ", "é", "〜−", "\t\r\n\x01\x7F", "😀", "Жα", "①㈱"}) {
    EXPECT_EQ(ToHalfWidth(text), text);
    EXPECT_EQ(ToFullWidth(text), text);
  }
}

TEST(WidthConversion, LeavesWhatHasTheWidthAlready) {
  for (const auto& [narrow, wide] : PairsOfBothWidths()) {
    EXPECT_EQ(ToHalfWidth(narrow), narrow);
    EXPECT_EQ(ToFullWidth(wide), wide);
  }
}

TEST(WidthConversion, KeepsBytesThatAreNotUtf8) {
  EXPECT_EQ(ToFullWidth("\xFF"
                        "a\xEF\xBD"),
            "\xFFａ\xEF\xBD");
  EXPECT_EQ(ToHalfWidth("\xFFａ\xEF\xBD"),
            "\xFF"
            "a\xEF\xBD");
  EXPECT_EQ(ToFullWidth("ｶ\xEF\xBE"), "カ\xEF\xBE");
}

TEST(WidthConversion, EveryNarrowFormComesBackFromItsWideOne) {
  for (char32_t c = 1; c < 0x10000; ++c) {
    if (c >= 0xD800 && c < 0xE000) continue;
    std::string text;
    AppendUtf8(text, c);
    const std::string wide = ToFullWidth(text);
    EXPECT_EQ(wide == text ? text : ToHalfWidth(wide), text) << std::hex << static_cast<unsigned>(c);
  }
}

}  // namespace
}  // namespace quillon
