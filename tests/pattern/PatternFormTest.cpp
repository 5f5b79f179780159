#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "pattern/PatternForm.h"

namespace quillon {
namespace {

PatternForm FormWith(const std::string& pattern) {
  PatternForm form;
  form.pattern = pattern;
  return form;
}

TEST(PatternForm, ShowsWhatIsStored) {
  OptionValues::Extra stored;
  EXPECT_EQ(ShownPatternForm(stored), FormWith("{title}"));
  const PatternForm form = {" {n} ", -5, 10, 3, PatternInvalid::kReplaced, "_"};
  StorePatternForm(form, stored);
  EXPECT_EQ(ShownPatternForm(stored), form);
}

TEST(PatternForm, BringsNumbersOfTheSettingsFileIntoTheBoxesRanges) {
  OptionValues::Extra stored;
  stored.patternStart = 2147483647;
  stored.patternStep = -2147483647 - 1;
  stored.patternWidth = 0;
  const PatternForm form = ShownPatternForm(stored);
  EXPECT_EQ(form.start, 999999999);
  EXPECT_EQ(form.step, -999999999);
  EXPECT_EQ(form.digits, 1);
  stored.patternWidth = 100;
  EXPECT_EQ(ShownPatternForm(stored).digits, 9);
}

TEST(PatternForm, TheHistoryHoldsTheLastTenPatternsOnceEach) {
  OptionValues::Extra stored;
  for (int i = 1; i <= 12; ++i) StorePatternForm(FormWith("p" + std::to_string(i)), stored);
  EXPECT_EQ(stored.patterns.front(), "p12");
  EXPECT_EQ(stored.patterns.back(), "p3");
  StorePatternForm(FormWith("p5"), stored);
  using Texts = std::vector<std::string>;
  EXPECT_EQ(Texts(stored.patterns.begin(), stored.patterns.end()),
            Texts({"p5", "p12", "p11", "p10", "p9", "p8", "p7", "p6", "p4", "p3"}));
  StorePatternForm(FormWith("p3"), stored);
  StorePatternForm(FormWith("p3"), stored);
  EXPECT_EQ(Texts(stored.patterns.begin(), stored.patterns.end()),
            Texts({"p3", "p5", "p12", "p11", "p10", "p9", "p8", "p7", "p6", "p4"}));
}

TEST(PatternForm, RefusesWhatIsNoPattern) {
  const auto refusal = [](const PatternForm& form) { return RulesOf(form, {}, false).Failure(); };
  EXPECT_EQ(refusal(FormWith("  ")), (PatternRefusal{PatternBox::kPattern, 0, "書式を入力してください"}));
  EXPECT_EQ(refusal(FormWith("曲 {titel}")),
            (PatternRefusal{PatternBox::kPattern, 3, "4 文字目： 「titel」というフィールドはありません"}));
  PatternForm form = FormWith("{title}");
  form.replacement = "a?";
  EXPECT_TRUE(RulesOf(form, {}, false)) << "the text is not used";
  form.invalid = PatternInvalid::kReplaced;
  EXPECT_EQ(refusal(form),
            (PatternRefusal{PatternBox::kReplacement, 1, "置き換える文字列に、ファイル名に使えない文字があります"}));
}

TEST(PatternForm, GivesTheRules) {
  const PatternForm form = {"{n}", 7, 2, 4, PatternInvalid::kReplaced, "_"};
  OptionValues::Rename options;
  const auto rules = RulesOf(form, options, false);
  ASSERT_TRUE(rules);
  EXPECT_EQ(rules->start, 7);
  EXPECT_EQ(rules->step, 2);
  EXPECT_EQ(rules->digits, 4);
  EXPECT_EQ(rules->invalid, PatternInvalid::kReplaced);
  EXPECT_EQ(rules->replacement, "_");
  EXPECT_TRUE(rules->skipUnnamed);
  EXPECT_FALSE(rules->findInvalid);
  options.skipUntitledRows = false;
  options.checkInvalidNames = true;
  EXPECT_FALSE(RulesOf(form, options, false)->skipUnnamed);
  EXPECT_TRUE(RulesOf(form, options, false)->findInvalid);
  EXPECT_FALSE(RulesOf(form, {}, true)->skipUnnamed) << "as with titles in auto-apply mode";
  EXPECT_FALSE(RulesOf(form, options, true)->findInvalid);
}

}  // namespace
}  // namespace quillon
