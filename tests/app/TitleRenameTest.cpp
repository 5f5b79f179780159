#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "app/NameCommands.h"
#include "app/RenameFixture.h"

namespace quillon {
namespace {

using test::CheckedRows;
using test::RenameNames;
using test::TitledFixture;
using Indices = std::vector<int>;
using Texts = std::vector<std::string>;

struct Fixture : TitledFixture {
  NameCommands titles{session, applying, regex, ports.progress, screen, std::chrono::milliseconds(0)};

  using TitledFixture::TitledFixture;
};

TEST(TitleRename, SetsEveryRenameNameToItsTitle) {
  Fixture f({"one", "ふたつ"});
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(RenameNames(f.list), Texts({"one", "ふたつ"}));
  EXPECT_EQ(f.Names(), Texts({"1.mid", "2.mid"})) << "nothing is written to the disk";
  EXPECT_EQ(f.ports.log.Events(), Texts({"pointer busy arrow", "pointer normal"})) << "and no summary is shown";
}

TEST(TitleRename, SetsOnlyTheCheckedRowsNamesOnRequest) {
  Fixture f({"one", "two", "three"});
  f.list.SetChecked(1, true);
  f.list.SetChecked(3, true);
  f.titles.RenameToTitles(Rows::kChecked);
  EXPECT_EQ(RenameNames(f.list), Texts({"one", "2", "three"}));
  EXPECT_EQ(CheckedRows(f.list), Indices({1, 3}));
}

TEST(TitleRename, SkipsRowsWithoutATitleWhenTheOptionSaysSo) {
  Fixture f({"", "   ", "---", " --- ", "--", "\u3000"});
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(RenameNames(f.list), Texts({"1", "2", "3", "4", "--", "\u3000"}));
  EXPECT_EQ(f.list.CheckedCount(), 0);
  f.options.rename.skipUntitledRows = false;
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(RenameNames(f.list), Texts({"", "   ", "---", " --- ", "--", "\u3000"}));
}

TEST(TitleRename, TellsOnceOfTitlesThatARuleWouldMakeEndless) {
  Fixture f(Texts(40, "aaa"));
  f.options.rename.applyRules = true;
  f.options.modify.rules[0] = {true, "a", "aa"};
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(RenameNames(f.list), Texts(40, "aaa"));
  int told = 0;
  for (const std::string& event : f.ports.log.Events()) {
    if (event.find("box [リネーム名の編集] 40 個のリネーム名は") == 0) ++told;
  }
  EXPECT_EQ(told, 1);
}

TEST(TitleRename, ChecksSkippedRowsWhenTheOptionSaysSo) {
  Fixture f({"one", "", "---"});
  f.options.rename.checkSkippedRows = true;
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(CheckedRows(f.list), Indices({2, 3}));
}

TEST(TitleRename, ChecksInvalidNamesWhenTheOptionSaysSoAndReportsNothing) {
  Fixture f({"a?b", "fine", "a/b", "a\tb"});
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(f.list.CheckedCount(), 0);
  f.options.rename.checkInvalidNames = true;
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(CheckedRows(f.list), Indices({1, 3}));
  EXPECT_EQ(f.list.Row(1).renameName, "a?b") << "an invalid name is kept";
  EXPECT_EQ(f.ports.boxes.Shown().size(), 0u);
}

TEST(TitleRename, AppliesARuleOncePerRowOrByTheOptionOnce) {
  Fixture f({"a", "cat"});
  f.options.rename.applyRules = true;
  f.options.modify.rules[0] = {true, "a", "aa"};
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(RenameNames(f.list), Texts({"aaaa", "caaaat"}));
  f.options.extra.runRulesOnce = true;
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(RenameNames(f.list), Texts({"aa", "caat"}));
}

TEST(TitleRename, PassesTitlesThroughTheModificationRulesWhenTheOptionSaysSo) {
  Fixture f({"a:b", "cat"});
  f.options.rename.checkInvalidNames = true;
  f.options.modify.replaceInvalid = true;
  f.options.modify.invalidReplacement = "_";
  f.options.modify.upper = true;
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(RenameNames(f.list), Texts({"a:b", "cat"}));
  EXPECT_EQ(CheckedRows(f.list), Indices({1}));
  f.list.UncheckAll();
  f.options.rename.applyRules = true;
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(RenameNames(f.list), Texts({"A_B", "CAT"}));
  EXPECT_EQ(CheckedRows(f.list), Indices()) << "the new name is what is tested";
  EXPECT_EQ(f.list.Row(1).title, "a:b");
}

TEST(TitleRename, AppliesARuleAsOftenAsTheListHasRows) {
  Fixture f({"a", "b", "c"});
  f.options.rename.applyRules = true;
  f.options.modify.rules[0] = {true, "a", "aa"};
  f.list.SetChecked(1, true);
  f.titles.RenameToTitles(Rows::kChecked);
  EXPECT_EQ(RenameNames(f.list), Texts({"aaaaaaaa", "2", "3"}));
}

TEST(TitleRename, TitlesThatARuleWouldMakeEndlessAreReportedOnceAtTheEnd) {
  Fixture f({"x:y", "fine", "p?q"});
  f.options.rename.applyRules = true;
  f.options.modify.replaceInvalid = true;
  f.options.modify.invalidReplacement = "<:>";
  for (int run = 0; run < 2; ++run) {
    f.ports.log.Clear();
    f.titles.RenameToTitles(Rows::kAll);
    EXPECT_EQ(RenameNames(f.list), Texts({"x:y", "fine", "p?q"}));
    EXPECT_EQ(
        f.ports.log.Events(),
        Texts(
            {"pointer busy arrow", test::kModifyBegin, "progress: 33% 完了しました | /m/1.mid",
             "progress: 66% 完了しました | /m/2.mid", "progress: 100% 完了しました | /m/3.mid", "progress end",
             "pointer normal",
             "box [リネーム名の編集] 2 個のリネーム名は、置換が終わらないか 32,767 文字を超えるため編集されませんでした"
             "\\r\\n置換する文字列に、検索する文字列や不正な文字が含まれていないか確認してください (exclamation, ok)"}))
        << "a second run counts anew";
  }
}

TEST(TitleRename, CancellingKeepsTheRowsDoneSoFar) {
  Fixture f({"one", "two", "three"});
  f.options.rename.applyRules = true;
  f.options.modify.rules[0] = {true, "x", "y"};
  f.options.modify.upper = true;
  f.ports.pending.At(4, [&] { f.ports.progress.cancelled = true; });  // while the rule works on the second row
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(RenameNames(f.list), Texts({"ONE", "2", "3"}));
  EXPECT_EQ(f.ports.log.Events(), Texts({"pointer busy arrow", test::kModifyBegin,
                                         "progress: 33% 完了しました | /m/1.mid", "progress end", "pointer normal"}));
  EXPECT_EQ(f.ports.pending.Count(), 4u);
}

TEST(TitleRename, CanBeCancelledAmongRowsWithoutATitle) {
  Fixture f({"one", "", ""});
  f.options.rename.applyRules = true;
  f.options.rename.checkSkippedRows = true;
  f.ports.pending.At(3, [&] { f.ports.progress.cancelled = true; });
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(CheckedRows(f.list), Indices({2}));
  EXPECT_EQ(f.ports.log.StartingWith("progress: "),
            Texts({"progress: 33% 完了しました | /m/1.mid", "progress: 66% 完了しました | /m/2.mid"}));
}

TEST(TitleRename, ShowsThePercentageOfTheCheckedRows) {
  Fixture f({"one", "two", "three", "four"});
  f.options.rename.applyRules = true;
  f.list.SetChecked(2, true);
  f.list.SetChecked(4, true);
  f.titles.RenameToTitles(Rows::kChecked);
  EXPECT_EQ(f.ports.log.StartingWith("progress: "),
            Texts({"progress: 50% 完了しました | /m/2.mid", "progress: 100% 完了しました | /m/4.mid"}));
}

TEST(TitleRenameAutoApply, CancellingLeavesTheRemainingFilesUnchanged) {
  Fixture f({"one", "two"});
  f.mode.automatic = true;
  f.options.rename.applyRules = true;
  f.ports.pending.At(2, [&] { f.ports.progress.cancelled = true; });
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(f.Names(), Texts({"2.mid", "one.mid"}));
  EXPECT_EQ(RenameNames(f.list), Texts({"one", "2"}));
  EXPECT_TRUE(f.ports.boxes.Shown().empty());
}

TEST(TitleRenameAutoApply, WritesEachNameToTheDiskAtOnce) {
  Fixture f({"one", "two"});
  f.mode.automatic = true;
  f.list.CheckAll();
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(f.Names(), Texts({"one.mid", "two.mid"}));
  EXPECT_EQ(CheckedRows(f.list), Indices({1, 2})) << "check marks stay in auto-apply mode";
  EXPECT_EQ(f.ports.boxes.Shown().size(), 0u);
}

TEST(TitleRenameAutoApply, EndsAtTheFirstFailureAndPutsThatRenameNameBack) {
  for (const bool check : {false, true}) {
    Fixture f({"one", "a?b", "three"});
    f.mode.automatic = true;
    f.options.update.checkFailedRows = check;
    f.list.SetRenameName(2, "before");
    f.titles.RenameToTitles(Rows::kAll);
    EXPECT_EQ(RenameNames(f.list), Texts({"one", "before", "3"}));
    EXPECT_EQ(f.Names(), Texts({"2.mid", "3.mid", "one.mid"}));
    EXPECT_EQ(CheckedRows(f.list), check ? Indices({2}) : Indices());
    EXPECT_EQ(f.ports.boxes.Shown().size(), 1u);
    EXPECT_EQ(f.ports.log.Events().back(), "pointer normal");
  }
}

TEST(TitleRenameAutoApply, DoesNotSkipRowsWithoutATitle) {
  Fixture dashes({"---", "two"});
  dashes.mode.automatic = true;
  dashes.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(dashes.Names(), Texts({"---.mid", "two.mid"}));

  Fixture blank({" ", "two"});
  blank.mode.automatic = true;
  blank.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(RenameNames(blank.list), Texts({"1", "2"})) << "the blank name fails and ends the run";
}

TEST(TitleRenameAutoApply, DoesNotMarkInvalidNamesBeforeTheyAreApplied) {
  Fixture f({"a?b"});
  f.mode.automatic = true;
  f.options.rename.checkInvalidNames = true;
  f.options.update.checkFailedRows = false;
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(f.list.CheckedCount(), 0);
}

TEST(TitleRename, ResultDoesNotDependOnTheStoredSettingOfTheMode) {
  Fixture f({"one"});
  f.options.update.automatic = true;
  f.titles.RenameToTitles(Rows::kAll);
  EXPECT_EQ(f.Names(), Texts({"1.mid"})) << "the mode in force counts";
}

}  // namespace
}  // namespace quillon
