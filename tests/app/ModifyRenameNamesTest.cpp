#include <gtest/gtest.h>

#include <chrono>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "app/NameCommands.h"
#include "app/RenameFixture.h"

namespace quillon {
namespace {

using test::CheckedRows;
using test::RenameFixture;
using test::RenameNames;
using Indices = std::vector<int>;
using Texts = std::vector<std::string>;

std::string LeftAlone(int count) {
  return "box [リネーム名の編集] " + std::to_string(count) +
         " 個のリネーム名は、置換が終わらないか 32,767 文字を超えるため編集されませんでした\\r\\n"
         "置換する文字列に、検索する文字列や不正な文字が含まれていないか確認してください (exclamation, ok)";
}

struct Fixture : RenameFixture {
  test::NoRegex regex;

  explicit Fixture(const Texts& names) : RenameFixture(names) {}

  RunOutcome Run(bool all, std::chrono::milliseconds interval = std::chrono::milliseconds(0)) {
    return RunWith(regex, all, interval);
  }

  RunOutcome RunWith(RegexEngine& engineOfRules, bool all,
                     std::chrono::milliseconds interval = std::chrono::milliseconds(0)) {
    return NameCommands(session, applying, engineOfRules, ports.progress, screen, interval)
        .ModifyRows(all ? Rows::kAll : Rows::kChecked, options.modify);
  }
};

TEST(ModifyRenameNames, ShowsEveryStepInItsOrder) {
  Fixture f({"a.mid", "b.mid", "c.mid"});
  f.options.modify.upper = true;
  const RunOutcome outcome = f.Run(true);
  EXPECT_EQ(RenameNames(f.list), Texts({"A", "B", "C"}));
  EXPECT_EQ(f.ports.log.Events(),
            Texts({"pointer busy arrow", test::kModifyBegin, "progress: 33% 完了しました | /m/a.mid",
                   "progress: 66% 完了しました | /m/b.mid", "progress: 100% 完了しました | /m/c.mid", "progress end",
                   "pointer normal", "panel player: 3 個の名前を変更しました"}));
  EXPECT_EQ(outcome.leftAlone, 0);
  EXPECT_EQ(outcome.end, RunEnd::kComplete);
  EXPECT_EQ(f.Names(), Texts({"a.mid", "b.mid", "c.mid"})) << "nothing is written to the disk";
}

TEST(ModifyRenameNames, ARuleIsAppliedOncePerRowOrByTheOptionOnce) {
  for (const auto& [once, expected] : {std::pair{false, "bbbbbbbb"}, std::pair{true, "bb"}}) {
    Fixture f({"a.mid", "b.mid", "c.mid"});
    f.options.extra.runRulesOnce = once;
    f.options.modify.rules[2] = {true, "b", "bb"};
    (void)f.Run(true);
    EXPECT_EQ(RenameNames(f.list), Texts({"a", expected, "c"}));
  }
}

TEST(ModifyRenameNames, AnExceptionLeavesNeitherTheWaitWindowNorTheBusyPointer) {
  struct OutOfMemory final : RegexEngine {
    std::optional<std::string> Replace(std::string_view, std::string_view text) override {
      if (text.starts_with("b")) throw std::bad_alloc();
      return "edited";
    }
  } regex;
  Fixture f({"a.mid", "b.mid", "c.mid"});
  f.options.modify.method = FindMethod::kRegex;
  f.options.modify.rules[0] = {true, "x", "y"};
  EXPECT_THROW(f.RunWith(regex, true), std::bad_alloc);
  EXPECT_EQ(RenameNames(f.list), Texts({"edited", "b", "c"}));
  EXPECT_EQ(f.ports.log.Events().back(), "pointer normal");
  EXPECT_TRUE(f.ports.log.Has("progress end"));
}

TEST(ModifyRenameNames, CountsThePercentageOverTheCheckedRows) {
  Fixture f({"a.mid", "b.mid", "c.mid", "d.mid"});
  f.options.modify.upper = true;
  f.list.SetChecked(2, true);
  f.list.SetChecked(4, true);
  f.Run(false);
  EXPECT_EQ(RenameNames(f.list), Texts({"a", "B", "c", "D"}));
  EXPECT_EQ(f.ports.log.StartingWith("progress: "),
            Texts({"progress: 50% 完了しました | /m/b.mid", "progress: 100% 完了しました | /m/d.mid"}));
  EXPECT_EQ(CheckedRows(f.list), Indices({2, 4}));
}

TEST(ModifyRenameNames, ShowsTheFirstAndTheLastPercentageHoweverSeldomProgressIsShown) {
  Fixture f({"a.mid", "b.mid", "c.mid"});
  f.Run(true, std::chrono::hours(1));
  EXPECT_EQ(f.ports.log.StartingWith("progress: "),
            Texts({"progress: 33% 完了しました | /m/a.mid", "progress: 100% 完了しました | /m/c.mid"}));
}

TEST(ModifyRenameNames, WithNothingInScopeOnlyOpensAndCloses) {
  Fixture f({"a.mid"});
  f.Run(false);
  EXPECT_EQ(f.ports.log.Events(), Texts({"pointer busy arrow", test::kModifyBegin, "progress end", "pointer normal",
                                         "panel player: 0 個の名前を変更しました"}));
}

TEST(ModifyRenameNames, AppliesARuleAsOftenAsTheListHasRows) {
  Fixture f({"a.mid", "b.mid", "c.mid"});
  f.options.modify.rules[0] = {true, "a", "aa"};
  f.list.SetChecked(1, true);
  f.Run(false);
  EXPECT_EQ(f.list.Row(1).renameName, "aaaaaaaa") << "three rows, three doublings, though one is in scope";
}

TEST(ModifyRenameNames, TellsTheObserverOnlyOfNamesThatChange) {
  Fixture f({"a.mid", "B.mid"});
  test::EventLog log;
  test::ListRecorder recorder(log);
  f.list.SetObserver(&recorder);
  f.options.modify.upper = true;
  f.Run(true);
  EXPECT_EQ(log.Events(), Texts({"row 1"}));
}

TEST(ModifyRenameNames, NamesThatARuleWouldMakeEndlessAreReportedOnceAtTheEnd) {
  Fixture f({"a.mid", "b.mid", "c.mid"});
  f.SetNames({"x:y", "fine", "p?q:r"});
  f.options.modify.replaceInvalid = true;
  f.options.modify.invalidReplacement = "<:>";
  f.options.modify.upper = true;
  const RunOutcome outcome = f.Run(true);
  EXPECT_EQ(RenameNames(f.list), Texts({"x:y", "FINE", "p?q:r"})) << "a name that is left alone stays whole";
  EXPECT_EQ(outcome.leftAlone, 2);
  const Texts& events = f.ports.log.Events();
  EXPECT_EQ(Texts(events.end() - 4, events.end()),
            Texts({"progress end", "pointer normal", "panel player: 1 個の名前を変更しました", LeftAlone(2)}));
}

TEST(ModifyRenameNames, CancellingKeepsTheRowsDoneSoFar) {
  Fixture f({"a.mid", "b.mid", "c.mid"});
  f.options.modify.rules[0] = {true, "x", "y"};
  f.options.modify.upper = true;
  f.ports.pending.At(4, [&] { f.ports.progress.cancelled = true; });  // while the rule works on the second row
  const RunOutcome outcome = f.Run(true);
  EXPECT_EQ(outcome.end, RunEnd::kCancelled);
  EXPECT_EQ(RenameNames(f.list), Texts({"A", "b", "c"}));
  EXPECT_EQ(f.ports.log.Events(),
            Texts({"pointer busy arrow", test::kModifyBegin, "progress: 33% 完了しました | /m/a.mid", "progress end",
                   "pointer normal", "panel player: 1 個の名前を変更しました"}));
  EXPECT_EQ(f.ports.pending.Count(), 4u);
}

TEST(ModifyRenameNames, CancellingEndsARowThatTakesLong) {
  struct Growing final : RegexEngine {
    std::optional<std::string> Replace(std::string_view, std::string_view text) override {
      ++calls;
      return static_cast<char>('a' + text.size() % 26) + std::string(text);
    }
    int calls = 0;
  } regex;
  Fixture f(Texts(1000, "a.mid"));
  f.options.modify.method = FindMethod::kRegex;
  f.options.modify.rules[0] = {true, "^(\\w)", "0$1"};
  f.ports.pending.At(500, [&] { f.ports.progress.cancelled = true; });
  const RunOutcome outcome = f.RunWith(regex, true);
  EXPECT_EQ(outcome.end, RunEnd::kCancelled);
  EXPECT_EQ(outcome.leftAlone, 0);
  EXPECT_EQ(regex.calls, 498);
  EXPECT_EQ(RenameNames(f.list), Texts(1000, "a"));
}

TEST(ModifyRenameNames, CanBeCancelledWhereNoRuleIsActive) {
  Fixture f({"a.mid", "b.mid", "c.mid"});
  f.options.modify.upper = true;
  f.ports.pending.At(3, [&] { f.ports.progress.cancelled = true; });
  EXPECT_EQ(f.Run(true).end, RunEnd::kCancelled);
  EXPECT_EQ(RenameNames(f.list), Texts({"A", "B", "c"}));
}

TEST(ModifyRenameNamesAutoApply, CancellingLeavesTheRemainingFilesUnchanged) {
  Fixture f({"a.mid", "b.mid"});
  f.mode.automatic = true;
  f.options.modify.upper = true;
  f.ports.pending.At(2, [&] { f.ports.progress.cancelled = true; });
  const RunOutcome outcome = f.Run(true);
  EXPECT_EQ(outcome.end, RunEnd::kCancelled);
  EXPECT_EQ(f.Names(), Texts({"A.mid", "b.mid"}));
  EXPECT_TRUE(f.ports.boxes.Shown().empty());
}

TEST(ModifyRenameNamesAutoApply, WritesEachNameToTheDiskAtOnce) {
  Fixture f({"a.mid", "b.mid"});
  f.mode.automatic = true;
  f.options.modify.upper = true;
  f.Run(true);
  EXPECT_EQ(f.Names(), Texts({"A.mid", "B.mid"}));
  EXPECT_EQ(f.ports.log.StartingWith("progress: "),
            Texts({"progress: 50% 完了しました | /m/A.mid", "progress: 100% 完了しました | /m/B.mid"}));
}

TEST(ModifyRenameNamesAutoApply, EndsAtTheFirstFailureAndPutsThatRenameNameBack) {
  for (const bool check : {false, true}) {
    Fixture f({"a.mid", "b.mid", "c.mid"});
    f.mode.automatic = true;
    f.options.update.checkFailedRows = check;
    f.options.modify.upper = true;
    f.files.AddFile("/m/B.mid", "taken");
    const RunOutcome outcome = f.Run(true);
    EXPECT_EQ(outcome.end, RunEnd::kStopped);
    EXPECT_EQ(RenameNames(f.list), Texts({"A", "b", "c"}));
    EXPECT_EQ(f.Names(), Texts({"A.mid", "B.mid", "b.mid", "c.mid"}));
    EXPECT_EQ(CheckedRows(f.list), check ? Indices({2}) : Indices());
    EXPECT_EQ(f.list.SelectedIndex(), 2) << "the failing row is shown";
    EXPECT_EQ(f.ports.boxes.Shown().size(), 1u);
    const Texts& events = f.ports.log.Events();
    EXPECT_EQ(Texts(events.end() - 3, events.end()),
              Texts({"progress end", "pointer normal", "panel player: 1 個の名前を変更しました"}));
  }
}

TEST(ModifyRenameNamesAutoApply, AppliesNamesThatTheRulesDoNotChange) {
  Fixture f({"Song.MID"});
  f.mode.automatic = true;
  f.Run(true);
  EXPECT_EQ(f.Names(), Texts({"Song.mid"}));
}

}  // namespace
}  // namespace quillon
