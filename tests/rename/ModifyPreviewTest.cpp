#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "rename/ModifyPreview.h"
#include "rename/ModifyRenameNames.h"
#include "support/Growth.h"
#include "support/Rows.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

void Add(FileList& list, const std::string& name) {
  list.Add(test::RowFor((SystemPathStyle() == PathStyle::kWindows ? "C:\\m\\" : "/m/") + std::to_string(list.Count()) +
                        ".mid"));
  list.SetRenameName(list.Count(), name);
}

OptionValues::Modify Rule(const std::string& find, const std::string& replacement,
                          FindMethod method = FindMethod::kText) {
  OptionValues::Modify rules;
  rules.method = method;
  rules.rules[0] = {true, find, replacement};
  return rules;
}

void Finish(ModifyPreview& preview) {
  while (preview.Work(1h)) {
  }
}

Texts Lines(const ModifyPreview& preview) {
  Texts lines;
  for (std::size_t i = 0; i < preview.ShownCount(); ++i) {
    const ModifyPreview::Row& row = preview.Shown(i);
    lines.push_back(row.oldName + " -> " + row.newName + (row.note.empty() ? "" : ": " + row.note));
  }
  return lines;
}

/// Takes its time for names with an "s", and never ends.
struct SlowEngine final : RegexEngine {
  std::optional<std::string> Replace(std::string_view, std::string_view target) override {
    if (target.find('s') == std::string_view::npos) return "b";
    std::this_thread::sleep_for(2ms);
    return std::string(target) + "s";
  }
};

struct Fixture {
  FileList list;
  RegexLibrary regex;
};

TEST(ModifyPreview, ShowsChangedNamesFirstEachInTheListsOrder) {
  Fixture f;
  for (const char* name : {"x1", "a1", "x2", "a2", "a3"}) Add(f.list, name);
  ModifyPreview preview(f.list, Rows::kAll, f.regex);
  preview.Restart(Rule("a", "b"), Repetition::kPerRow);
  Finish(preview);
  EXPECT_EQ(Lines(preview), Texts({"a1 -> b1", "a2 -> b2", "a3 -> b3", "x1 -> x1", "x2 -> x2"}));
  EXPECT_EQ(preview.Summary(), "3 個の名前が変わります");
  EXPECT_EQ(test::RenameNames(f.list), Texts({"x1", "a1", "x2", "a2", "a3"})) << "nothing is changed";
}

TEST(ModifyPreview, IsForTheRowsInScope) {
  Fixture f;
  for (const char* name : {"a1", "a2", "a3"}) Add(f.list, name);
  f.list.SetChecked(2, true);
  ModifyPreview preview(f.list, Rows::kChecked, f.regex);
  preview.Restart(Rule("a", "aa"), Repetition::kPerRow);
  Finish(preview);
  EXPECT_EQ(Lines(preview), Texts({"a2 -> aaaaaaaa2"})) << "three rows: three applications";
  f.list.SetChecked(2, false);
  f.list.SetChecked(3, true);
  preview.Restart(Rule("a", "b"), Repetition::kPerRow);
  Finish(preview);
  EXPECT_EQ(Lines(preview), Texts({"a3 -> b3"})) << "the scope as it is at the start";
}

TEST(ModifyPreview, ShowsTheNamesOfTheRun) {
  Fixture f;
  for (const char* name : {"01 さくら", "02 ＡＢＣ", "x:y", "aaa"}) Add(f.list, name);
  OptionValues::Modify rules = Rule("^(\\d+) (.*)$", "$2 $1", FindMethod::kRegex);
  rules.rules[1] = {true, "a", "aa"};
  rules.replaceInvalid = rules.narrow = rules.proper = true;
  rules.invalidReplacement = "_";
  for (const Repetition repetition : {Repetition::kPerRow, Repetition::kOnce}) {
    ModifyPreview preview(f.list, Rows::kAll, f.regex);
    preview.Restart(rules, repetition);
    Finish(preview);
    FileList run;
    for (const std::string& name : test::RenameNames(f.list)) Add(run, name);
    Unwatched progress;
    (void)ModifyRenameNames(run, Rows::kAll, rules, repetition, f.regex, {}, progress);
    Texts expected;
    for (int i = 1; i <= run.Count(); ++i) {
      expected.push_back(std::string(f.list.Row(i).renameName) + " -> " + std::string(run.Row(i).renameName));
    }
    EXPECT_EQ(Lines(preview), expected);
    EXPECT_EQ(preview.Summary(), "4 個の名前が変わります");
  }
}

TEST(ModifyPreview, RulesWithNothingToFindAreLeftOut) {
  Fixture f;
  Add(f.list, "abc");
  ModifyPreview preview(f.list, Rows::kAll, f.regex);
  preview.Restart(Rule("", "x", FindMethod::kRegex), Repetition::kPerRow);
  Finish(preview);
  EXPECT_EQ(Lines(preview), Texts({"abc -> abc"})) << "such a rule is never run";
}

