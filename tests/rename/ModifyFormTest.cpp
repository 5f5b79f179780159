#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "rename/ModifyForm.h"

namespace quillon {
namespace {

using Modify = OptionValues::Modify;

Modify WithRule(std::size_t index, const ReplaceRule& rule) {
  Modify form;
  form.rules.at(index) = rule;
  return form;
}

void ExpectNoFind(const Modify& form, std::size_t rule) {
  const std::optional<ModifyRefusal> refusal = CheckModifyForm(form);
  ASSERT_TRUE(refusal);
  EXPECT_EQ(refusal->rule, rule);
  EXPECT_EQ(refusal->box, ModifyBox::kFind);
  EXPECT_EQ(refusal->caret, 0u);
}

void ExpectInvalidReplacement(const Modify& form, std::size_t rule, std::size_t caret) {
  const std::optional<ModifyRefusal> refusal = CheckModifyForm(form);
  ASSERT_TRUE(refusal) << form.rules.at(rule).replacement;
  EXPECT_EQ(refusal->rule, rule);
  EXPECT_EQ(refusal->box, ModifyBox::kReplacement);
  EXPECT_EQ(refusal->caret, caret) << form.rules.at(rule).replacement;
}

TEST(CheckModifyForm, TheDefaultsMayBeStored) {
  EXPECT_EQ(CheckModifyForm({}), std::nullopt);
}

TEST(CheckModifyForm, ACheckedRuleNeedsATextToFind) {
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) {
    ExpectNoFind(WithRule(i, {1, "", "b"}), i);
    EXPECT_EQ(CheckModifyForm(WithRule(i, {0, "", "b"})), std::nullopt) << "an unchecked one does not";
    EXPECT_EQ(CheckModifyForm(WithRule(i, {1, " ", "b"})), std::nullopt) << "a blank is a text";
    EXPECT_EQ(CheckModifyForm(WithRule(i, {1, "a", ""})), std::nullopt) << "the replacement may be empty";
  }
}

TEST(CheckModifyForm, SaysWhatIsMissing) {
  const std::optional<ModifyRefusal> refusal = CheckModifyForm(WithRule(2, {1, "", ""}));
  ASSERT_TRUE(refusal);
  const Message expected = {"設定", "検索する文字列を指定してください\r\n左のチェックを外すとこの項目は無効になります",
                            MessageIcon::kExclamation, MessageButtons::kOk};
  EXPECT_EQ(refusal->message, expected);
}

TEST(CheckModifyForm, NoReplacementMayHoldACharacterThatFileNamesCannot) {
  for (const char* character : {"\"", "*", "/", ":", "<", ">", "?", "\\", "|", "\r"}) {
    for (std::size_t i = 0; i < kReplaceRuleCount; ++i) {
      ExpectInvalidReplacement(WithRule(i, {1, "a", character}), i, 0);
      ExpectInvalidReplacement(WithRule(i, {0, "", character}), i, 0);
    }
  }
  for (const char* allowed : {"", " ", "_", "'", ".", "-", "\n", "＊", "￥", "／", "：", "？", "日本"}) {
    EXPECT_EQ(CheckModifyForm(WithRule(0, {1, "a", allowed})), std::nullopt) << allowed;
  }
}

TEST(CheckModifyForm, TheCaretGoesBeforeTheFirstInvalidCharacter) {
  struct Row {
    std::string replacement;
    std::size_t caret;
  };
  const Row rows[] = {{"a?", 1},  {"abc?def", 3},   {"?:", 0},  {"a:b?", 1}, {"日本?", 2},
                      {"😀😀?", 2}, {"か\u3099?", 2}, {"ｶﾞ/", 2}, {"\\1", 0},  {"  |", 2}};
  for (const Row& row : rows) ExpectInvalidReplacement(WithRule(0, {1, "a", row.replacement}), 0, row.caret);
}

TEST(CheckModifyForm, ReplacementsOfRegularExpressionsAreCheckedAndPatternsAreNot) {
  Modify form = WithRule(0, {1, "(.*)\\?|[\"<>:/]", "$1"});
  form.method = FindMethod::kRegex;
  EXPECT_EQ(CheckModifyForm(form), std::nullopt);
  form.rules[0].replacement = "x\\1";
  ExpectInvalidReplacement(form, 0, 1);
}

TEST(CheckModifyForm, SaysWhatIsInvalid) {
  const std::optional<ModifyRefusal> refusal = CheckModifyForm(WithRule(4, {0, "", "ab*"}));
  ASSERT_TRUE(refusal);
  const Message expected = {"設定",
                            "置換する文字列に不正な文字が含まれています\r\n不正な文字には置換することが出来ません",
                            MessageIcon::kExclamation, MessageButtons::kOk};
  EXPECT_EQ(refusal->message, expected);
}

TEST(CheckModifyForm, LooksForMissingTextsInAllRulesFirst) {
  Modify form;
  form.rules[0] = {true, "a", "?"};
  form.rules[3] = {true, "", "ok"};
  form.rules[4] = {true, "", "?"};
  ExpectNoFind(form, 3);
  form.rules[3].find = "b";
  ExpectNoFind(form, 4);
  form.rules[4].find = "c";
  ExpectInvalidReplacement(form, 0, 0);
  form.rules[0].replacement = "";
  ExpectInvalidReplacement(form, 4, 0);
}

TEST(CheckModifyForm, WhatReplacesInvalidCharactersIsNotChecked) {
  Modify form;
  form.replaceInvalid = true;
  form.invalidReplacement = "?";
  EXPECT_EQ(CheckModifyForm(form), std::nullopt);
}

TEST(EnabledBoxes, FollowTheirCheckBoxes) {
  const Modify none;
  EXPECT_EQ(EnabledBoxes(none, true), (ModifyEnabling{false, {}, true}));
  EXPECT_EQ(EnabledBoxes(none, false), (ModifyEnabling{false, {}, false}));
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) {
    ModifyEnabling expected{false, {}, true};
    expected.ruleTexts.at(i) = true;
    EXPECT_EQ(EnabledBoxes(WithRule(i, {1, "", ""}), true), expected);
    EXPECT_EQ(EnabledBoxes(WithRule(i, {0, "a", "b"}), true), (ModifyEnabling{false, {}, true}));
  }
  Modify revice;
  revice.replaceInvalid = true;
  EXPECT_EQ(EnabledBoxes(revice, true), (ModifyEnabling{true, {}, true}));
}

