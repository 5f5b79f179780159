#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "app/EditingFixture.h"

namespace quillon {
namespace {

using test::CheckedRows;
using test::EditingFixture;
using test::RenameNames;
using Indices = std::vector<int>;
using Texts = std::vector<std::string>;

// One row.

TEST(mnuThisRename, SetsTheSelectedRowToItsTitleWithoutAsking) {
  EditingFixture f({"a.mid", "b.mid", "c.mid"});
  f.SetTitle(1, "one");
  f.SetTitle(2, "two");
  f.SetTitle(3, "three");
  f.Select({2, 3});
  f.editing.mnuThisRename();
  EXPECT_EQ(RenameNames(f.list), Texts({"a", "two", "c"}));
  EXPECT_EQ(f.box.Text(), "two");
  EXPECT_EQ(f.Log(), Texts({"rename box text: two"}));
  EXPECT_EQ(f.files.Calls().size(), 0u);
}

TEST(mnuThisRename, LeavesTheTitleAsItIsThoughTheOptionsRunTheRules) {
  EditingFixture f({"a.mid"});
  f.SetTitle(1, "one");
  f.options.rename.applyRules = true;
  f.options.modify.upper = true;
  f.editing.mnuThisRename();
  EXPECT_EQ(RenameNames(f.list), Texts({"one"}));
  EXPECT_EQ(f.box.Text(), "one");
}

TEST(mnuThisRename, TakesAPlaceholderLikeAnyTitle) {
  EditingFixture f({"a.mid"});
  f.editing.mnuThisRename();
  EXPECT_EQ(RenameNames(f.list), Texts({"---"}));
  f.SetTitle(1, "");
  f.editing.mnuThisRename();
  EXPECT_EQ(RenameNames(f.list), Texts({""})) << "in manual mode an empty one, too";
  EXPECT_EQ(f.ports.boxes.Shown().size(), 0u);
}

TEST(mnuThisRename, WithoutASelectedRowDoesNothing) {
  EditingFixture f({"a.mid"});
  f.Select({});
  f.editing.mnuThisRename();
  f.editing.mnuThisUndo();
  EXPECT_EQ(f.Log(), Texts());
}

TEST(mnuThisRename, InAutoModeIsAppliedAtOnce) {
  EditingFixture f({"a.mid"});
  f.mode.automatic = true;
  f.SetTitle(1, "one");
  f.editing.mnuThisRename();
  EXPECT_EQ(f.Names(), Texts({"one.mid"}));
  EXPECT_EQ(f.box.Text(), "one");
}

TEST(mnuThisRename, InAutoModeATitleThatIsEmptyIsNotApplied) {
  EditingFixture f({"a.mid"});
  f.mode.automatic = true;
  f.SetTitle(1, "");
  f.editing.mnuThisRename();
  EXPECT_EQ(f.Log(), Texts({"rename box text: ",
                            "box [自動適応モード] タイトルが存在しないため適応できません (exclamation, ok)"}));
  EXPECT_EQ(RenameNames(f.list), Texts({""}));
  EXPECT_EQ(CheckedRows(f.list), Indices());
  EXPECT_EQ(f.files.Calls().size(), 0u);
  EXPECT_TRUE(f.editing.NeedsName());
  f.editing.EnterPressed();
  EXPECT_EQ(f.box.Text(), "a") << "the last accepted name is kept as the fall-back";
}

TEST(mnuThisRename, InAutoModeATitleOfBlanksCountsAsEmpty) {
  EditingFixture f({"a.mid"});
  f.mode.automatic = true;
  f.SetTitle(1, "  ");
  f.editing.mnuThisRename();
  EXPECT_EQ(f.ports.log.StartingWith("box "),
            Texts({"box [自動適応モード] タイトルが存在しないため適応できません (exclamation, ok)"}));
  EXPECT_EQ(CheckedRows(f.list), Indices());
}

TEST(mnuThisRename, InAutoModeATitleThatFailsIsNotKeptAsTheLastAcceptedName) {
  EditingFixture f({"a.mid", "b.mid"});
  f.mode.automatic = true;
  f.SetTitle(1, "b");
  f.editing.mnuThisRename();
  EXPECT_EQ(f.box.Text(), "b");
  f.Type("");
  f.editing.EnterPressed();
  EXPECT_EQ(f.box.Text(), "a");
}

TEST(mnuThisUndo, WorksInAutoModeAndTouchesNoFile) {
  EditingFixture f({"a.mid", "b.mid"});
  f.mode.automatic = true;
  f.SetTitle(1, "b");
  f.editing.mnuThisRename();
  f.editing.mnuThisUndo();
  EXPECT_EQ(f.box.Text(), "a");
  EXPECT_EQ(f.Names(), Texts({"a.mid", "b.mid"}));
}

TEST(mnuThisRename, InAutoModeAFailureChecksTheRowWhenTheOptionSaysSo) {
  for (const bool check : {false, true}) {
    EditingFixture f({"a.mid", "b.mid"});
    f.mode.automatic = true;
    f.options.update.checkFailedRows = check;
    f.SetTitle(1, "b");
    f.editing.mnuThisRename();
    EXPECT_EQ(f.ports.boxes.Shown().size(), 1u);
    EXPECT_EQ(f.Names(), Texts({"a.mid", "b.mid"}));
    EXPECT_EQ(RenameNames(f.list), Texts({"b", "b"})) << "the title stays as the rename name";
    EXPECT_EQ(CheckedRows(f.list), check ? Indices({1}) : Indices());
  }
}

TEST(mnuThisUndo, GoesBackToTheNameOnDiskInTheListAlone) {
  for (const bool automatic : {false, true}) {
    EditingFixture f({"one.two.mid", "b.mid"});
    f.SetNames({"edited", "edited"});
    f.Select({1, 2});
    f.mode.automatic = automatic;
    f.editing.mnuThisUndo();
    EXPECT_EQ(RenameNames(f.list), Texts({"one.two", "edited"}));
    EXPECT_EQ(f.Log(), Texts({"rename box text: one.two"}));
    EXPECT_EQ(f.files.Calls().size(), 0u);
  }
}

TEST(mnuThisUndo, TheNameOnDiskIsTheOneThatWasApplied) {
  EditingFixture f({"a.mid"});
  f.mode.automatic = true;
  f.Type("new");
  f.mode.automatic = false;
  f.Type("other");
  f.editing.mnuThisUndo();
  EXPECT_EQ(RenameNames(f.list), Texts({"new"}));
}

// All rows and the checked rows.

struct Question {
  const char* name;
  void (RenameEditing::*command)();
  const char* box;
  Texts namesAfterYes;
};

const Texts kBefore = {"x1", "x2", "x3"};

const std::vector<Question>& Questions() {
  static const std::vector<Question> kQuestions = {
      {"mnuAllRename",
       &RenameEditing::mnuAllRename,
       "box [タイトルにリネーム] 全アイテムのリネーム名を、それぞれのタイトルに変更します (question, ok/cancel)",
       {"t1", "t2", "t3"}},
      {"mnuRename",
       &RenameEditing::mnuRename,
       "box [タイトルにリネーム] チェックアイテムのリネーム名を、それぞれのタイトルに変更します (question, ok/cancel)",
       {"x1", "t2", "t3"}},
      {"mnuAllUndo",
       &RenameEditing::mnuAllUndo,
       "box [元に戻す] 全アイテムのリネーム名を現在のファイル名に戻します (information, ok/cancel)",
       {"a", "b", "c"}},
      {"mnuUndo",
       &RenameEditing::mnuUndo,
       "box [元に戻す] チェックアイテムのリネーム名を現在のファイル名に戻します (information, ok/cancel)",
       {"x1", "b", "c"}},
  };
  return kQuestions;
}

struct ThreeRows : EditingFixture {
  ThreeRows() : EditingFixture({"a.mid", "b.mid", "c.mid"}) {
    for (int index = 1; index <= 3; ++index) SetTitle(index, "t" + std::to_string(index));
    SetNames(kBefore);
    list.SetChecked(2, true);
    list.SetChecked(3, true);
    ports.log.Clear();
  }
};

TEST(RenameBatches, AskFirstAndCancelChangesNothing) {
  for (const Question& question : Questions()) {
    ThreeRows f;
    f.ports.boxes.Answer(false);
    (f.editing.*question.command)();
    EXPECT_EQ(f.Log(), Texts({question.box})) << question.name;
    EXPECT_EQ(RenameNames(f.list), kBefore) << question.name;
  }
}

TEST(RenameBatches, InAutoModeTheTitlesQuestionSaysThatFilesAreRenamedAtOnce) {
  for (const bool automatic : {true, false}) {
    ThreeRows f;
    f.mode.automatic = automatic;
    f.ports.boxes.Answer(false);
    f.editing.mnuAllRename();
    f.ports.boxes.Answer(false);
    f.editing.mnuRename();
    ASSERT_EQ(f.ports.boxes.Shown().size(), 2u);
    ASSERT_EQ(f.ports.boxes.Questions().size(), automatic ? 2u : 0u);
    for (const QuestionMessage& question : f.ports.boxes.Questions()) {
      EXPECT_EQ(question.details, "自動適応モードのため、実行するとすぐにファイル名が変わります");
      EXPECT_EQ(question.message.buttons, MessageButtons::kOkCancel);
    }
    EXPECT_EQ(RenameNames(f.list), kBefore);
  }
}

TEST(RenameBatches, RunWhenConfirmed) {
  for (const Question& question : Questions()) {
    ThreeRows f;
    f.ports.boxes.Answer(true);
    (f.editing.*question.command)();
    EXPECT_EQ(f.ports.log.StartingWith("box "), Texts({question.box})) << question.name << ": and no summary";
    EXPECT_EQ(RenameNames(f.list), question.namesAfterYes) << question.name;
    EXPECT_EQ(f.files.Calls().size(), 0u) << question.name;
    EXPECT_EQ(CheckedRows(f.list), Indices({2, 3})) << question.name;
  }
}

TEST(RenameBatches, RunAtOnceWhenConfirmationsAreOff) {
  for (const Question& question : Questions()) {
    ThreeRows f;
    f.options.system.suppressConfirmations = true;
    (f.editing.*question.command)();
    EXPECT_EQ(f.ports.boxes.Shown().size(), 0u) << question.name;
    EXPECT_EQ(RenameNames(f.list), question.namesAfterYes) << question.name;
  }
}

TEST(RenameBatches, InAutoModeTitlesAreAppliedAndUndoNeverTouchesTheDisk) {
  for (const Question& question : Questions()) {
    ThreeRows f;
    f.mode.automatic = true;
    f.options.system.suppressConfirmations = true;
    (f.editing.*question.command)();
    EXPECT_EQ(RenameNames(f.list), question.namesAfterYes) << question.name;
    const bool undo = std::string(question.name).ends_with("Undo");
    EXPECT_EQ(f.files.CountOf(test::FileCall::kRename) == 0, undo) << question.name;
    if (undo) {
      EXPECT_EQ(f.Names(), Texts({"a.mid", "b.mid", "c.mid"})) << question.name;
    }
  }
}

TEST(RenameBatches, TheBoxFollowsWhenItIsRefreshed) {
  ThreeRows f;
  f.options.system.suppressConfirmations = true;
  f.Select({2});
  f.editing.mnuAllUndo();
  f.editing.Refresh();
  EXPECT_EQ(f.box.Text(), "b");
}

}  // namespace
}  // namespace quillon
