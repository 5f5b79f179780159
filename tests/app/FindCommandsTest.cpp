#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/ApplicationFixture.h"

namespace quillon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The names sort as they are written here: row 1 is 1赤, and so on.
struct Fixture : test::ApplicationFixture {
  explicit Fixture(const OptionValues& options = Options()) : ApplicationFixture(options) {
    Load({"1赤.txt", "2青.txt", "3赤青.txt", "4緑.txt", "5赤.txt"});
  }

  [[nodiscard]] int Row() { return app.List().SelectedIndex(); }

  int Find(const std::string& text) {
    app.FindText(text);
    return Row();
  }
  int Next() {
    app.Execute(Command::mnuFindNext);
    return Row();
  }
  int Previous() {
    app.Execute(Command::mnuFindPrevious);
    return Row();
  }
};

TEST(FindCommands, TheCommandOpensTheLineAndClosingClosesIt) {
  Fixture f;
  f.app.Execute(Command::mnuFind);
  EXPECT_THAT(f.Log().StartingWith("find line"), ElementsAre("find line opened"));
  EXPECT_EQ(f.findLine.found, "");
  f.app.CloseFindLine();
  EXPECT_THAT(f.Log().StartingWith("find line"), ElementsAre("find line opened", "find line closed"));
}

TEST(FindCommands, TypingGoesToTheFirstRowFromTheSelectedOneAndCounts) {
  Fixture f;
  f.app.Execute(Command::mnuFind);
  f.Select({2});
  EXPECT_EQ(f.Find("赤"), 3);
  EXPECT_EQ(f.findLine.found, "2 / 3");
  EXPECT_EQ(f.Find("赤青"), 3);
  EXPECT_EQ(f.findLine.found, "1 / 1");
  EXPECT_EQ(f.Find("青"), 2) << "from the row where typing began, not from the row found";
  EXPECT_EQ(f.findLine.found, "1 / 2");
  EXPECT_EQ(f.Find("紫"), 2) << "the row stays";
  EXPECT_EQ(f.findLine.found, "見つかりません");
  EXPECT_EQ(f.Find(""), 2);
  EXPECT_EQ(f.findLine.found, "");
}

TEST(FindCommands, TypingStartsAnewFromARowThatTheUserSelects) {
  Fixture f;
  f.app.Execute(Command::mnuFind);
  EXPECT_EQ(f.Find("赤"), 1);
  f.Select({4});
  EXPECT_EQ(f.findLine.found, "1 / 3") << "until the window refreshes it";
  f.app.RefreshFindLine();
  EXPECT_EQ(f.findLine.found, "3 件");
  EXPECT_EQ(f.Find("赤."), 5);
}

TEST(FindCommands, TheRowFoundIsShownAsTheUsersOwnChoiceIs) {
  Fixture f;
  f.app.Execute(Command::mnuFind);
  f.Select({2, 3});
  f.ports.log.Clear();
  f.Find("5赤");
  EXPECT_EQ(test::SelectedRows(f.app.List()), std::vector<int>{5});
  EXPECT_EQ(f.box.Text(), "5赤");
  EXPECT_TRUE(f.Log().Has("window scrolls to 5"));
  EXPECT_TRUE(f.Log().Has("panel player: 選択： 5赤.txt"));
  EXPECT_THAT(f.Log().StartingWith("focus"), IsEmpty());
}

TEST(FindCommands, NextAndPreviousGoRoundAlsoWhileTheLineIsClosed) {
  Fixture f;
  f.Find("赤");
  EXPECT_EQ(f.Row(), 1);
  EXPECT_EQ(f.Next(), 3);
  EXPECT_EQ(f.Next(), 5);
  EXPECT_EQ(f.Next(), 1);
  EXPECT_EQ(f.Previous(), 5);
  EXPECT_EQ(f.Previous(), 3);
  f.app.List().SelectNone();
  EXPECT_EQ(f.Next(), 1);
  f.app.List().SelectNone();
  EXPECT_EQ(f.Previous(), 5);
  EXPECT_THAT(f.Log().StartingWith("find line"), IsEmpty());
  EXPECT_EQ(f.findLine.found, "") << "a closed line is not told";
}

TEST(FindCommands, NextWithoutATextOpensTheLine) {
  Fixture f;
  f.Select({2});
  EXPECT_EQ(f.Next(), 2);
  EXPECT_EQ(f.Previous(), 2);
  EXPECT_THAT(f.Log().StartingWith("find line"), ElementsAre("find line opened", "find line opened"));
}

TEST(FindCommands, TheOnlyRowFoundIsScrolledIntoViewAgain) {
  Fixture f;
  f.Find("緑");
  f.ports.log.Clear();
  EXPECT_EQ(f.Next(), 4);
  EXPECT_TRUE(f.Log().Has("window scrolls to 4"));
  EXPECT_THAT(f.Log().StartingWith("panel"), IsEmpty()) << "its file is not read again";
}

TEST(FindCommands, TheCountFollowsTheRows) {
  Fixture f;
  f.app.Execute(Command::mnuFind);
  f.Find("赤");
  EXPECT_EQ(f.findLine.found, "1 / 3");
  f.app.Execute(Command::mnuThisListDel);
  f.app.RefreshFindLine();
  EXPECT_EQ(f.findLine.found, "2 件");
  f.Type("");
  EXPECT_EQ(f.Next(), 2);
  EXPECT_EQ(f.findLine.found, "1 / 2");
}

TEST(FindCommands, AnEmptiedNameKeepsItsRowInAutoApplyMode) {
  OptionValues options = Fixture::Options();
  options.update.automatic = true;
  Fixture f(options);
  f.Select({1});
  f.Find("赤");
  const auto emptied = [&] {
    f.Type("");
    EXPECT_EQ(f.box.Text(), "");
  };
  const auto expectKept = [&](const char* what) {
    EXPECT_EQ(f.Row(), 1) << what;
    EXPECT_EQ(f.box.Text(), "1赤") << what;
  };
  emptied();
  f.app.Execute(Command::mnuFindNext);
  expectKept("next");
  emptied();
  f.app.FindText("青");
  expectKept("typing");
  emptied();
  f.app.RowTyped(4);
  expectKept("typing in the list");
  emptied();
  f.app.Execute(Command::mnuFind);
  expectKept("opening");
  EXPECT_THAT(f.Log().StartingWith("find line"), IsEmpty());
}

TEST(FindCommands, NothingIsFoundWhileACommandRuns) {
  Fixture f;
  f.app.Execute(Command::mnuFind);
  f.Find("赤");
  f.main.modifyDialog = [&](Rows) {
    EXPECT_EQ(f.Find("緑"), 1);
    EXPECT_EQ(f.Next(), 1);
    f.app.List().SetRenameName(2, "赤");
    f.app.RefreshFindLine();
    EXPECT_EQ(f.findLine.found, "1 / 3") << "a list of any length is not looked through again and again";
  };
  f.app.Execute(Command::mnuAllModify);
  f.app.RefreshFindLine();
  EXPECT_EQ(f.findLine.found, "1 / 4");
}

TEST(FindCommands, ARowTypedForIsSelectedAndShown) {
  Fixture f;
  f.Select({1, 2});
  f.app.RowTyped(4);
  EXPECT_EQ(test::SelectedRows(f.app.List()), std::vector<int>{4});
  EXPECT_EQ(f.box.Text(), "4緑");
  EXPECT_TRUE(f.Log().Has("window scrolls to 4"));
}

}  // namespace
}  // namespace quillon
