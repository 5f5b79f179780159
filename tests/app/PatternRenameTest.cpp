#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "app/NameCommands.h"
#include "app/RenameFixture.h"
#include "pattern/PatternForm.h"

namespace quillon {
namespace {

using test::CheckedRows;
using test::RenameNames;
using test::TitledFixture;
using Indices = std::vector<int>;
using Texts = std::vector<std::string>;

struct Fixture : TitledFixture {
  NameCommands names{session, applying, regex, ports.progress, screen, std::chrono::milliseconds(0)};

  using TitledFixture::TitledFixture;

  void Rename(const std::string& pattern, Rows rows = Rows::kAll) {
    PatternForm form;
    form.pattern = pattern;
    names.RenameByPattern(rows, *RulesOf(form, options.rename, mode.automatic), {});
  }
};

TEST(PatternCommand, SetsTheNamesUnderTheWaitWindow) {
  Fixture f({"one", "two"});
  f.Rename("{n:02} {title}");
  EXPECT_EQ(RenameNames(f.list), Texts({"01 one", "02 two"}));
  EXPECT_EQ(f.Names(), Texts({"1.mid", "2.mid"})) << "nothing is written to the disk";
  EXPECT_EQ(f.ports.log.Events(),
            Texts({"pointer busy arrow", test::kModifyBegin, "progress: 50% 完了しました | /m/1.mid",
                   "progress: 100% 完了しました | /m/2.mid", "panel player: 2 個の名前を変更しました", "progress end",
                   "pointer normal"}));
}

TEST(PatternCommand, SkippedRowsAreCheckedWhenTheOptionSaysSo) {
  for (const bool check : {false, true}) {
    Fixture f({"one", "---", ""});
    f.options.rename.checkSkippedRows = check;
    f.Rename("{title}");
    EXPECT_EQ(RenameNames(f.list), Texts({"one", "2", "3"}));
    EXPECT_EQ(CheckedRows(f.list), check ? Indices({2, 3}) : Indices());
  }
}

TEST(PatternCommand, RowsWithoutANameAreNotSkippedWhenTheOptionSaysSo) {
  Fixture f({"one", "---"});
  f.options.rename.skipUntitledRows = false;
  f.Rename("{title}");
  EXPECT_EQ(RenameNames(f.list), Texts({"one", ""}));
}

TEST(PatternCommand, InvalidNamesAreCheckedWhenTheOptionSaysSo) {
  for (const bool check : {false, true}) {
    Fixture f({"a?b", "fine"});
    f.options.rename.checkInvalidNames = check;
    f.Rename("{title}");
    EXPECT_EQ(RenameNames(f.list), Texts({"a?b", "fine"}));
    EXPECT_EQ(CheckedRows(f.list), check ? Indices({1}) : Indices());
  }
}

TEST(PatternCommand, CanBeCancelled) {
  Fixture f({"one", "two", "three"});
  f.ports.pending.At(2, [&] { f.ports.progress.cancelled = true; });
  f.Rename("{title}");
  EXPECT_EQ(RenameNames(f.list), Texts({"one", "2", "3"}));
}

TEST(PatternCommandAutoApply, WritesEachNameToTheDiskAtOnce) {
  Fixture f({"one", "two"});
  f.mode.automatic = true;
  f.list.SetChecked(2, true);
  f.Rename("{n:02} {title}", Rows::kChecked);
  EXPECT_EQ(f.Names(), Texts({"01 two.mid", "1.mid"}));
  EXPECT_EQ(CheckedRows(f.list), Indices({2})) << "check marks stay in auto-apply mode";
}

TEST(PatternCommandAutoApply, EndsAtTheFirstFailureAndPutsThatRenameNameBack) {
  for (const bool check : {false, true}) {
    Fixture f({"one", "a?b", "three"});
    f.mode.automatic = true;
    f.options.update.checkFailedRows = check;
    f.list.SetRenameName(2, "before");
    f.Rename("{title}");
    EXPECT_EQ(RenameNames(f.list), Texts({"one", "before", "3"}));
    EXPECT_EQ(f.Names(), Texts({"2.mid", "3.mid", "one.mid"}));
    EXPECT_EQ(CheckedRows(f.list), check ? Indices({2}) : Indices());
    EXPECT_EQ(f.ports.boxes.Shown().size(), 1u);
    EXPECT_EQ(f.ports.log.Events().back(), "pointer normal");
  }
}

TEST(PatternCommandAutoApply, ARowWithoutANameFailsAndEndsTheRun) {
  Fixture f({"---", "two"});
  f.mode.automatic = true;
  f.Rename("{title}");
  EXPECT_EQ(RenameNames(f.list), Texts({"1", "2"}));
  EXPECT_EQ(f.ports.boxes.Shown().size(), 1u);
}

}  // namespace
}  // namespace quillon
