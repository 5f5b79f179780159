#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/EditingFixture.h"

namespace quillon {
namespace {

using test::CheckedRows;
using test::EditingFixture;
using test::RenameNames;
using test::SelectedRows;
using Indices = std::vector<int>;
using Texts = std::vector<std::string>;

const char* const kTargetExists =
    "box [ファイルに適応] リネーム名と同名のファイルが存在します\\r\\nファイルに適応できませんでした (exclamation, ok)";

struct Automatic : EditingFixture {
  explicit Automatic(const Texts& names) : EditingFixture(names) { mode.automatic = true; }
};

// Names with invalid characters, which files may nevertheless have on Linux.

TEST(RenameBoxChange, InAutoModeInvalidCharactersCanBeRemovedOneByOne) {
  Automatic f({"a:b?.mid"});
  f.Type("a:b");
  EXPECT_EQ(f.Names(), Texts({"a:b.mid"}));
  f.Type("a:b:");
  EXPECT_EQ(f.box.Text(), "a:b") << "a further one is refused";
  f.Type("ab");
  EXPECT_EQ(f.Names(), Texts({"ab.mid"}));
  EXPECT_TRUE(f.ports.log.StartingWith("box").empty());
}

TEST(LabelEdited, InAutoModeInvalidCharactersCanBeRemovedOneByOne) {
  Automatic f({"a:b?.mid"});
  f.editing.LabelEdited(1, "a:b");
  EXPECT_EQ(f.Names(), Texts({"a:b.mid"}));
  f.editing.LabelEdited(1, "a?b");
  EXPECT_EQ(f.Names(), Texts({"a:b.mid"}));
}

// Which row the box shows.

TEST(RenameEditing, TheBoxShowsTheLoadedRowAndIsDisabledWithoutOne) {
  EditingFixture f({"a.mid", "b.mid"});
  EXPECT_EQ(f.box.Text(), "a");
  EXPECT_TRUE(f.box.IsEnabled());
  f.editing.Load(2);
  EXPECT_EQ(f.Log(), Texts({"rename box text: b"}));
  f.ports.log.Clear();
  f.editing.Load(0);
  EXPECT_EQ(f.Log(), Texts({"rename box text: ", "rename box disabled"}));
}

TEST(RenameEditing, LoadingTheTextThatIsShownLeavesCaretAndSelectionAlone) {
  EditingFixture f({"a.mid"});
  f.box.Put("a", 1);
  f.editing.Load(1);
  EXPECT_EQ(f.Log(), Texts());
}

TEST(RenameEditing, RefreshFollowsTheSelectedRowsNameAndTheSelection) {
  EditingFixture f({"a.mid", "b.mid"});
  f.editing.Refresh();
  EXPECT_EQ(f.Log(), Texts()) << "they agree";
  f.list.SetRenameName(1, "other");
  f.editing.Refresh();
  EXPECT_EQ(f.box.Text(), "other");
  f.list.SelectOnly(2);
  f.editing.Refresh();
  EXPECT_EQ(f.box.Text(), "b");
  f.list.SelectNone();
  f.editing.Refresh();
  EXPECT_EQ(f.box.Text(), "");
  EXPECT_FALSE(f.box.IsEnabled());
}

TEST(RenameEditing, InvalidUtf8IsShownAsReplacementCharactersAndNotTakenAsAnEdit) {
  EditingFixture f({"x\x80.mid"});
  EXPECT_EQ(f.box.Text(), "x\uFFFD");
  f.editing.Changed();
  f.editing.Refresh();
  EXPECT_EQ(f.Log(), Texts());
  EXPECT_EQ(RenameNames(f.list), Texts({"x\x80"}));
}

// Typing.

TEST(RenameBoxChange, IsIgnoredWhileTheBoxIsDisabledOrNoRowIsSelected) {
  for (const bool automatic : {false, true}) {
    EditingFixture f({"a.mid"});
    f.mode.automatic = automatic;
    f.list.SelectNone();
    f.Type("b");
    f.Select({1});
    f.box.SetEnabled(false);
    f.Type("b");
    EXPECT_EQ(f.Log(), Texts());
    EXPECT_EQ(RenameNames(f.list), Texts({"a"}));
    EXPECT_EQ(f.Names(), Texts({"a.mid"}));
  }
}

TEST(RenameBoxChange, InManualModeWritesTheListAndNothingElse) {
  EditingFixture f({"a.mid", "b.mid"});
  for (const std::string& text : Texts({"new", "a?b", "  ", ""})) {
    f.Type(text);
    EXPECT_EQ(RenameNames(f.list), Texts({text, "b"}));
    EXPECT_EQ(f.Log(), Texts()) << text;
  }
  EXPECT_EQ(f.files.Calls().size(), 0u);
}

TEST(RenameBoxChange, WritesEverySelectedRow) {
  EditingFixture f({"a.mid", "b.mid", "c.mid", "d.mid"});
  f.Select({2, 4});
  f.Type("new");
  EXPECT_EQ(RenameNames(f.list), Texts({"a", "new", "c", "new"}));
}

TEST(RenameBoxChange, TheTextOfTheSelectedRowIsAcceptedWithoutApplying) {
  Automatic f({"a.mid"});
  f.Type("");
  f.list.SetRenameName(1, "listed");
  f.Type("listed");
  EXPECT_EQ(f.files.Calls().size(), 0u);
  EXPECT_EQ(f.Log(), Texts());
  f.Type("");
  f.editing.EnterPressed();
  EXPECT_EQ(f.box.Text(), "listed") << "the last accepted text";
}

TEST(RenameBoxChange, InAutoModeAppliesAtOnceAndShowsTheNewPath) {
  Automatic f({"a.mid", "b.mid"});
  f.Type("new");
  EXPECT_EQ(f.Names(), Texts({"b.mid", "new.mid"}));
  EXPECT_EQ(f.list.Row(1).Location(), "/m/new.mid");
  EXPECT_EQ(f.Log(), Texts({"player release /m/a.mid", "file panel name /m/new.mid", "player chooses /m/new.mid",
                            "panel player: 選択： /m/new.mid"}));
  EXPECT_EQ(f.box.Caret(), 3) << "typing goes on";
}

TEST(RenameBoxChange, InAutoModeShortensALongPathInThePanel) {
  Automatic f({"a.mid"});
  const std::string name(70, 'x');
  f.Type(name);
  EXPECT_TRUE(f.ports.log.Has("panel player: 選択： /.../" + name + ".mid"));
}

TEST(RenameBoxChange, InAutoModeLeavesThePanelToAnActivePlayer) {
  Automatic f({"a.mid"});
  f.status.ShowPlayer(PlayerState::kPlaying, "x");
  f.Type("new");
  EXPECT_EQ(f.ports.log.StartingWith("panel"), Texts());
  EXPECT_TRUE(f.ports.log.Has("player chooses /m/new.mid"));
}

TEST(RenameBoxChange, InAutoModeAppliesOnlyTheFirstOfSeveralSelectedRows) {
  Automatic f({"a.mid", "b.mid", "c.mid"});
  f.Select({2, 3});
  f.Type("new");
  EXPECT_EQ(RenameNames(f.list), Texts({"a", "new", "new"}));
  EXPECT_EQ(f.Names(), Texts({"a.mid", "c.mid", "new.mid"}));
}

TEST(RenameBoxChange, InAutoModeRefusesAnInvalidCharacter) {
  Automatic f({"ab.mid"});
  f.Type("a?b", 2);
  EXPECT_EQ(f.box.Text(), "ab");
  EXPECT_EQ(f.box.Caret(), 1) << "one before where it was";
  EXPECT_EQ(RenameNames(f.list), Texts({"ab"}));
  EXPECT_EQ(f.Names(), Texts({"ab.mid"}));
  EXPECT_EQ(Texts(f.Log().begin(), f.Log().begin() + 3), Texts({"beep", "rename box text: ab", "rename box caret 1"}));
  EXPECT_EQ(f.ports.boxes.Shown().size(), 0u);
}

TEST(RenameBoxChange, InAutoModeFallsBackToTheLastAcceptedTextNotTheFirst) {
  Automatic f({"a.mid"});
  f.Type("ab");
  f.Type("ab|");
  EXPECT_EQ(f.box.Text(), "ab");
  EXPECT_EQ(f.Names(), Texts({"ab.mid"}));
}

TEST(RenameBoxChange, InAutoModeTheCaretOfARefusedTextIsNeverBelowZero) {
  Automatic f({"a.mid"});
  f.Type("*a", 0);
  EXPECT_EQ(f.box.Caret(), 0);
  EXPECT_TRUE(f.ports.log.Has("rename box caret 0"));
}

TEST(RenameBoxChange, InAutoModeEachOfTheInvalidCharactersIsRefused) {
  for (const std::string& c : Texts({"\"", "*", "/", ":", "<", ">", "?", "\\", "|"})) {
    Automatic f({"a.mid"});
    f.Type("a" + c);
    EXPECT_EQ(f.box.Text(), "a") << c;
    EXPECT_TRUE(f.ports.log.Has("beep")) << c;
  }
}

TEST(RenameBoxChange, InAutoModeTheRestoredTextIsWrittenBackOverABlankedRow) {
  Automatic f({"ab.mid"});
  f.Type("");
  ASSERT_EQ(RenameNames(f.list), Texts({""}));
  f.Type("?");
  EXPECT_EQ(f.box.Text(), "ab");
  EXPECT_EQ(RenameNames(f.list), Texts({"ab"}));
}

TEST(RenameBoxChange, InAutoModeAFailureFallsBack) {
  Automatic f({"a.mid", "b.mid"});
  f.box.LoseFocus();
  f.Type("b");
  EXPECT_TRUE(f.ports.log.Has(kTargetExists));
  EXPECT_EQ(f.box.Text(), "a");
  EXPECT_TRUE(f.box.HasFocus());
  EXPECT_TRUE(f.box.WholeTextSelected());
  EXPECT_EQ(RenameNames(f.list), Texts({"a", "b"}));
  EXPECT_EQ(f.Names(), Texts({"a.mid", "b.mid"}));
  EXPECT_EQ(CheckedRows(f.list), Indices({1}));
  EXPECT_EQ(Texts(f.Log().end() - 2, f.Log().end()),
            Texts({"player chooses /m/a.mid", "panel player: 選択： /m/a.mid"}));
}

TEST(RenameBoxChange, InAutoModeAFailureChecksTheRowOnlyWhenTheOptionSaysSo) {
  Automatic f({"a.mid", "b.mid"});
  f.options.update.checkFailedRows = false;
  f.Type("b");
  EXPECT_EQ(f.box.Text(), "a");
  EXPECT_EQ(CheckedRows(f.list), Indices());
}

TEST(RenameBoxChange, InAutoModeAFailureKeepsTheFallBackForTheNextOne) {
  Automatic f({"a.mid", "b.mid"});
  f.Type("b");
  f.Type("a:");
  EXPECT_EQ(f.box.Text(), "a");
  f.Type("b");
  EXPECT_EQ(f.box.Text(), "a");
}

TEST(RenameBoxChange, InAutoModeAFailureWithoutAMessageFallsBackInEverySelectedRow) {
  Automatic f({"a.mid", "b.mid", "c.mid"});
  f.options.update.skipFailedRows = true;
  f.Select({1, 3});
  f.Type("b");
  EXPECT_EQ(f.ports.boxes.Shown().size(), 0u);
  EXPECT_EQ(RenameNames(f.list), Texts({"a", "b", "a"}));
  EXPECT_EQ(CheckedRows(f.list), Indices({1})) << "only the row that was applied";
  EXPECT_EQ(SelectedRows(f.list), Indices({1, 3}));
}

TEST(RenameBoxChange, InAutoModeARowWithoutANameFallsBackToNone) {
  Automatic f({"README", "taken"});
  f.Type("taken");
  EXPECT_TRUE(f.ports.log.Has(kTargetExists));
  EXPECT_EQ(f.box.Text(), "");
  EXPECT_EQ(RenameNames(f.list), Texts({"", ""}));
  EXPECT_FALSE(f.editing.NeedsName()) << "the name that failed is nothing to fall back to";
}

TEST(RenameBoxChange, InAutoModeABlankTextIsNotApplied) {
  Automatic f({"a.mid"});
  for (const std::string& text : Texts({"", " ", "   "})) {
    f.Type(text);
    EXPECT_EQ(RenameNames(f.list), Texts({text}));
    EXPECT_EQ(f.Log(), Texts());
  }
  EXPECT_EQ(f.files.Calls().size(), 0u);
}

TEST(RenameBoxChange, InAutoModeAnEmptiedBoxKeepsTheLastNameAsItsFallBack) {
  Automatic f({"a.mid"});
  f.Type("ab");
  f.Type("");
  f.editing.EnterPressed();
  EXPECT_EQ(f.box.Text(), "ab");
}

// Enter.

TEST(RenameBoxEnter, WalksDownTheListAndBeepsOnTheLastRow) {
  for (const bool automatic : {false, true}) {
    EditingFixture f({"a.mid", "b.mid", "c.mid"});
    f.mode.automatic = automatic;
    f.editing.EnterPressed();
    EXPECT_EQ(f.Log(), Texts({"file panel row 2", "rename box text: b", "focus rename box", "rename box whole text"}));
    EXPECT_EQ(SelectedRows(f.list), Indices({2}));
    f.editing.EnterPressed();
    EXPECT_EQ(f.box.Text(), "c");
    f.ports.log.Clear();
    f.editing.EnterPressed();
    EXPECT_EQ(f.Log(), Texts({"beep"}));
    EXPECT_EQ(SelectedRows(f.list), Indices({3}));
  }
}

TEST(RenameBoxEnter, CommitsWhatWasTyped) {
  Automatic f({"a.mid", "b.mid"});
  f.Type("new");
  f.editing.EnterPressed();
  EXPECT_EQ(RenameNames(f.list), Texts({"new", "b"}));
  EXPECT_EQ(f.Names(), Texts({"b.mid", "new.mid"}));
  f.Type("other");
  EXPECT_EQ(f.Names(), Texts({"new.mid", "other.mid"})) << "typing goes into the next row";
}

TEST(RenameBoxEnter, LeavesOneOfSeveralSelectedRows) {
  EditingFixture f({"a.mid", "b.mid", "c.mid", "d.mid"});
  f.Select({2, 4});
  f.editing.EnterPressed();
  EXPECT_EQ(SelectedRows(f.list), Indices({3}));
}

TEST(RenameBoxEnter, InAutoModeGivesAnEmptyBoxItsLastNameBack) {
  Automatic f({"a.mid", "b.mid"});
  f.Type("");
  f.ports.log.Clear();
  f.editing.EnterPressed();
  EXPECT_EQ(f.box.Text(), "a");
  EXPECT_TRUE(f.box.WholeTextSelected());
  EXPECT_TRUE(f.ports.log.Has("beep"));
  EXPECT_EQ(RenameNames(f.list), Texts({"a", "b"}));
  EXPECT_EQ(SelectedRows(f.list), Indices({1})) << "it does not walk on";
}

TEST(RenameBoxEnter, InManualModeAnEmptyBoxWalksOn) {
  EditingFixture f({"a.mid", "b.mid"});
  f.Type("");
  f.editing.EnterPressed();
  EXPECT_EQ(RenameNames(f.list), Texts({"", "b"}));
  EXPECT_EQ(SelectedRows(f.list), Indices({2}));
}

// Leaving the box, entering it, clicking in it.

TEST(RenameBoxFocus, AnEmptyBoxMayNotBeLeftInAutoMode) {
  Automatic f({"a.mid"});
  EXPECT_FALSE(f.editing.NeedsName());
  f.Type(" ");
  EXPECT_FALSE(f.editing.NeedsName()) << "blank is not empty";
  f.Type("");
  EXPECT_TRUE(f.editing.NeedsName());
  f.mode.automatic = false;
  EXPECT_FALSE(f.editing.NeedsName());
  f.mode.automatic = true;
  f.box.SetEnabled(false);
  EXPECT_FALSE(f.editing.NeedsName());
}

TEST(RenameBoxFocus, ARowLoadedWithoutANameMayBeLeft) {
  Automatic f({"README", "b.mid"});
  ASSERT_EQ(f.box.Text(), "");
  EXPECT_FALSE(f.editing.NeedsName());
  EXPECT_TRUE(f.editing.MayLeaveRow());
  f.Type("x");
  f.Type("");
  EXPECT_TRUE(f.editing.NeedsName()) << "now there is a name to fall back to";
}

TEST(RenameBoxFocus, LeavingItEmptyAsksForANameAndComesBack) {
  Automatic f({"a.mid"});
  f.Type("");
  f.editing.AskForName();
  EXPECT_EQ(f.Log(),
            Texts({"box [自動適応モード] リネーム名を入力してください (exclamation, ok)", "focus rename box"}));
}

TEST(RenameBoxFocus, EnteringItSelectsTheWholeText) {
  EditingFixture f({"a.mid"});
  f.editing.GotFocus();
  EXPECT_EQ(f.Log(), Texts({"rename box whole text"}));
}

TEST(RenameBoxClick, SelectsTheFirstRowWithThisName) {
  EditingFixture f({"a.mid", "b.mid", "c.mid"});
  f.SetNames({"x", "same", "same"});
  f.Select({3});
  f.editing.Clicked();
  EXPECT_EQ(SelectedRows(f.list), Indices({2}));
  EXPECT_EQ(f.Log(), Texts({"file panel row 2"}));
}

TEST(RenameBoxClick, KeepsSeveralSelectedRowsWhenTheMatchIsOneOfThem) {
  EditingFixture f({"a.mid", "b.mid", "c.mid"});
  f.SetNames({"x", "same", "same"});
  f.Select({2, 3});
  f.editing.Clicked();
  EXPECT_EQ(SelectedRows(f.list), Indices({2, 3}));
  EXPECT_EQ(f.Log(), Texts({"file panel row 2"}));
}

TEST(RenameBoxClick, WithoutAMatchDoesNothing) {
  EditingFixture f({"a.mid", "b.mid"});
  f.box.Put("nobody", 0);
  f.editing.Clicked();
  EXPECT_EQ(f.Log(), Texts());
  EXPECT_EQ(SelectedRows(f.list), Indices({1}));
}

TEST(RenameBoxClick, AnEmptiedBoxStaysWithItsRowInAutoMode) {
  Automatic f({"README", "b.mid"});
  f.Select({2});
  f.Type("");
  f.editing.Clicked();
  EXPECT_EQ(SelectedRows(f.list), Indices({2}));
}

// Leaving the row, for another one or for a sort.

TEST(MayLeaveRow, WithANameInTheBoxOrInManualMode) {
  Automatic f({"a.mid"});
  EXPECT_TRUE(f.editing.MayLeaveRow());
  f.mode.automatic = false;
  f.Type("");
  EXPECT_TRUE(f.editing.MayLeaveRow());
  EXPECT_EQ(f.Log(), Texts());
}

TEST(MayLeaveRow, NotWithAnEmptyBoxInAutoMode) {
  Automatic f({"a.mid", "b.mid", "c.mid"});
  f.Select({2});
  f.Type("");
  f.list.SelectOnly(3);  // as after a click in the list
  EXPECT_FALSE(f.editing.MayLeaveRow());
  EXPECT_EQ(SelectedRows(f.list), Indices({2}));
  EXPECT_EQ(f.box.Text(), "b");
  EXPECT_EQ(RenameNames(f.list), Texts({"a", "b", "c"}));
  EXPECT_EQ(f.ports.log.StartingWith("beep").size(), 1u);
  EXPECT_EQ(f.Names(), Texts({"a.mid", "b.mid", "c.mid"}));
  EXPECT_TRUE(f.editing.MayLeaveRow()) << "the next click is free";
}

// Names typed in the list.

TEST(LabelEdited, InManualModeAnyTextIsTaken) {
  EditingFixture f({"a.mid", "b.mid"});
  f.editing.LabelEdited(1, "a?b");
  EXPECT_EQ(RenameNames(f.list), Texts({"a?b", "b"}));
  EXPECT_EQ(f.Log(), Texts({"rename box text: a?b"}));
  f.editing.LabelEdited(1, "");
  EXPECT_EQ(RenameNames(f.list), Texts({"", "b"}));
  f.editing.LabelEdited(2, "other");
  EXPECT_EQ(RenameNames(f.list), Texts({"", "other"}));
  EXPECT_EQ(f.box.Text(), "") << "another row's";
  EXPECT_EQ(f.files.Calls().size(), 0u);
}

TEST(LabelEdited, InAutoModeInvalidAndEmptyNamesAreRefused) {
  Automatic f({"a.mid"});
  f.editing.LabelEdited(1, "a?b");
  EXPECT_EQ(f.Log(), Texts({"box [自動適応モード] 不正な文字が含まれているため適応できません (exclamation, ok)"}));
  f.ports.log.Clear();
  f.editing.LabelEdited(1, "");
  EXPECT_EQ(f.Log(), Texts({"box [自動適応モード] リネーム名が入力されていないため適応できません (exclamation, ok)"}));
  EXPECT_EQ(RenameNames(f.list), Texts({"a"}));
  EXPECT_EQ(f.box.Text(), "a");
  EXPECT_EQ(f.files.Calls().size(), 0u);
}

TEST(LabelEdited, InAutoModeIsAppliedAtOnce) {
  Automatic f({"a.mid", "b.mid"});
  f.editing.LabelEdited(1, "new");
  EXPECT_EQ(f.Names(), Texts({"b.mid", "new.mid"}));
  EXPECT_EQ(f.Log(), Texts({"player release /m/a.mid", "file panel name /m/new.mid", "panel player: 選択： new.mid",
                            "rename box text: new"}));
}

TEST(LabelEdited, InAutoModeAFailurePutsTheOldNameBack) {
  for (const bool check : {false, true}) {
    Automatic f({"a.mid", "b.mid"});
    f.options.update.checkFailedRows = check;
    f.editing.LabelEdited(1, "b");
    EXPECT_TRUE(f.ports.log.Has(kTargetExists));
    EXPECT_EQ(RenameNames(f.list), Texts({"a", "b"}));
    EXPECT_EQ(f.box.Text(), "a");
    EXPECT_EQ(f.Names(), Texts({"a.mid", "b.mid"}));
    EXPECT_EQ(CheckedRows(f.list), check ? Indices({1}) : Indices());
    EXPECT_TRUE(f.ports.log.Has("panel player: 選択： a.mid"));
    f.Type("");
    f.editing.EnterPressed();
    EXPECT_EQ(f.box.Text(), "a") << "the fall-back is not the name that failed";
  }
}

}  // namespace
}  // namespace quillon
