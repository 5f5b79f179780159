#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "filelist/FileList.h"
#include "support/ByteOrder.h"
#include "support/Recorders.h"
#include "support/Rows.h"

namespace quillon {
namespace {

using test::RenameNames;
using test::RowFor;
using Indices = std::vector<int>;
using Texts = std::vector<std::string>;
using enum EditHistory::Merging;

constexpr PathStyle kLin = PathStyle::kLinux;

/// A list of files a, b, c, ... of type mid.
struct Fixture {
  FileList list{kLin};

  explicit Fixture(int rows = 3) {
    for (int i = 0; i < rows; ++i) list.Add(RowFor("/f/" + std::string(1, static_cast<char>('a' + i)) + ".mid", kLin));
  }

  void Edit(const std::vector<std::pair<int, std::string>>& names, EditHistory::Merging merging = kNever) {
    list.Edits().Begin(merging);
    for (const auto& [index, name] : names) list.SetRenameName(index, name);
    list.Edits().End();
  }
};

TEST(EditHistory, TakesAStepBackAndDoesItAgain) {
  Fixture f;
  f.Edit({{1, "x"}, {3, "z"}});
  f.Edit({{1, "y"}});
  EXPECT_EQ(f.list.UndoEdits(), Indices({1}));
  EXPECT_EQ(RenameNames(f.list), Texts({"x", "b", "z"}));
  EXPECT_EQ(f.list.UndoEdits(), Indices({1, 3}));
  EXPECT_EQ(RenameNames(f.list), Texts({"a", "b", "c"}));
  EXPECT_EQ(f.list.UndoEdits(), Indices());
  EXPECT_EQ(f.list.RedoEdits(), Indices({1, 3}));
  EXPECT_EQ(f.list.RedoEdits(), Indices({1}));
  EXPECT_EQ(RenameNames(f.list), Texts({"y", "b", "z"}));
  EXPECT_EQ(f.list.RedoEdits(), Indices());
}

TEST(EditHistory, TellsTheObserverAndCountsThePendingRows) {
  Fixture f;
  f.Edit({{1, "x"}, {2, "y"}});
  test::EventLog log;
  test::ListRecorder recorder(log);
  f.list.SetObserver(&recorder);
  EXPECT_EQ(f.list.PendingCount(), 2);
  (void)f.list.UndoEdits();
  EXPECT_EQ(f.list.PendingCount(), 0);
  (void)f.list.RedoEdits();
  EXPECT_EQ(f.list.PendingCount(), 2);
  EXPECT_EQ(log.Events().size(), 2u);
}

TEST(EditHistory, ANewStepEndsWhatCouldBeDoneAgain) {
  Fixture f;
  f.Edit({{1, "x"}});
  (void)f.list.UndoEdits();
  f.Edit({{2, "y"}});
  EXPECT_FALSE(f.list.Edits().CanRedo());
  EXPECT_EQ(f.list.UndoEdits(), Indices({2}));
}

TEST(EditHistory, AStepThatChangesNothingIsNone) {
  Fixture f;
  f.Edit({{1, "x"}});
  (void)f.list.UndoEdits();
  f.Edit({});
  f.Edit({{1, "y"}, {1, "a"}});
  EXPECT_FALSE(f.list.Edits().CanUndo());
  EXPECT_TRUE(f.list.Edits().CanRedo()) << "nothing has changed since";
}

TEST(EditHistory, OutsideAStepNothingIsRecorded) {
  Fixture f;
  f.list.SetRenameName(1, "x");
  f.list.Edits().End();
  EXPECT_FALSE(f.list.Edits().CanUndo());
}

TEST(EditHistory, SeveralChangesOfARowInAStepGoBackToTheFirst) {
  Fixture f;
  f.Edit({{1, "x"}, {1, "y"}});
  (void)f.list.UndoEdits();
  EXPECT_EQ(RenameNames(f.list), Texts({"a", "b", "c"}));
}

TEST(EditHistory, TypingIntoTheSameRowsIsOneStep) {
  Fixture f;
  f.Edit({{1, "x"}}, kTyping);
  f.Edit({{1, "xy"}}, kTyping);
  f.Edit({{1, "xyz"}}, kTyping);
  f.Edit({{2, "b1"}}, kTyping);
  (void)f.list.UndoEdits();
  EXPECT_EQ(RenameNames(f.list), Texts({"xyz", "b", "c"}));
  (void)f.list.UndoEdits();
  EXPECT_EQ(RenameNames(f.list), Texts({"a", "b", "c"}));
  EXPECT_FALSE(f.list.Edits().CanUndo());
}

TEST(EditHistory, TypingAfterAnythingElseIsANewStep) {
  Fixture f;
  f.Edit({{1, "x"}}, kTyping);
  f.Edit({});  // another event, such as a click
  f.Edit({{1, "xy"}}, kTyping);
  (void)f.list.UndoEdits();
  EXPECT_EQ(f.list.Row(1).renameName, "x");
  f.Edit({{1, "xz"}}, kTyping);
  (void)f.list.UndoEdits();
  EXPECT_EQ(f.list.Row(1).renameName, "x") << "typing after an undo does not join the step before it";
}

TEST(EditHistory, TypingBackToTheOldNameLeavesNoStep) {
  Fixture f;
  f.Edit({{1, "ax"}}, kTyping);
  f.Edit({{1, "a"}}, kTyping);
  EXPECT_FALSE(f.list.Edits().CanUndo());
  f.Edit({{1, "b"}}, kTyping);
  (void)f.list.UndoEdits();
  EXPECT_EQ(f.list.Row(1).renameName, "a");
}

TEST(EditHistory, RowsThatLeaveTheListLeaveTheSteps) {
  Fixture f;
  f.Edit({{1, "x"}, {2, "y"}});
  f.Edit({{2, "z"}});
  f.list.RemoveWhere([](int index, const FileRow&) { return index == 2; });
  for (int i = 0; i < 8; ++i) f.list.Add(RowFor("/f/new" + std::to_string(i) + ".mid", kLin));
  EXPECT_EQ(f.list.UndoEdits(), Indices({1}));
  EXPECT_FALSE(f.list.Edits().CanUndo());
  EXPECT_EQ(f.list.Row(1).renameName, "a");
}

TEST(EditHistory, ReplacedAndForgottenRowsLeaveTheSteps) {
  Fixture f;
  f.Edit({{1, "x"}, {2, "y"}, {3, "z"}});
  f.list.Replace(1, RowFor("/f/a.mid", kLin));
  f.list.ForgetEdits(2);
  f.Edit({});
  EXPECT_EQ(f.list.UndoEdits(), Indices({3}));
  EXPECT_EQ(RenameNames(f.list), Texts({"a", "y", "c"}));
}

TEST(EditHistory, ARowMayBeForgottenWithinItsOwnStep) {
  Fixture f;
  f.list.Edits().Begin(kNever);
  f.list.SetRenameName(1, "x");
  f.list.ForgetEdits(1);
  f.list.Edits().End();
  EXPECT_FALSE(f.list.Edits().CanUndo());
}

TEST(EditHistory, ARowThatComesWithinAStepIsNotTakenForOneThatHasLeft) {
  Fixture f;
  f.list.Edits().Begin(kNever);
  f.list.SetRenameName(3, "x");
  f.list.RemoveWhere([](int index, const FileRow&) { return index == 3; });
  f.list.Add(RowFor("/f/new.mid", kLin));
  f.list.SetRenameName(3, "y");
  f.list.Edits().End();
  EXPECT_EQ(f.list.UndoEdits(), Indices({3}));
  EXPECT_EQ(RenameNames(f.list), Texts({"a", "b", "new"}));
}

TEST(EditHistory, ClearingTheListClearsIt) {
  Fixture f;
  f.Edit({{1, "x"}, {2, "y"}});
  f.Edit({{1, "z"}});
  (void)f.list.UndoEdits();
  f.list.Clear();
  EXPECT_FALSE(f.list.Edits().CanUndo());
  EXPECT_FALSE(f.list.Edits().CanRedo());
}

TEST(EditHistory, RowsKeepTheirStepsWhenTheListIsSorted) {
  Fixture f;
  f.Edit({{1, "x"}});
  f.list.Sort(Column::kRenameName, test::ByteOrder{});  // descending: x, c, b
  EXPECT_EQ(RenameNames(f.list), Texts({"x", "c", "b"}));
  f.list.Sort(Column::kRenameName, test::ByteOrder{});
  EXPECT_EQ(f.list.UndoEdits(), Indices({3}));
  EXPECT_EQ(f.list.Row(3).renameName, "a");
}

TEST(EditHistory, KeepsTheLastHundredSteps) {
  Fixture f;
  for (int i = 0; i < 101; ++i) f.Edit({{1, "name " + std::to_string(i)}});
  int undone = 0;
  while (!f.list.UndoEdits().empty()) ++undone;
  EXPECT_EQ(undone, 100);
  EXPECT_EQ(f.list.Row(1).renameName, "name 0");
}

TEST(EditHistory, KeepsAtMost64MiB) {
  Fixture f;
  const std::string large(std::size_t{20} << 20, 'x');
  for (int i = 0; i < 5; ++i) f.Edit({{1, large + std::to_string(i)}});
  int undone = 0;
  while (!f.list.UndoEdits().empty()) ++undone;
  EXPECT_EQ(undone, 3);
  EXPECT_EQ(f.list.Row(1).renameName, large + "1");
}

TEST(EditHistory, WhatCanBeDoneAgainCountsToo) {
  Fixture f;
  f.Edit({{1, "x"}});
  f.Edit({{2, std::string(EditHistory::kMostBytes, 'y')}});  // the step itself is small
  EXPECT_EQ(f.list.UndoEdits(), Indices({2}));
  EXPECT_FALSE(f.list.Edits().CanRedo());
  EXPECT_EQ(f.list.Row(2).renameName, "b");
}

TEST(EditHistory, TypingAfterAVanishedStepDoesNotJoinTheStepBefore) {
  Fixture f;
  f.Edit({{1, "RULE"}});
  f.Edit({{1, "x"}}, kTyping);
  f.Edit({{1, "RULE"}}, kTyping);  // back to where the typing began
  f.Edit({{1, "y"}}, kTyping);
  EXPECT_EQ(f.list.UndoEdits(), Indices({1}));
  EXPECT_EQ(f.list.Row(1).renameName, "RULE");
}

TEST(EditHistory, AStepThatIsTooLargeIsNotKeptNorAnyBeforeIt) {
  Fixture f;
  f.Edit({{2, "y"}});
  f.list.SetRenameName(1, std::string(EditHistory::kMostBytes, 'x'));
  f.Edit({{1, "x"}});
  EXPECT_FALSE(f.list.Edits().CanUndo());
}

// Random edits, removals and sorts: every step that is left leads back to the names that the rows had.
TEST(EditHistory, LeadsBackWhateverHappens) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    std::mt19937 random(seed);
    const auto upTo = [&random](int most) { return static_cast<int>(random() % static_cast<unsigned>(most)) + 1; };
    Fixture f(8);
    std::vector<Texts> states;  // by location, so that sorting makes no difference
    const auto names = [&f] {
      Texts byLocation;
      for (const char c : std::string("abcdefgh")) {
        const int index = f.list.IndexOf("/f/" + std::string(1, c) + ".mid");
        byLocation.emplace_back(index == 0 ? "" : f.list.Row(index).renameName);
      }
      return byLocation;
    };
    for (int step = 0; step < 30; ++step) {
      const Texts before = names();
      f.list.Edits().Begin(kNever);
      for (int change = upTo(4); change > 0; --change) {
        f.list.SetRenameName(upTo(f.list.Count()), "n" + std::to_string(random() % 5));
      }
      f.list.Edits().End();
      if (names() != before) states.push_back(before);
      if (random() % 5 == 0) f.list.Sort(Column::kRenameName, test::ByteOrder{});
      int pending = 0;
      for (int index = 1; index <= f.list.Count(); ++index) pending += f.list.Row(index).pending ? 1 : 0;
      ASSERT_EQ(f.list.PendingCount(), pending) << seed;
    }
    while (!states.empty()) {
      ASSERT_FALSE(f.list.UndoEdits().empty()) << seed;
      ASSERT_EQ(names(), states.back()) << seed;
      states.pop_back();
    }
    ASSERT_FALSE(f.list.Edits().CanUndo()) << seed;
  }
}

