#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "platform/Ansi.h"
#include "rename/BuiltInPresets.h"
#include "rename/ModifyForm.h"
#include "rename/ModifyName.h"
#include "support/RecordedProgress.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

using Names = std::vector<std::pair<const char*, const char*>>;

struct Case {
  const char* preset;
  Names names;
  bool again = true;  ///< a second run changes nothing
};

const std::vector<Case>& Cases() {
  static const std::vector<Case> cases = {
      {"先頭のトラック番号を取り除く",
       {{"01 - さくらさくら", "さくらさくら"},
        {"12.赤とんぼ", "赤とんぼ"},
        {"03 99の夢", "03 99の夢"},
        {"03 - 99の夢", "03 - 99の夢"},
        {"1-02　海", "1-02　海"},
        {"07 ", "07 "},
        {"2024", "2024"}}},
      {"先頭の一桁の番号を二桁にする",
       {{"7 海", "07 海"}, {"12 山", "12 山"}, {"7つの海", "7つの海"}, {"3.花", "03.花"}, {"07-川", "07-川"}}},
      {"「アーティスト - タイトル」を入れ替える",
       {{"滝廉太郎 - 荒城の月", "荒城の月 - 滝廉太郎"},
        {"a - b - c", "b - c - a"},
        {"荒城の月", "荒城の月"},
        {"me＠home - 海", "海 - me＠home"},
        {"me＠home", "me＠home"}},
       false},
      {"全角を半角にする",
       {{"Ｎｏ．１２　春の小川", "No.12 春の小川"},
        {"これは？：“ｘ”＼ｙ", "これは___x__y"},
        {"ガラスのくつ", "ｶﾞﾗｽのくつ"}}},
      {"語の先頭を大文字にする",
       {{"AULD lang syne", "Auld Lang Syne"}, {"don't", "Don't"}, {"春の小川 ＡＢＣ", "春の小川 Ａｂｃ"}}},
      {"「_」を空白にする", {{"auld_lang_syne", "auld lang syne"}, {"__a", "  a"}, {"a＿b", "a＿b"}}},
      {"余分な空白を取り除く",
       {{"　春の  小川　", "春の 小川"}, {" a b ", "a b"}, {"a　 　b", "a b"}, {"春の　小川", "春の　小川"}}},
      {"角かっこに囲まれた部分を取り除く",
       {{"荒城の月 [mono]", "荒城の月"},
        {"[1901]【改】 荒城の月 [mono] (2)", "荒城の月 (2)"},
        {"[a[b]c] d", "c] d"},
        {"a [x【y】z] b】", "a b】"},
        {"[a", "[a"}}},
      {"複製に付いた番号を取り除く",
       {{"song (2)", "song"},
        {"song (2) (3)", "song"},
        {"song - コピー (2)", "song"},
        {"song - Copy", "song"},
        {"song (live)", "song (live)"},
        {"(2)", "(2)"}}},
      {"使えない記号を全角にする",
       {{"Re: Who?", "Re： Who？"}, {"AC/DC *live*", "AC／DC ＊live＊"}, {"\"a\" <b>", "＂a＂ <b>"}}},
  };
  return cases;
}

class BuiltInPresetsTest : public testing::Test {
 protected:
  std::string Modified(const std::string& name, const Preset& preset, std::size_t rows) {
    const ModifyResult result = ModifyName(name, preset.rules, rows, regex_, progress_);
    EXPECT_FALSE(result.leftAlone) << preset.name << ": " << name;
    return result.name;
  }

  RegexLibrary regex_;
  test::PendingRecorder pending_;
  test::RecordedProgress progress_{pending_};
};

TEST_F(BuiltInPresetsTest, GiveTheSameNamesForAnyNumberOfRows) {
  ASSERT_TRUE(regex_.Available());
  ASSERT_EQ(Cases().size(), BuiltInPresets().size());
  for (std::size_t i = 0; i < Cases().size(); ++i) {
    const Preset& preset = BuiltInPresets()[i];
    EXPECT_EQ(preset.name, Cases()[i].preset);
    EXPECT_GE(Cases()[i].names.size(), 3u);
    for (const auto& [before, after] : Cases()[i].names) {
      for (const std::size_t rows : {1u, 2u, 50u}) {
        EXPECT_EQ(Modified(before, preset, rows), after) << preset.name << ", rows: " << rows;
      }
      if (Cases()[i].again) {
        EXPECT_EQ(Modified(after, preset, 2), after) << preset.name;
      }
    }
  }
}

// Also of names that no example has: all short ones made of what the rules look for.
TEST_F(BuiltInPresetsTest, AreStableForAllShortNames) {
  const std::array<std::string, 14> pieces = {"a", "1",  " ",  "　", "-", " - ", "[",
                                              "]", "【", "】", "(",  ")", "_",   "＠⇔＠"};
  std::vector<std::string> names = {""};
  for (std::size_t from = 0, length = 0; length < 4; ++length) {
    const std::size_t to = names.size();
    for (std::size_t i = from; i < to; ++i) {
      for (const std::string& piece : pieces) names.push_back(names[i] + piece);
    }
    from = to;
  }
  for (const Preset& preset : BuiltInPresets()) {
    for (const std::string& name : names) {
      const std::string once = Modified(name, preset, 1);
      ASSERT_EQ(Modified(name, preset, 2), once) << preset.name << ": " << name;
      ASSERT_EQ(Modified(name, preset, 50), once) << preset.name << ": " << name;
    }
  }
}

TEST_F(BuiltInPresetsTest, CanBeRunAndKept) {
  const test::TempFolder folder;
  const Presets kept(folder.At("q.ini"));
  std::set<std::string> names;
  for (const Preset& preset : BuiltInPresets()) {
    EXPECT_EQ(CheckModifyForm(preset.rules), std::nullopt) << preset.name;
    EXPECT_EQ(PresetNameRefusal(preset.name), std::nullopt) << preset.name;
    EXPECT_TRUE(names.insert(ToLower(preset.name)).second) << preset.name;
    ASSERT_EQ(kept.Save({"x", preset.rules}), std::nullopt);
    EXPECT_EQ(*kept.Load("x"), preset.rules) << preset.name << ": the settings file can hold it";
    for (const ReplaceRule& rule : preset.rules.rules) {
      EXPECT_TRUE(Utf8ToAnsi(rule.find) && Utf8ToAnsi(rule.replacement)) << preset.name << " needs no UTF-8";
    }
  }
  EXPECT_EQ(names.size(), 10u);
}

TEST(FindBuiltInPreset, TakesItsNameInAnyLetterCase) {
  EXPECT_EQ(FindBuiltInPreset("全角を半角にする"), &BuiltInPresets()[3]);
  EXPECT_EQ(FindBuiltInPreset("全角を半角に"), nullptr);
  EXPECT_EQ(FindBuiltInPreset(""), nullptr);
}

}  // namespace
}  // namespace quillon