TEST(ShownAndStoredForm, TheChoiceOfSearchOutlivesAMissingLibrary) {
  for (const FindMethod method : {FindMethod::kText, FindMethod::kRegex}) {
    Modify stored;
    stored.method = method;
    EXPECT_EQ(ShownForm(stored, true).method, method);
    EXPECT_EQ(ShownForm(stored, false).method, FindMethod::kText);
    EXPECT_EQ(StoredForm(ShownForm(stored, false), stored, false).method, method);
  }
}

TEST(ShownAndStoredForm, EverythingElseIsTakenOver) {
  Modify stored;
  stored.method = FindMethod::kRegex;
  Modify edited = ShownForm(stored, true);
  edited.method = FindMethod::kText;
  edited.ignoreCase = true;
  edited.rules[1] = {true, "a", "b"};
  EXPECT_EQ(StoredForm(edited, stored, true).method, FindMethod::kText);
  for (const bool available : {false, true}) {
    const Modify result = StoredForm(edited, stored, available);
    EXPECT_EQ(result.ignoreCase, 1);
    EXPECT_EQ(result.rules[1].active, 1);
    EXPECT_EQ(result.rules[1].find, "a");
    EXPECT_EQ(result.rules[1].replacement, "b");
  }
}

}  // namespace
}  // namespace quillon