// Pending rows.

TEST(PendingName, IsAnotherThanTheFilesOwn) {
  const auto pending = [](const std::string& location, const std::string& name) {
    return IsPendingName(name, FileName(location, kLin));
  };
  EXPECT_FALSE(pending("/f/a.mid", "a"));
  EXPECT_TRUE(pending("/f/a.mid", "b"));
  EXPECT_TRUE(pending("/f/a.mid", "A"));
  EXPECT_TRUE(pending("/f/a.mid", ""));
  EXPECT_TRUE(pending("/f/a.mid", "a.mid"));
  EXPECT_FALSE(pending("/f/a.mid", "a  ")) << "applying drops the blanks";
  EXPECT_FALSE(pending("/f/a .mid", "a "));
  EXPECT_TRUE(pending("/f/a .mid", "a"));
  EXPECT_FALSE(pending("/f/README", "")) << "a file without extension is loaded without a name";
  EXPECT_FALSE(pending("/f/README", "README"));
  EXPECT_TRUE(pending("/f/README", "LIESMICH"));
  EXPECT_TRUE(pending("/f/README", " "));
}

TEST(PendingName, IsCountedThroughEveryChange) {
  Fixture f;
  EXPECT_EQ(f.list.PendingCount(), 0);
  f.list.SetRenameName(1, "x");
  f.list.SetRenameName(2, "y");
  EXPECT_EQ(f.list.PendingCount(), 2);
  EXPECT_EQ(PendingCountText(f.list), "未適応： 2");
  f.list.SetLocation(1, "/f/x.mid");
  EXPECT_EQ(f.list.PendingCount(), 1);
  f.list.SetRenameName(2, "b");
  EXPECT_EQ(f.list.PendingCount(), 0);
  f.list.SetRenameName(3, "z");
  f.list.Replace(3, RowFor("/f/c.mid", kLin));
  EXPECT_EQ(f.list.PendingCount(), 0);
  f.list.SetRenameName(3, "z");
  f.list.RemoveWhere([](int index, const FileRow&) { return index == 3; });
  EXPECT_EQ(f.list.PendingCount(), 0);
  FileItem row = RowFor("/f/d.mid", kLin);
  row.renameName = "other";
  f.list.Add(row);
  EXPECT_EQ(f.list.PendingCount(), 1);
  f.list.Clear();
  EXPECT_EQ(f.list.PendingCount(), 0);
}

TEST(PendingName, TheNextOneIsFoundAroundTheEnd) {
  Fixture f(5);
  EXPECT_EQ(f.list.NextPending(0), 0);
  f.list.SetRenameName(2, "x");
  f.list.SetRenameName(4, "y");
  EXPECT_EQ(f.list.NextPending(0), 2);
  EXPECT_EQ(f.list.NextPending(2), 4);
  EXPECT_EQ(f.list.NextPending(4), 2);
  EXPECT_EQ(f.list.NextPending(5), 2);
  f.list.SetRenameName(4, "d");
  EXPECT_EQ(f.list.NextPending(2), 2);
}

}  // namespace
}  // namespace quillon
