#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "app/ApplicationFixture.h"
#include "support/MediaBuilders.h"

namespace quillon {
namespace {

using enum Command;
using test::ApplicationFixture;
using test::CheckedRows;
using test::Locations;
using test::RowFor;
using test::SelectedRows;
using Indices = std::vector<int>;
using Texts = std::vector<std::string>;

const char* const kIdle = "プレイヤー待機中...";

struct Automatic : ApplicationFixture {
  Automatic() : ApplicationFixture(AutoOptions()) {}
  static OptionValues AutoOptions() {
    OptionValues options = Options();
    options.update.automatic = true;
    return options;
  }
};

// Selecting.

TEST(Selecting, ShowsTheRow) {
  ApplicationFixture f;
  f.Load({"a.txt", "b.mid"});
  f.folder.Write("b.mid", test::SimpleMidiFile("song", "me"));
  f.Select({2});
  EXPECT_EQ(f.box.Text(), "b");
  EXPECT_EQ(f.information.fileName, f.folder.At("b.mid"));
  EXPECT_NE(f.information.summary.find("種類： MIDI (SMF Format 0)"), std::string::npos) << f.information.summary;
  EXPECT_TRUE(f.information.detail.starts_with("著作権： me / ")) << f.information.detail;
  EXPECT_EQ(f.LastPanel("player"), "選択： b.mid");
  EXPECT_EQ(f.app.Player().Paths().playFilePath, f.folder.At("b.mid"));
  EXPECT_TRUE(f.Log().Has("window scrolls to 2"));
}

TEST(Selecting, ShowsTheFirstOfSeveralRows) {
  ApplicationFixture f;
  f.Load({"a.txt", "b.txt", "c.txt"});
  f.Select({2, 3});
  EXPECT_EQ(f.box.Text(), "b");
  EXPECT_EQ(SelectedRows(f.app.List()), Indices({2, 3}));
}

TEST(Selecting, NoRowEmptiesThePanels) {
  ApplicationFixture f;
  f.Load({"a.txt"});
  f.Select({});
  EXPECT_EQ(f.box.Text(), "");
  EXPECT_FALSE(f.box.IsEnabled());
  EXPECT_EQ(f.information.fileName, "");
  EXPECT_EQ(f.information.summary, "サイズ： --- バイト / 種類： ---");
}

TEST(Selecting, InAutoModeAnEmptiedBoxKeepsItsRowSelected) {
  Automatic f;
  f.Load({"a.txt", "b.txt"});
  f.Type("");
  f.ports.log.Clear();
  f.Select({2});
  EXPECT_EQ(SelectedRows(f.app.List()), Indices({1}));
  EXPECT_EQ(f.box.Text(), "a");
  EXPECT_EQ(f.Names(), Texts({"a", "b"}));
  EXPECT_TRUE(f.Log().Has("beep"));
  EXPECT_FALSE(f.Log().Has("window scrolls to 2"));
}

TEST(Selecting, AResizeRefillsTheFileNameBox) {
  ApplicationFixture f;
  f.Load({"a.txt"});
  f.information.fileName = "old";
  f.app.WindowResized();
  EXPECT_EQ(f.information.fileName, f.folder.At("a.txt"));
  f.Select({});
  f.app.WindowResized();
  EXPECT_EQ(f.information.fileName, "");
}

// Activating.

TEST(Activating, OpensAFileThatIsNotPlayedWithTheShell) {
  ApplicationFixture f;
  f.Load({"a.htm", "b.txt"});
  f.app.RowActivated(2);
  f.app.RowActivated(1);
  EXPECT_EQ(f.Log().Events(), Texts({"shell opens " + f.folder.At("b.txt"), "shell opens " + f.folder.At("a.htm")}));
}

TEST(Activating, DoesNotHandAPlayableFileToTheShell) {
  ApplicationFixture f;
  f.Load({"a.mp3", "b.mid", "c.avi", "d.mpg", "e.wav"});
  for (int index = 1; index <= f.app.List().Count(); ++index) f.app.RowActivated(index);
  EXPECT_EQ(f.Log().StartingWith("shell"), Texts());
}

TEST(Activating, AFailureOfTheShellIsSilent) {
  ApplicationFixture f;
  f.Load({"a.txt"});
  f.shellAnswer = kShellFileNotFound;
  f.app.RowActivated(1);
  EXPECT_EQ(f.Boxes(), Texts());
}

// Sorting.

TEST(Sorting, AClickOnAHeaderSortsAndReversesTheOrder) {
  ApplicationFixture f;
  f.Load({"a.txt", "b.txt", "c.txt"});
  f.app.HeaderClicked(Column::kRenameName);
  EXPECT_EQ(f.Names(), Texts({"c", "b", "a"}));
  f.app.HeaderClicked(Column::kRenameName);
  EXPECT_EQ(f.Names(), Texts({"a", "b", "c"}));
  f.app.HeaderClicked(Column::kLocation);
  EXPECT_EQ(f.Names(), Texts({"c", "b", "a"})) << "whichever column it is";
}

TEST(Sorting, FollowsTheJapaneseOrder) {
  ApplicationFixture f;
  f.Load({"い.txt", "ｱ.txt", "B.txt", "a.txt", "ウ.txt", "山.txt", "亜.txt", "10.txt", "9.txt"});
  f.app.HeaderClicked(Column::kRenameName);
  EXPECT_EQ(f.Names(), Texts({"山", "亜", "ウ", "い", "ｱ", "B", "a", "9", "10"}));
}

TEST(Sorting, TheBoxStaysWithTheSelectedRow) {
  ApplicationFixture f;
  f.Load({"a.txt", "b.txt", "c.txt"});
  f.Select({3});
  f.app.HeaderClicked(Column::kRenameName);
  EXPECT_EQ(SelectedRows(f.app.List()), Indices({1}));
  f.app.RenameBoxEntered();
  EXPECT_EQ(f.box.Text(), "b") << "the walk goes on from the row's new place";
}

TEST(Sorting, EachSortCommandSortsItsColumn) {
  ASSERT_EQ(SortCommands().size(), static_cast<std::size_t>(kColumnCount));
  for (int number = 0; number < kColumnCount; ++number) {
    const Command command = SortCommands()[static_cast<std::size_t>(number)];
    ApplicationFixture f;
    f.Load({"a.txt", "b.txt"});
    const auto [low, high] = std::pair(1, 2);
    FileItem row = f.app.List().Row(high).Item();
    const auto column = static_cast<Column>(number);
    row.renameName = column == Column::kRenameName ? "z" : "a";
    row.title = column == Column::kTitle ? "z" : "";
    row.artist = column == Column::kArtist ? "z" : "";
    row.type = column == Column::kType ? "z" : "";
    row.size = column == Column::kSize ? 9 : 0;
    f.app.List().Replace(high, row);
    FileItem other = f.app.List().Row(low).Item();
    other.renameName = "a";
    other.title = other.artist = "";
    other.type = "";
    other.size = 0;
    f.app.List().Replace(low, other);
    f.app.Execute(command);
    EXPECT_EQ(Locations(f.app.List()), Texts({f.folder.At("b.txt"), f.folder.At("a.txt")})) << EntryOf(command).caption;
  }
}

TEST(Sorting, OfManyRowsLetsMessagesThroughAndAcceptsNoInputMeanwhile) {
  ApplicationFixture f;
  for (int i = 0; i < Application::kQuicklySorted; ++i) f.app.List().Add(RowFor("/m/" + std::to_string(i)));
  f.app.HeaderClicked(Column::kSize);
  EXPECT_TRUE(f.Log().StartingWith("main input").empty());
  EXPECT_EQ(f.ports.pending.Count(), 0u);
  f.app.List().Add(RowFor("/m/one more"));
  f.app.HeaderClicked(Column::kLocation);
  EXPECT_EQ(f.Log().StartingWith("main input"), Texts({"main input off", "main input on"}));
  EXPECT_GT(f.ports.pending.Count(), 50u);
}

TEST(Sorting, InAutoModeIsRefusedWhileTheBoxIsEmpty) {
  Automatic f;
  f.Load({"a.txt", "b.txt"});
  for (const bool header : {true, false}) {
    f.Type("");
    f.ports.log.Clear();
    header ? f.app.HeaderClicked(Column::kLocation) : f.app.Execute(mnuSortLocation);
    EXPECT_EQ(f.Names(), Texts({"a", "b"}));
    EXPECT_EQ(f.box.Text(), "a");
    EXPECT_EQ(f.Log().StartingWith("beep").size(), 1u);
  }
}

// Renaming.

TEST(Renaming, TypingIsAppliedInAutoModeOnly) {
  for (const bool automatic : {false, true}) {
    OptionValues options = ApplicationFixture::Options();
    options.update.automatic = automatic;
    ApplicationFixture f(options);
    f.Load({"a.txt"});
    f.Type("new");
    EXPECT_EQ(f.Names(), Texts({"new"}));
    EXPECT_EQ(f.folder.Exists("new.txt"), automatic);
    EXPECT_EQ(f.information.fileName, f.folder.At(automatic ? "new.txt" : "a.txt"));
  }
}

TEST(Renaming, AFailureInAutoModeRestoresTheNameAlthoughTheFailedRowWasShown) {
  Automatic f;
  f.Load({"a.txt", "b.txt"});
  f.Type("b");
  EXPECT_EQ(f.Boxes().size(), 1u);
  EXPECT_EQ(f.box.Text(), "a");
  EXPECT_TRUE(f.box.WholeTextSelected());
  EXPECT_EQ(f.Names(), Texts({"a", "b"}));
  EXPECT_EQ(f.folder.Read("a.txt"), "a.txt");
  EXPECT_EQ(f.folder.Read("b.txt"), "b.txt");
  EXPECT_EQ(CheckedRows(f.app.List()), Indices({1}));
}

TEST(Renaming, TheBoxFollowsWhatACommandDidToTheSelectedRow) {
  ApplicationFixture f;
  f.Load({"a.txt", "b.txt"});
  f.app.Options().system.suppressConfirmations = true;
  f.Type("typed");
  f.app.Execute(mnuAllUndo);
  EXPECT_EQ(f.box.Text(), "a");
  f.Type("again");
  f.app.Execute(mnuThisUndo);
  EXPECT_EQ(f.box.Text(), "a");
  f.app.LabelEdited(1, "label");
  EXPECT_EQ(f.box.Text(), "label");
  f.app.Execute(mnuAllRename);
  EXPECT_EQ(f.box.Text(), "label") << "a row without a title";
}

TEST(Renaming, AStoppedBatchInAutoModeShowsTheFailedRowsRestoredName) {
  Automatic f;
  f.Load({"a.txt", "b.txt"});
  f.app.Options().system.suppressConfirmations = true;
  f.app.Execute(mnuAllRename);  // both get the title "---" as their name
  EXPECT_EQ(f.Names(), Texts({"---", "b"}));
  EXPECT_EQ(SelectedRows(f.app.List()), Indices({2})) << "the failed row";
  EXPECT_EQ(f.box.Text(), "b");
  EXPECT_TRUE(f.folder.Exists("---.txt"));
  f.Type("");
  f.app.RenameBoxEntered();
  EXPECT_EQ(f.box.Text(), "b");
}

TEST(Renaming, AnEmptiedBoxMayNotBeLeftAndAsks) {
  Automatic f;
  f.Load({"a.txt"});
  EXPECT_FALSE(f.app.RenameBoxNeedsName());
  f.Type("");
  EXPECT_TRUE(f.app.RenameBoxNeedsName());
  f.app.AskForName();
  EXPECT_EQ(f.Boxes(), Texts({"box [自動適応モード] リネーム名を入力してください (exclamation, ok)"}));
  EXPECT_TRUE(f.box.HasFocus());
}

TEST(Renaming, EventsOfTheBoxAreHandled) {
  ApplicationFixture f;
  f.Load({"a.txt", "b.txt"});
  f.app.RenameBoxFocused();
  EXPECT_TRUE(f.box.WholeTextSelected());
  f.app.RenameBoxEntered();
  EXPECT_EQ(SelectedRows(f.app.List()), Indices({2}));
  EXPECT_EQ(f.LastPanel("player"), "選択： b.txt");
  f.box.Put("a", 0);
  f.app.RenameBoxClicked();
  EXPECT_EQ(SelectedRows(f.app.List()), Indices({1}));
}

TEST(Renaming, TheLabelOfTheSelectedRowIsEditedInTheList) {
  ApplicationFixture f;
  f.Load({"a.txt", "b.txt"});
  f.Select({2});
  f.ports.log.Clear();
  f.app.Execute(mnuThisEditRenameName);
  EXPECT_EQ(f.Log().Events(), Texts({"main edits label 2"}));
  EXPECT_FALSE(f.app.IsRunning()) << "it goes on after the command";
}

TEST(Renaming, ThisRowIsAppliedAndReported) {
  ApplicationFixture f;
  f.Load({"a.txt"});
  f.Type("new");
  f.app.Execute(mnuThisUpdate);
  EXPECT_TRUE(f.folder.Exists("new.txt"));
  EXPECT_EQ(f.Boxes(), Texts({"box [ファイルに適応] 選択されたアイテムの適応が完了しました (information, ok)"}));
  EXPECT_EQ(f.information.fileName, f.folder.At("new.txt"));
}

TEST(Renaming, CheckedAndAllRowsAreApplied) {
  for (const Command command : {mnuUpdate, mnuAllUpdate}) {
    ApplicationFixture f;
    f.Load({"a.txt", "b.txt"});
    f.app.Options().system.suppressConfirmations = true;
    f.app.List().SetRenameName(1, "x");
    f.app.List().SetRenameName(2, "y");
    f.app.List().SetChecked(2, true);
    f.app.Execute(command);
    EXPECT_TRUE(f.folder.Exists("y.txt"));
    EXPECT_EQ(f.folder.Exists("x.txt"), command == mnuAllUpdate);
  }
}

TEST(Modifying, TheDialogsCommandRunsWhileTheDialogIsOpen) {
  for (const bool all : {false, true}) {
    ApplicationFixture f;
    f.Load({"a.txt", "b.txt"});
    f.app.List().SetChecked(2, true);
    f.app.Options().modify.upper = true;
    f.main.modifyDialog = [&](Rows rows) {
      EXPECT_EQ(rows == Rows::kAll, all);
      f.app.ModifyRows(rows, f.app.Options().modify);
    };
    f.app.Execute(all ? mnuAllModify : mnuModify);
    EXPECT_EQ(f.Names(), all ? Texts({"A", "B"}) : Texts({"a", "B"}));
    EXPECT_EQ(f.box.Text(), all ? "A" : "a");
    EXPECT_TRUE(
        f.Log().Has("progress begin: リネーム名を編集中です...\\r\\nしばらくお待ちください |   ファイル名を編集中..."));
  }
}

TEST(RenamingByPattern, TheCommandsOpenTheDialogAndItsOwnerRunsTheRules) {
  for (const bool all : {false, true}) {
    ApplicationFixture f;
    f.Load({"a.txt", "b.txt"});
    f.Select({2});
    f.app.List().SetChecked(2, true);
    f.main.patternDialog = [&](Rows rows) {
      EXPECT_EQ(rows == Rows::kAll, all);
      f.app.RenameByPattern(rows, {.pattern = *NamePattern::Parse("{name}{n:02}")}, {});
    };
    f.app.Execute(all ? mnuAllPattern : mnuPattern);
    EXPECT_EQ(f.Names(), all ? Texts({"a01", "b02"}) : Texts({"a", "b01"}));
    EXPECT_EQ(f.box.Text(), all ? "b02" : "b01") << "the box follows";
    EXPECT_TRUE(f.Log().StartingWith("box ").empty()) << "the dialog itself is the confirmation";
  }
}

// Check marks, removing, deleting, moving.

TEST(Checking, EachCommandChangesTheCheckMarks) {
  ApplicationFixture f;
  f.Load({"a.txt", "b.txt"});
  f.app.List().SetChecked(2, true);
  f.app.Execute(mnuTurnChk);
  EXPECT_EQ(CheckedRows(f.app.List()), Indices({1}));
  f.app.Execute(mnuAllChk);
  EXPECT_EQ(CheckedRows(f.app.List()), Indices({1, 2}));
  f.app.Execute(mnuChkRem);
  EXPECT_EQ(CheckedRows(f.app.List()), Indices());
}

TEST(Removing, UncheckedRowsAreRemovedAndThePanelsAreReset) {
  ApplicationFixture f;
  f.Load({"a.txt", "b.txt"});
  f.app.List().SetChecked(2, true);
  f.app.Execute(mnuUnChkListRem);
  EXPECT_EQ(f.Names(), Texts({"b"}));
  EXPECT_TRUE(f.folder.Exists("a.txt"));
  EXPECT_EQ(f.box.Text(), "");
  EXPECT_FALSE(f.box.IsEnabled());
  EXPECT_EQ(f.LastPanel("player"), kIdle);
}

/// Expects rename box, information panel and selection to show the same row, or none.
void ExpectPanelsToFollow(ApplicationFixture& f) {
  const int selected = f.app.List().SelectedIndex();
  EXPECT_EQ(f.box.IsEnabled(), selected != 0);
  EXPECT_EQ(f.box.Text(), selected == 0 ? "" : f.app.List().Row(selected).renameName);
  EXPECT_EQ(f.information.fileName, selected == 0 ? "" : f.app.List().Row(selected).Location());
  if (selected == 0) {
    EXPECT_EQ(f.information.summary, "サイズ： --- バイト / 種類： ---");
  }
}

TEST(Removing, OneOfSeveralSelectedRowsLeavesPanelsThatFollowTheSelection) {
  for (const Command command : {mnuThisDel, mnuThisListDel}) {
    ApplicationFixture f;
    f.Load({"a.txt", "b.txt", "c.txt"});
    f.Select({2, 3});
    f.app.Execute(command);
    EXPECT_EQ(f.Names(), Texts({"a", "c"}));
    EXPECT_EQ(f.folder.Exists("b.txt"), command == mnuThisListDel);
    ExpectPanelsToFollow(f);
  }
}

TEST(Removing, TheOnlySelectedRowEmptiesThePanels) {
  for (const Command command : {mnuThisDel, mnuThisListDel}) {
    ApplicationFixture f;
    f.Load({"a.txt", "b.txt"});
    f.app.Execute(command);
    EXPECT_EQ(f.Names(), Texts({"b"}));
    EXPECT_EQ(SelectedRows(f.app.List()), Indices());
    ExpectPanelsToFollow(f);
    EXPECT_EQ(f.LastPanel("player"), kIdle);
  }
}

TEST(Removing, AClearedListIsEmptyAndSoAreThePanels) {
  ApplicationFixture f;
  f.Load({"a.txt"});
  f.ports.boxes.Answer(true);
  f.app.Execute(mnuAllClear);
  EXPECT_EQ(f.app.List().Count(), 0);
  EXPECT_EQ(f.Boxes(), Texts({"box [リストクリア] 現在の編集内容を破棄して、リストをクリアします (question, yes/no)"}));
  EXPECT_FALSE(f.box.IsEnabled());
  EXPECT_EQ(f.LastPanel("mode"), "手動適応モード");
}

TEST(Moving, EachCommandMovesItsRows) {
  for (const Command command : {mnuThisMove, mnuMove, mnuAllMove}) {
    ApplicationFixture f;
    f.Load({"a.txt", "b.txt", "c.txt"});
    f.Select({1});
    f.app.List().SetChecked(3, true);
    const std::string target = f.home.MakeFolder("target");
    f.ports.folders.Answer(target);
    f.app.Execute(command);
    EXPECT_EQ(f.home.Exists("target/a.txt"), command != mnuMove);
    EXPECT_EQ(f.home.Exists("target/b.txt"), command == mnuAllMove);
    EXPECT_EQ(f.home.Exists("target/c.txt"), command != mnuThisMove);
    EXPECT_EQ(f.information.fileName, command == mnuMove ? f.folder.At("a.txt") : target + "a.txt");
    EXPECT_EQ(f.app.Options().system.moveFolder, target);
  }
}

TEST(Reloading, LosesEditedNamesAndShowsTheFirstRow) {
  ApplicationFixture f;
  f.Load({"a.txt", "b.txt"});
  f.Select({2});
  f.Type("edited");
  f.ports.boxes.Answer(true);
  f.app.Execute(mnuReload);
  EXPECT_EQ(f.Names(), Texts({"a", "b"}));
  EXPECT_EQ(SelectedRows(f.app.List()), Indices({1}));
  EXPECT_EQ(f.box.Text(), "a");
  EXPECT_EQ(f.LastPanel("player"), "選択： a.txt");
}

}  // namespace
}  // namespace quillon