TEST(ModifyPreview, ShowsTwoHundredRowsAndCountsAll) {
  Fixture f;
  for (int i = 0; i < 150; ++i) Add(f.list, "x" + std::to_string(i));
  for (int i = 0; i < 1000; ++i) Add(f.list, "a" + std::to_string(i));
  ModifyPreview preview(f.list, Rows::kAll, f.regex);
  preview.Restart(Rule("a", "b"), Repetition::kPerRow);
  Finish(preview);
  EXPECT_EQ(preview.ShownCount(), 200u);
  EXPECT_EQ(preview.Shown(0).newName, "b0");
  EXPECT_EQ(preview.Shown(199).newName, "b199");
  EXPECT_EQ(preview.Summary(), "1,000 個の名前が変わります");
  preview.Restart(Rule("99", "!"), Repetition::kPerRow);
  Finish(preview);
  EXPECT_EQ(preview.ShownCount(), 200u);
  EXPECT_EQ(preview.Shown(0).newName, "x!");
  EXPECT_EQ(preview.Shown(19).newName, "a!9") << preview.Shown(19).newName;
  EXPECT_EQ(preview.Shown(20).newName, "x0") << "the others follow";
}

TEST(ModifyPreview, UntilTheWorkIsDoneRowsAreOnlyAddedAtTheEnd) {
  Fixture f;
  for (int i = 0; i < 400; ++i) Add(f.list, (i % 3 == 0 ? "x" : "a") + std::to_string(i));
  ModifyPreview preview(f.list, Rows::kAll, f.regex);
  preview.Restart(Rule("a", "b"), Repetition::kPerRow);
  Texts before;
  int slices = 0;
  for (bool works = true; works; ++slices) {
    works = preview.Work(0ms);
    const Texts now = Lines(preview);
    ASSERT_GE(now.size(), before.size());
    ASSERT_LE(now.size(), 200u);
    EXPECT_TRUE(std::equal(before.begin(), before.end(), now.begin())) << slices;
    before = now;
    if (slices == 0) {
      EXPECT_EQ(preview.Summary(), "名前を調べています...  1 / 400");
    }
  }
  EXPECT_EQ(slices, 400) << "one row at least in each slice, and no more than the time allows";
  EXPECT_EQ(before.size(), 200u);
}

TEST(ModifyPreview, NamesThatAreLeftAloneSaySo) {
  Fixture f;
  for (const char* name : {"b", "a"}) Add(f.list, name);
  for (int i = 0; i < 20; ++i) Add(f.list, "c");
  ModifyPreview preview(f.list, Rows::kAll, f.regex);
  preview.Restart(Rule("a", "aa"), Repetition::kPerRow);
  Finish(preview);
  EXPECT_EQ(Lines(preview)[0], "a -> a: 終わらないか長すぎるため、編集されません");
  EXPECT_EQ(preview.Summary(), "0 個の名前が変わります、1 個は編集されません");
  EXPECT_EQ(preview.GrowthNote(), "規則 1 はリストの行数 (22) だけ繰り返されます");
}

TEST(ModifyPreview, LongNamesAreCutOff) {
  Fixture f;
  Add(f.list, std::string(301, 'a'));
  Add(f.list, "あ");
  OptionValues::Modify rules = Rule("a", "b");
  rules.rules[1] = {true, "あ", std::string(300, 'c')};
  ModifyPreview preview(f.list, Rows::kAll, f.regex);
  preview.Restart(rules, Repetition::kPerRow);
  Finish(preview);
  EXPECT_EQ(preview.Shown(0).oldName, std::string(300, 'a') + "…");
  EXPECT_EQ(preview.Shown(0).newName, std::string(300, 'b') + "…");
  EXPECT_EQ(preview.Shown(1).newName, std::string(300, 'c'));
}

TEST(ModifyPreview, ASlowRowIsLeftOutAfterItsTime) {
  FileList list;
  for (const char* name : {"s", "a"}) Add(list, name);
  for (int i = 0; i < 300; ++i) Add(list, "b");
  SlowEngine slow;
  ModifyPreview preview(list, Rows::kChecked, slow, 50ms);
  list.SetChecked(1, true);
  list.SetChecked(2, true);
  preview.Restart(Rule("x", "y", FindMethod::kRegex), Repetition::kPerRow);
  const double seconds = test::Seconds([&] { Finish(preview); });
  EXPECT_LT(seconds, 0.5) << "300 applications of the first row take longer";
  EXPECT_EQ(Lines(preview)[0], "s -> : 時間がかかるため、実行するまで分かりません");
  EXPECT_EQ(Lines(preview)[1], "a -> b");
  EXPECT_EQ(preview.Summary(), "1 個の名前が変わります、1 個は時間がかかるため分かりません");
}

TEST(ModifyPreview, AfterSeveralSlowRowsTheWorkEnds) {
  FileList list;
  Add(list, "a");
  for (int i = 0; i < 300; ++i) Add(list, "s");
  SlowEngine slow;
  ModifyPreview preview(list, Rows::kAll, slow, 30ms);
  preview.Restart(Rule("x", "y", FindMethod::kRegex), Repetition::kPerRow);
  Finish(preview);
  EXPECT_EQ(preview.ShownCount(), 21u);
  EXPECT_EQ(preview.Summary(),
            "1 個の名前が変わります、20 個は時間がかかるため分かりません（301 個のうち、はじめの 21 個）");
}

TEST(ModifyPreview, NotesTheRulesThatGrowWithEveryRepetition) {
  Fixture f;
  for (int i = 0; i < 13; ++i) Add(f.list, "a" + std::to_string(i));
  struct Row {
    const char* find;
    const char* replacement;
    FindMethod method;
    bool grows;
  };
  const Row rows[] = {
      {"a", "aa", FindMethod::kText, true},
      {"a", "ab", FindMethod::kText, true},
      {"a", "bcd", FindMethod::kText, false},
      {"a", "a", FindMethod::kText, false},
      {"q", "qq", FindMethod::kText, false},
      {"^", "x", FindMethod::kRegex, true},
      {"(\\d+)", "0$1", FindMethod::kRegex, true},
      {"\\w", "$&$&", FindMethod::kRegex, true},
      {"^(\\D)(.*)$", "$2$1", FindMethod::kRegex, false},
      {"a", "bcd", FindMethod::kRegex, false},
      {"(", "aa", FindMethod::kRegex, false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.find) + " -> " + row.replacement);
    OptionValues::Modify rules = Rule("q", "r", row.method);
    rules.rules[1] = {true, row.find, row.replacement};
    ModifyPreview preview(f.list, Rows::kAll, f.regex);
    preview.Restart(rules, Repetition::kPerRow);
    Finish(preview);
    EXPECT_EQ(preview.GrowthNote(), row.grows ? "規則 2 はリストの行数 (13) だけ繰り返されます" : "");
    preview.Restart(rules, Repetition::kOnce);
    Finish(preview);
    EXPECT_EQ(preview.GrowthNote(), "") << "once";
  }
}

TEST(ModifyPreview, TheNoteNamesEveryGrowingRuleAndNoneInAListOfOneRow) {
  Fixture f;
  Add(f.list, "a-b");
  OptionValues::Modify rules = Rule("a", "aa");
  rules.rules[3] = {true, "b", "bb"};
  ModifyPreview preview(f.list, Rows::kAll, f.regex);
  preview.Restart(rules, Repetition::kPerRow);
  Finish(preview);
  EXPECT_EQ(preview.GrowthNote(), "");
  Add(f.list, "c");
  preview.Restart(rules, Repetition::kPerRow);
  Finish(preview);
  EXPECT_EQ(preview.GrowthNote(), "規則 1, 4 はリストの行数 (2) だけ繰り返されます");
}

TEST(ModifyPreview, NotesARuleWhoseGrowthIsOnlyForeseen) {
  Fixture f;
  for (int i = 0; i < 40000; ++i) Add(f.list, "a");
  f.list.SetChecked(7, true);
  ModifyPreview preview(f.list, Rows::kChecked, f.regex);
  preview.Restart(Rule("a", "aa"), Repetition::kPerRow);
  Finish(preview);
  EXPECT_EQ(preview.Summary(), "0 個の名前が変わります、1 個は編集されません");
  EXPECT_EQ(preview.GrowthNote(), "規則 1 はリストの行数 (40,000) だけ繰り返されます");
}

TEST(ModifyPreview, AListThatWasClearedEndsTheWork) {
  Fixture f;
  for (int i = 0; i < 10; ++i) Add(f.list, "a");
  ModifyPreview preview(f.list, Rows::kAll, f.regex);
  preview.Restart(Rule("a", "b"), Repetition::kPerRow);
  EXPECT_TRUE(preview.Work(0ms));
  f.list.Clear();
  EXPECT_FALSE(preview.Work(1h));
}

TEST(ModifyPreview, ManyRowsAreWorkedOutInShortSlices) {
  RegexLibrary regex;
  EXPECT_FALSE(test::GrowsQuadratically([&](int rows) {
    FileList list;
    for (int i = 0; i < rows; ++i) Add(list, "0" + std::to_string(i) + " name");
    ModifyPreview preview(list, Rows::kAll, regex);
    preview.Restart(Rule("^(\\d+) (.*)$", "$2 - $1", FindMethod::kRegex), Repetition::kPerRow);
    return test::Seconds([&] { Finish(preview); });
  }));
}

}  // namespace
}  // namespace quillon
