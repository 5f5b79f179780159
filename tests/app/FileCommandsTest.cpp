#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <new>
#include <string>
#include <vector>

#include "app/CommandFixture.h"
#include "app/FileCommands.h"
#include "support/MemoryFileSystem.h"
#include "support/Recorders.h"
#include "support/Rows.h"

namespace quillon {
namespace {

using test::CheckedRows;
using test::FileCall;
using test::Locations;
using Indices = std::vector<int>;
using Texts = std::vector<std::string>;

constexpr PathStyle kWin = PathStyle::kWindows;
constexpr PathStyle kLin = PathStyle::kLinux;

const char* const kQuestion =
    "box [ファイル削除] /m/b.mid\\r\\n\\r\\nこのファイルを完全に削除してもよろしいですか (question, yes/no)";
const char* const kCannotDelete = "box [ファイル削除] ファイルが削除できません (stop, ok)";
const char* const kPrompt = "folder dialog: ファイルの移動先フォルダを選択してください |  | 移動";
const char* const kMoved = "box [ファイル移動] /t/\\r\\n\\r\\nファイルの移動が完了しました (information, ok)";
const Texts kPanelsReset = {"file panel reset", "panel player: プレイヤー待機中..."};

std::string MovedCount(int count) {
  return "box [ファイル移動] " + std::to_string(count) + " 個のファイルの移動が完了しました (information, ok)";
}

constexpr std::chrono::milliseconds kNone(0);
constexpr MoveTimes kNeverShown = {std::chrono::hours(1), kNone};
constexpr MoveTimes kShownAtOnce = {kNone, kNone};

struct Fixture : test::CommandFixture {
  ListCommands rows{session, screen};
  FileCommands commands;

  explicit Fixture(const Texts& names, PathStyle pathStyle = kLin, MoveTimes moveTimes = kNeverShown)
      : CommandFixture(pathStyle),
        commands(session, rows, {files, files}, {ports.folders, ports.progress}, screen, moveTimes) {
    for (const std::string& name : names) {
      files.AddFile(Path(name), name);
      list.Add(test::RowFor(Path(name), style));
    }
    files.AddFolder(style == kWin ? "C:\\t" : "/t");
    options.list.deleteTo = DeleteTo::kNowhere;
    options.list.confirmDeletion = false;
  }

  [[nodiscard]] std::string Path(const std::string& name) const { return (style == kWin ? "C:\\m\\" : "/m/") + name; }
};

Texts Joined(Texts first, const Texts& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

TEST(RecycleFile, AsksTheRecycleBinOnlyForAnExistingFile) {
  test::MemoryFileSystem files({kLin, false});
  files.AddFile("/m/a.mid");
  files.AddFolder("/m/folder");
  EXPECT_EQ(RecycleFile(files, files, "/m/absent", 0), 1026);
  EXPECT_EQ(RecycleFile(files, files, "/m/folder", 0), 1026);
  EXPECT_EQ(files.CountOf(FileCall::kRecycle), 0u);
  EXPECT_EQ(RecycleFile(files, files, "/m/a.mid", 0), 0);
  EXPECT_EQ(files.Recycled(), Texts({"/m/a.mid"}));
}

TEST(RecycleFile, PassesTheSystemsOwnResultOn) {
  test::MemoryFileSystem files({kLin, false});
  files.AddFile("/m/a.mid");
  files.Fail(FileCall::kRecycle, "/m/a.mid", {124, ""});
  EXPECT_EQ(RecycleFile(files, files, "/m/a.mid", 0), 124);
}

TEST(DeleteForGood, AsksWithThePathWhenTheOptionSaysSo) {
  for (const bool yes : {false, true}) {
    Fixture f({"a.mid", "b.mid"});
    f.options.list.confirmDeletion = true;
    f.list.SelectOnly(2);
    f.ports.boxes.Answer(yes);
    f.commands.mnuThisDel();
    EXPECT_EQ(f.ports.log.Events().front(), kQuestion);
    EXPECT_EQ(f.files.Exists("/m/b.mid"), !yes);
    EXPECT_EQ(f.list.Count(), yes ? 1 : 2);
    if (!yes) {
      EXPECT_EQ(f.ports.log.Events().size(), 1u) << "the player is not touched before the answer";
    }
  }
}

TEST(DeleteForGood, AsksNothingWhenConfirmationsAreOff) {
  Fixture f({"a.mid"});
  f.options.list.confirmDeletion = true;
  f.options.system.suppressConfirmations = true;
  f.list.SelectOnly(1);
  f.commands.mnuThisDel();
  EXPECT_FALSE(f.files.Exists("/m/a.mid"));
  EXPECT_EQ(f.ports.boxes.Shown().size(), 0u);
}

TEST(DeleteForGood, RemovesTheFileAndTheRowAndResetsThePanels) {
  Fixture f({"a.mid", "b.mid", "c.mid"});
  f.list.SelectOnly(2);
  f.commands.mnuThisDel();
  EXPECT_EQ(f.files.NamesIn("/m"), Texts({"a.mid", "c.mid"}));
  EXPECT_EQ(Locations(f.list), Texts({"/m/a.mid", "/m/c.mid"}));
  EXPECT_EQ(f.files.Recycled(), Texts());
  EXPECT_EQ(f.list.SelectedIndex(), 0);
  const Texts& events = f.ports.log.Events();
  EXPECT_EQ(Texts(events.end() - 2, events.end()), kPanelsReset);
}

TEST(DeleteForGood, StopsThePlayerFirst) {
  Fixture f({"a.mid"});
  f.ports.player.loaded = "/m/a.mid";
  f.files.Fail(FileCall::kRemove, "/m/a.mid", {file_error::kAccess, "denied"});
  f.list.SelectOnly(1);
  f.commands.mnuThisDel();
  EXPECT_EQ(f.ports.player.loaded, "") << "even when the file cannot be deleted then";
  EXPECT_EQ(f.ports.log.Events()[0], "player release /m/a.mid");
  EXPECT_EQ(f.ports.log.Events()[1], "player stopped");
}

TEST(DeleteForGood, ReportsErrorsAndKeepsTheRow) {
  struct Case {
    FileError error;
    const char* box;
  };
  const std::vector<Case> cases = {
      {{75, "denied"},
       "box [ファイル削除] このファイルにアクセスできません\\r\\n削除時にエラーが発生しました (exclamation, ok)"},
      {{53, "No such file"}, "box [ファイル削除] 削除時にエラーが発生しました\\r\\n53 : No such file (stop, ok)"},
      {{1005, "I/O error"}, "box [ファイル削除] 削除時にエラーが発生しました\\r\\n1005 : I/O error (stop, ok)"},
  };
  for (const Case& c : cases) {
    Fixture f({"a.mid", "b.mid"});
    f.files.Fail(FileCall::kRemove, "/m/b.mid", c.error);
    f.list.SelectOnly(2);
    f.commands.mnuThisDel();
    EXPECT_EQ(f.ports.log.Events(), Texts({"player release /m/b.mid", c.box}));
    EXPECT_EQ(f.list.Count(), 2);
    EXPECT_EQ(f.list.SelectedIndex(), 2);
    EXPECT_EQ(f.files.BytesOf("/m/b.mid"), "b.mid");
  }
}

TEST(DeleteToRecycleBin, AsksNothingItself) {
  Fixture f({"a.mid", "b.mid"});
  f.options.list.deleteTo = DeleteTo::kRecycleBin;
  f.options.list.confirmDeletion = true;
  f.ports.player.loaded = "/m/b.mid";
  f.list.SelectOnly(2);
  f.commands.mnuThisDel();
  EXPECT_EQ(f.files.Recycled(), Texts({"/m/b.mid"}));
  EXPECT_EQ(f.files.CountOf(FileCall::kRemove), 0u);
  EXPECT_EQ(Locations(f.list), Texts({"/m/a.mid"}));
  EXPECT_EQ(f.ports.log.Events()[1], "player stopped");
  EXPECT_EQ(f.ports.boxes.Shown().size(), 0u);
}

TEST(DeleteToRecycleBin, AsksWhereTheDesktopDoesNot) {
  for (const bool yes : {false, true}) {
    Fixture f({"a.mid", "b.mid"});
    f.options.list.deleteTo = DeleteTo::kRecycleBin;
    f.options.list.confirmDeletion = true;
    f.files.recycleAsks = false;
    f.list.SelectOnly(2);
    f.ports.boxes.Answer(yes);
    f.commands.mnuThisDel();
    ASSERT_EQ(f.ports.boxes.Shown().size(), 1u);
    EXPECT_EQ(f.ports.boxes.Shown()[0],
              (Message{"ファイル削除", "/m/b.mid\r\n\r\nこのファイルをごみ箱に移動してもよろしいですか",
                       MessageIcon::kQuestion, MessageButtons::kYesNo}));
    EXPECT_EQ(f.files.Recycled(), yes ? Texts({"/m/b.mid"}) : Texts());
  }
}

TEST(DeleteToRecycleBin, DoesNotAskWhenConfirmationsAreOff) {
  for (const bool suppressed : {false, true}) {
    Fixture f({"a.mid", "b.mid"});
    f.options.list.deleteTo = DeleteTo::kRecycleBin;
    f.options.list.confirmDeletion = suppressed;
    f.options.system.suppressConfirmations = suppressed;
    f.files.recycleAsks = false;
    f.list.SelectOnly(2);
    f.commands.mnuThisDel();
    EXPECT_TRUE(f.ports.boxes.Shown().empty()) << suppressed;
    EXPECT_EQ(f.files.Recycled(), Texts({"/m/b.mid"}));
  }
}

TEST(DeleteToRecycleBin, KeepsTheRowWhenTheUserDeclined) {
  Fixture f({"a.mid"});
  f.options.list.deleteTo = DeleteTo::kRecycleBin;
  f.files.DeclineRecycling();
  f.list.SelectOnly(1);
  f.commands.mnuThisDel();
  EXPECT_EQ(Locations(f.list), Texts({"/m/a.mid"}));
  EXPECT_EQ(f.list.SelectedIndex(), 1);
  EXPECT_EQ(f.ports.log.Events(), Texts({"player release /m/a.mid"}));
}

TEST(DeleteToRecycleBin, SaysThatAMissingFileCannotBeDeleted) {
  Fixture f({"a.mid"});
  f.options.list.deleteTo = DeleteTo::kRecycleBin;
  ASSERT_FALSE(f.files.Remove("/m/a.mid"));
  f.list.SelectOnly(1);
  f.commands.mnuThisDel();
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({kCannotDelete}));
  EXPECT_EQ(f.list.Count(), 1);
  EXPECT_EQ(f.files.CountOf(FileCall::kRecycle), 0u);
}

TEST(DeleteToRecycleBin, ReportsThatTheBinSilentlyRefused) {
  Fixture f({"a.mid"});
  f.options.list.deleteTo = DeleteTo::kRecycleBin;
  f.files.Fail(FileCall::kRecycle, "/m/a.mid", {kRecycleNotDone, ""});
  f.list.SelectOnly(1);
  f.commands.mnuThisDel();
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({kCannotDelete}));
  EXPECT_EQ(f.list.Count(), 1);
  EXPECT_TRUE(f.files.Exists("/m/a.mid"));
}

TEST(DeleteToRecycleBin, AnyOtherResultRemovesTheRowLikeASuccess) {
  Fixture f({"a.mid"});
  f.options.list.deleteTo = DeleteTo::kRecycleBin;
  f.files.Fail(FileCall::kRecycle, "/m/a.mid", {124, ""});
  f.list.SelectOnly(1);
  f.commands.mnuThisDel();
  EXPECT_EQ(f.list.Count(), 0);
  EXPECT_EQ(f.ports.boxes.Shown().size(), 0u) << "the system has told the user itself";
  EXPECT_TRUE(f.files.Exists("/m/a.mid"));
}

TEST(mnuThisDel, DoesNothingWithoutASelection) {
  Fixture f({"a.mid"});
  f.commands.mnuThisDel();
  EXPECT_EQ(f.ports.log.Events(), Texts());
  EXPECT_TRUE(f.files.Exists("/m/a.mid"));
}

TEST(mnuThisMove, StartsAtTheLastTargetAndACancelChangesNothing) {
  Fixture f({"a.mid"});
  f.options.system.moveFolder = "/last/";
  f.list.SelectOnly(1);
  f.ports.folders.Answer("");
  f.commands.mnuThisMove();
  EXPECT_EQ(f.ports.log.Events(), Texts({"folder dialog: ファイルの移動先フォルダを選択してください | /last/ | 移動"}));
  EXPECT_EQ(f.options.system.moveFolder, "/last/");
  EXPECT_EQ(f.files.CountOf(FileCall::kMove), 0u);
}

TEST(mnuThisMove, DoesNothingWithoutASelection) {
  Fixture f({"a.mid"});
  f.commands.mnuThisMove();
  EXPECT_EQ(f.ports.log.Events(), Texts());
}

TEST(mnuThisMove, WithRemainListTheRowStaysAndFollowsItsFile) {
  for (const char* target : {"/t", "/t/"}) {
    Fixture f({"a.mid", "B.MID"});
    f.ports.player.loaded = f.ports.player.chosen = "/m/B.MID";
    f.list.SelectOnly(2);
    f.list.SetRenameName(2, "edited");
    f.ports.folders.Answer(target);
    f.commands.mnuThisMove();
    EXPECT_EQ(f.ports.player.chosen, "/t/B.MID");
    EXPECT_EQ(f.ports.log.Events(),
              Texts({kPrompt, "player release /m/B.MID", "player stopped", "file panel name /t/B.MID", kMoved}));
    EXPECT_EQ(f.options.system.moveFolder, "/t/");
    EXPECT_EQ(Locations(f.list), Texts({"/m/a.mid", "/t/B.MID"})) << "name and extension do not change";
    EXPECT_EQ(f.list.Row(2).renameName, "edited");
    EXPECT_EQ(f.list.SelectedIndex(), 2);
    EXPECT_EQ(f.files.BytesOf("/t/B.MID"), "B.MID");
    EXPECT_FALSE(f.files.Exists("/m/B.MID"));
  }
}

TEST(mnuThisMove, WithoutRemainListTheRowLeavesAndThePanelsAreReset) {
  Fixture f({"a.mid", "b.mid"});
  f.options.move.keepMovedRows = false;
  f.list.SelectOnly(1);
  f.ports.folders.Answer("/t");
  f.commands.mnuThisMove();
  EXPECT_EQ(Locations(f.list), Texts({"/m/b.mid"}));
  EXPECT_EQ(f.files.BytesOf("/t/a.mid"), "a.mid");
  const Texts& events = f.ports.log.Events();
  EXPECT_EQ(Texts(events.end() - 3, events.end()), Joined(kPanelsReset, {kMoved}));
}

TEST(mnuThisMove, WorksOnWindowsPaths) {
  Fixture f({"表.mid"}, kWin);
  f.list.SelectOnly(1);
  f.ports.folders.Answer("C:\\t");
  f.commands.mnuThisMove();
  EXPECT_EQ(Locations(f.list), Texts({"C:\\t\\表.mid"}));
  EXPECT_EQ(f.options.system.moveFolder, "C:\\t\\");
  EXPECT_TRUE(f.files.Exists("C:\\t\\表.mid"));
}

TEST(mnuThisMove, ReportsErrorsAndLeavesFileAndRow) {
  struct Case {
    int number;
    const char* box;
  };
  const std::vector<Case> cases = {
      {58, "box [ファイル移動] 移動先に同名のファイルがあります\\r\\nファイルが移動できませんでした (exclamation, ok)"},
      {75, "box [ファイル移動] 移動先にアクセスできません\\r\\nファイルが移動できませんでした (exclamation, ok)"},
      {53, "box [ファイル移動] ファイルが移動できませんでした (stop, ok)"},
      {file_error::kOwn + 28, "box [ファイル移動] ファイルが移動できませんでした (stop, ok)"},
  };
  for (const Case& c : cases) {
    for (const bool keep : {false, true}) {
      Fixture f({"a.mid"});
      f.options.move.keepMovedRows = keep;
      f.files.Fail(FileCall::kMove, "/m/a.mid", {c.number, "why"});
      f.list.SelectOnly(1);
      f.ports.folders.Answer("/t");
      f.commands.mnuThisMove();
      EXPECT_EQ(f.ports.log.Events(), Texts({kPrompt, "player release /m/a.mid", c.box}));
      EXPECT_EQ(Locations(f.list), Texts({"/m/a.mid"}));
      EXPECT_EQ(f.files.BytesOf("/m/a.mid"), "a.mid");
      EXPECT_EQ(f.list.SelectedIndex(), 1);
    }
  }
}

TEST(mnuThisMove, AFileWithThisNameInTheTargetIsNotChanged) {
  Fixture f({"a.mid"});
  f.files.AddFile("/t/a.mid", "other");
  f.list.SelectOnly(1);
  f.ports.folders.Answer("/t");
  f.commands.mnuThisMove();
  EXPECT_EQ(
      f.ports.log.Events().back(),
      "box [ファイル移動] 移動先に同名のファイルがあります\\r\\nファイルが移動できませんでした (exclamation, ok)");
  EXPECT_EQ(f.files.BytesOf("/t/a.mid"), "other");
  EXPECT_EQ(f.files.BytesOf("/m/a.mid"), "a.mid");
}

TEST(mnuThisMove, IntoItsOwnFolderChangesNothing) {
  for (const PathStyle style : {kLin, kWin}) {
    Fixture f({"a.mid"}, style);
    f.list.SelectOnly(1);
    f.ports.folders.Answer(f.Path(""));
    f.commands.mnuThisMove();
    EXPECT_EQ(f.files.NamesIn(f.Path("")), Texts({"a.mid"}));
    EXPECT_EQ(Locations(f.list), Texts({f.Path("a.mid")}));
    EXPECT_EQ(f.ports.log.Events().back(),
              "box [ファイル移動] 移動先に同名のファイルがあります\\r\\nファイルが移動できませんでした "
              "(exclamation, ok)");
  }
}

TEST(BatchMove, MovesAllOrTheCheckedRowsAndCountsThem) {
  for (const bool all : {false, true}) {
    Fixture f({"a.mid", "b.mid", "c.mid"});
    f.list.SetChecked(1, true);
    f.list.SetChecked(3, true);
    f.ports.folders.Answer("/t");
    all ? f.commands.mnuAllMove() : f.commands.mnuMove();
    EXPECT_EQ(f.files.NamesIn("/t"), all ? Texts({"a.mid", "b.mid", "c.mid"}) : Texts({"a.mid", "c.mid"}));
    EXPECT_EQ(f.ports.log.StartingWith("folder dialog").size(), 1u) << "one choice for all";
    EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({MovedCount(all ? 3 : 2)}));
    EXPECT_EQ(CheckedRows(f.list), Indices({1, 3}));
    EXPECT_EQ(f.list.Row(1).Location(), "/t/a.mid");
    EXPECT_EQ(f.list.Row(2).Location(), all ? "/t/b.mid" : "/m/b.mid");
  }
}

TEST(BatchMove, ShowsEveryStepInItsOrder) {
  Fixture f({"a.mid", "b.mid"});
  f.ports.player.loaded = "/m/b.mid";
  f.list.SelectOnly(2);
  f.ports.folders.Answer("/t");
  f.commands.mnuAllMove();
  EXPECT_EQ(f.ports.log.Events(), Texts({kPrompt, "pointer hourglass", "window disabled", "player release /m/a.mid",
                                         "player release /m/b.mid", "player stopped", "file panel name /t/b.mid",
                                         "pointer normal", "window enabled", MovedCount(2)}));
}

TEST(BatchMove, GoesOnAfterAFailureAndCountsOnlyTheMoved) {
  for (const bool keep : {false, true}) {
    Fixture f({"a.mid", "b.mid", "c.mid", "d.mid"});
    f.options.move.keepMovedRows = keep;
    f.files.AddFile("/t/b.mid", "other");
    f.files.Fail(FileCall::kMove, "/m/c.mid", {file_error::kAccess, "denied"});
    f.ports.folders.Answer("/t");
    f.commands.mnuAllMove();
    EXPECT_EQ(
        f.ports.log.StartingWith("box"),
        Texts({"box [ファイル移動] 移動先に同名のファイルがあります\\r\\nファイルが移動できませんでした (exclamation, "
               "ok)",
               "box [ファイル移動] 移動先にアクセスできません\\r\\nファイルが移動できませんでした (exclamation, ok)",
               MovedCount(2)}));
    EXPECT_EQ(Locations(f.list),
              keep ? Texts({"/t/a.mid", "/m/b.mid", "/m/c.mid", "/t/d.mid"}) : Texts({"/m/b.mid", "/m/c.mid"}));
  }
}

TEST(BatchMove, WithoutRemainListExactlyTheMovedRowsLeave) {
  Fixture f({"a.mid", "b.mid", "c.mid"});
  f.options.move.keepMovedRows = false;
  f.list.SetChecked(2, true);
  f.list.SelectOnly(3);
  f.ports.folders.Answer("/t");
  f.commands.mnuMove();
  EXPECT_EQ(Locations(f.list), Texts({"/m/a.mid", "/m/c.mid"}));
  EXPECT_TRUE(f.ports.log.Has("file panel reset"));
  EXPECT_EQ(f.list.SelectedIndex(), 0);
}

TEST(BatchMove, AFailedRowIsShownBeforeItsBoxAndTheSelectionComesBack) {
  Fixture f({"a.mid", "b.mid", "c.mid"});
  f.list.SelectOnly(3);
  f.list.SetSelected(1, true);
  f.files.AddFile("/t/b.mid", "other");
  f.ports.folders.Answer("/t");
  f.ports.log.Clear();
  f.commands.mnuAllMove();
  const Texts& events = f.ports.log.Events();
  const auto box = std::find(events.begin(), events.end(), test::BoxEvent(f.ports.boxes.Failures().at(0).message));
  ASSERT_NE(box, events.end());
  EXPECT_EQ(Texts(box - 2, box), Texts({"file panel row 2", "window scrolls to 2"}));
  EXPECT_EQ(f.ports.boxes.Failures()[0].details,
            "ファイル： /m/b.mid\r\n変更後： /t/b.mid\r\nシステムのメッセージ： File exists");
  EXPECT_TRUE(f.list.Row(1).selected);
  EXPECT_FALSE(f.list.Row(2).selected);
  EXPECT_TRUE(f.list.Row(3).selected);
  EXPECT_EQ(f.ports.log.StartingWith("file panel row").back(), "file panel row 1");
}

TEST(BatchMove, WithoutASelectionNoFailedRowStaysChosenForPlaying) {
  Fixture f({"a.mid"});
  f.files.AddFile("/t/a.mid", "other");
  f.ports.folders.Answer("/t");
  f.ports.player.chosen = "/m/a.mid";  // as the window does for the row that it shows
  f.commands.mnuAllMove();
  EXPECT_EQ(f.list.SelectedIndex(), 0);
  EXPECT_EQ(f.ports.player.chosen, "");
}

TEST(BatchMove, ShowsNoFurtherFailuresWhenTheUserWantsNone) {
  Fixture f({"a.mid", "b.mid", "c.mid"});
  for (const char* const name : {"/t/a.mid", "/t/b.mid"}) f.files.AddFile(name, "other");
  f.ports.folders.Answer("/t");
  f.ports.boxes.AnswerFailure(FailureAnswer::kTellNoMore);
  f.commands.mnuAllMove();
  ASSERT_EQ(f.ports.boxes.Failures().size(), 1U);
  EXPECT_TRUE(f.ports.boxes.Failures()[0].inBatch);
  EXPECT_EQ(f.ports.log.StartingWith("box").back(), MovedCount(1));
}

TEST(BatchMove, EndsWithoutASummaryWhenTheUserClosesTheWindow) {
  Fixture f({"a.mid", "b.mid", "c.mid"});
  f.options.move.keepMovedRows = false;
  f.files.AddFile("/t/b.mid", "other");
  f.ports.folders.Answer("/t");
  f.ports.boxes.AnswerFailure(FailureAnswer::kStop);
  f.commands.mnuAllMove();
  EXPECT_EQ(f.ports.log.StartingWith("box").size(), 1U);
  EXPECT_EQ(Locations(f.list), Texts({"/m/b.mid", "/m/c.mid"}));
}

TEST(ThisMove, OffersDetailsButNoFurtherChoice) {
  Fixture f({"a.mid", "b.mid"});
  f.list.SelectOnly(2);
  f.files.Fail(FileCall::kMove, "/m/b.mid", {file_error::kOwn + 28, "No space left on device"});
  f.ports.folders.Answer("/t");
  f.commands.mnuThisMove();
  ASSERT_EQ(f.ports.boxes.Failures().size(), 1U);
  EXPECT_FALSE(f.ports.boxes.Failures()[0].inBatch);
  EXPECT_EQ(f.ports.boxes.Failures()[0].details,
            "ファイル： /m/b.mid\r\n変更後： /t/b.mid\r\nシステムのメッセージ： No space left on device");
}

TEST(BatchMove, WhenNothingCouldBeMovedSaysZeroAndKeepsThePanels) {
  Fixture f({"a.mid"});
  f.options.move.keepMovedRows = false;
  f.list.SelectOnly(1);
  f.files.AddFile("/t/a.mid", "other");
  f.ports.folders.Answer("/t");
  f.commands.mnuAllMove();
  EXPECT_EQ(f.ports.log.StartingWith("box").back(), MovedCount(0));
  EXPECT_FALSE(f.ports.log.Has("file panel reset"));
  EXPECT_EQ(f.list.Count(), 1);
}

TEST(BatchMove, WithNothingInScopeAsksNothing) {
  Fixture f({"a.mid"});
  f.commands.mnuMove();
  EXPECT_EQ(f.ports.log.Events(), Texts());
  Fixture empty({});
  empty.commands.mnuAllMove();
  EXPECT_EQ(empty.ports.log.Events(), Texts());
}

TEST(BatchMove, OfTwoFilesWithOneNameOnlyTheFirstIsMoved) {
  Fixture f({"a.mid"});
  f.files.AddFile("/n/a.mid", "second");
  f.list.Add(test::RowFor("/n/a.mid", kLin));
  f.ports.folders.Answer("/t");
  f.commands.mnuAllMove();
  EXPECT_EQ(f.files.BytesOf("/t/a.mid"), "a.mid");
  EXPECT_EQ(f.files.BytesOf("/n/a.mid"), "second");
  EXPECT_EQ(Locations(f.list), Texts({"/t/a.mid", "/n/a.mid"}));
}

TEST(BatchMove, TidiesTheTargetFolderOnceBeforeTheFirstMove) {
  for (const bool one : {false, true}) {
    Fixture f({"a.mid", "b.mid"});
    f.list.SelectOnly(1);
    f.ports.folders.Answer("/t");
    one ? f.commands.mnuThisMove() : f.commands.mnuAllMove();
    EXPECT_EQ(f.files.CountOf(FileCall::kRemoveLeftovers), 1u);
    EXPECT_EQ(f.files.Calls().front(), (test::MemoryFileSystem::LoggedCall{FileCall::kRemoveLeftovers, "/t/", ""}));
  }
}

/// Three files of nine bytes each, which every move copies in pieces of four.
struct CopyingFixture : Fixture {
  explicit CopyingFixture(MoveTimes moveTimes = kShownAtOnce) : Fixture({}, kLin, moveTimes) {
    for (const char* name : {"a.mid", "b.mid", "c.mid"}) {
      files.AddFile(Path(name), "123456789");
      FileItem row = test::RowFor(Path(name), kLin);
      row.size = 9;
      list.Add(row);
    }
    files.copiesPieces = 4;
    ports.folders.Answer("/t");
  }

  /// The user cancels when the progress is shown for this time, counted from 1.
  void CancelAt(int update) {
    ports.progress.duringUpdate = [this, left = update]() mutable { ports.progress.cancelled = --left <= 0; };
  }
};

const char* const kMoveBegin =
    "progress begin: ファイルを移動中です...\\r\\nしばらくお待ちください |   ファイルを移動中...";
const char* const kMoveCancelled = "\\r\\n移動を中止しました。残りのファイルは元のままです (information, ok)";

TEST(BatchMove, ALongMoveShowsItsProgressInBytes) {
  CopyingFixture f;
  f.commands.mnuAllMove();
  EXPECT_EQ(f.ports.log.StartingWith("progress"),
            Texts({kMoveBegin, "progress: 0% 完了しました | /m/a.mid", "progress: 0% 完了しました | /m/a.mid",
                   "progress: 13% 完了しました | /m/a.mid", "progress: 26% 完了しました | /m/a.mid",
                   "progress: 33% 完了しました | /m/b.mid", "progress: 33% 完了しました | /m/b.mid",
                   "progress: 46% 完了しました | /m/b.mid", "progress: 60% 完了しました | /m/b.mid",
                   "progress: 66% 完了しました | /m/c.mid", "progress: 66% 完了しました | /m/c.mid",
                   "progress: 80% 完了しました | /m/c.mid", "progress: 93% 完了しました | /m/c.mid", "progress end"}));
  const Texts& events = f.ports.log.Events();
  EXPECT_EQ(Texts(events.end() - 5, events.end()),
            Texts({"window enabled", "progress end", "pointer normal", "window enabled", MovedCount(3)}));
}

TEST(BatchMove, AQuickMoveShowsNothing) {
  CopyingFixture f(kNeverShown);
  f.ports.progress.cancelled = true;
  f.commands.mnuAllMove();
  EXPECT_EQ(f.ports.log.StartingWith("progress"), Texts());
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({MovedCount(3)}));
}

TEST(BatchMove, CancelledInsideAFileLeavesItAndTheRestInPlace) {
  for (const bool keep : {false, true}) {
    CopyingFixture f;
    f.options.move.keepMovedRows = keep;
    f.CancelAt(7);  // in the middle of the second file
    f.commands.mnuAllMove();
    EXPECT_EQ(f.files.NamesIn("/t"), Texts({"a.mid"}));
    EXPECT_EQ(f.files.NamesIn("/m"), Texts({"b.mid", "c.mid"}));
    EXPECT_EQ(Locations(f.list), keep ? Texts({"/t/a.mid", "/m/b.mid", "/m/c.mid"}) : Texts({"/m/b.mid", "/m/c.mid"}));
    EXPECT_EQ(f.ports.log.StartingWith("box"),
              Texts({"box [ファイル移動] 1 個のファイルの移動が完了しました" + std::string(kMoveCancelled)}));
  }
}

TEST(BatchMove, CancelledBetweenFilesLeavesTheRestInPlace) {
  CopyingFixture f;
  f.files.copiesPieces = 0;
  f.CancelAt(2);
  f.commands.mnuAllMove();
  EXPECT_EQ(Locations(f.list), Texts({"/t/a.mid", "/m/b.mid", "/m/c.mid"}));
  EXPECT_EQ(f.files.CountOf(FileCall::kMove), 1u);
  EXPECT_EQ(f.ports.log.StartingWith("box"),
            Texts({"box [ファイル移動] 1 個のファイルの移動が完了しました" + std::string(kMoveCancelled)}));
}

TEST(mnuThisMove, ALongMoveIsShownAndCanBeCancelled) {
  CopyingFixture f;
  f.list.SelectOnly(2);
  f.CancelAt(3);
  f.commands.mnuThisMove();
  EXPECT_EQ(
      f.ports.log.Events(),
      Texts({kPrompt, "window disabled", kMoveBegin, "progress: 0% 完了しました | /m/b.mid", "player release /m/b.mid",
             "progress: 0% 完了しました | /m/b.mid", "progress: 40% 完了しました | /m/b.mid", "window enabled",
             "progress end", "box [ファイル移動] 移動を中止しました。ファイルは元のままです (information, ok)"}));
  EXPECT_EQ(Locations(f.list), Texts({"/m/a.mid", "/m/b.mid", "/m/c.mid"}));
  EXPECT_EQ(f.files.BytesOf("/m/b.mid"), "123456789");
}

TEST(MoveProgress, AFileThatHasGrownCountsNoMoreThanItsListedSize) {
  test::Recorders ports;
  FileItem row = test::RowFor("/m/a.mid", kLin);
  row.size = 9;
  {
    MoveProgress progress(ports.progress, ports.window, MoveProgress::SizeOf(RowOf(row)), kShownAtOnce);
    EXPECT_TRUE(progress.Next(RowOf(row, kLin)));
    EXPECT_TRUE(progress.Continue(1'000'000, 9, {}));
  }
  EXPECT_EQ(ports.log.StartingWith("progress: ").back(), "progress: 100% 完了しました | /m/a.mid");
}

/// Runs out of memory at the second row of a batch.
struct ForgetfulPlayer final : PlayerControl {
  int releases = 0;
  void ReleaseFile(const std::string&) override {
    if (++releases == 2) throw std::bad_alloc();
  }
  void Stop() override {}
  void Choose(const std::string&) override {}
  void FileMoved(const std::string&, const std::string&) override {}
  void FileRemoved(const std::string&) override {}
};

TEST(BatchMove, AnExceptionLeavesTheWindowUsableAndNoRowOfAMovedFile) {
  Fixture f({"a.mid", "b.mid"});
  f.options.move.keepMovedRows = false;
  ForgetfulPlayer player;
  const Session session = {f.list, f.options, f.mode, player, f.style};
  FileCommands commands(session, f.rows, {f.files, f.files}, {f.ports.folders, f.ports.progress}, f.screen);
  f.ports.folders.Answer("/t");
  EXPECT_THROW(commands.mnuAllMove(), std::bad_alloc);
  const Texts& events = f.ports.log.Events();
  EXPECT_EQ(Texts(events.end() - 2, events.end()), Texts({"pointer normal", "window enabled"}));
  EXPECT_EQ(Locations(f.list), Texts({"/m/b.mid"}));
}

TEST(BatchMove, ReportsOnceWhatCouldNotBeKept) {
  const Texts expected = {MovedCount(2),
                          "box [ファイル移動] 移動しましたが、移動先では保持できない情報がありました： "
                          "日時、アクセス権、拡張属性 (exclamation, ok)"};
  Fixture f({"a.mid", "b.mid"});
  f.files.notKept = {true, true, true};
  f.ports.folders.Answer("/t");
  f.commands.mnuAllMove();
  EXPECT_EQ(f.ports.log.StartingWith("box"), expected);
}

TEST(mnuThisMove, ReportsWhatCouldNotBeKept) {
  Fixture f({"a.mid"});
  f.files.notKept.accessRights = true;
  f.list.SelectOnly(1);
  f.ports.folders.Answer("/t");
  f.commands.mnuThisMove();
  EXPECT_EQ(f.ports.log.StartingWith("box"),
            Texts({kMoved,
                   "box [ファイル移動] 移動しましたが、移動先では保持できない情報がありました： アクセス権 "
                   "(exclamation, ok)"}));
}

TEST(mnuThisMove, ASourceThatHasChangedMeanwhileKeepsItsRowAndItsCopyIsNamed) {
  Fixture f({"a.mid"});
  f.options.move.keepMovedRows = false;
  f.files.Fail(FileCall::kMove, "/m/a.mid", {file_error::kBothKept, "changed", "/t/a.mid"});
  f.list.SelectOnly(1);
  f.ports.folders.Answer("/t");
  f.commands.mnuThisMove();
  EXPECT_EQ(
      f.ports.log.Events().back(),
      "box [ファイル移動] 元のファイルが移動中に変更されたか、削除できないため、両方を残してあります\\r\\n"
      "ファイルが移動できませんでした\\r\\n\\r\\nコピーしたファイルを残してあります： /t/a.mid (exclamation, ok)");
  EXPECT_EQ(Locations(f.list), Texts({"/m/a.mid"}));
}

TEST(BatchMove, ARowPointsAtItsFileWhereverItWasLeft) {
  for (const bool keep : {false, true}) {
    Fixture f({"a.mid", "b.mid"});
    f.options.move.keepMovedRows = keep;
    f.ports.player.chosen = "/m/a.mid";
    f.files.Fail(FileCall::kMove, "/m/a.mid", {file_error::kStranded, "lost", "/t/.quillon-1"});
    f.list.SelectOnly(1);
    f.ports.folders.Answer("/t");
    f.commands.mnuAllMove();
    EXPECT_EQ(Locations(f.list), keep ? Texts({"/t/.quillon-1", "/t/b.mid"}) : Texts({"/t/.quillon-1"}));
    EXPECT_TRUE(f.ports.log.Has("file panel name /t/.quillon-1"));
    EXPECT_EQ(f.ports.log.StartingWith("box").front(),
              "box [ファイル移動] ファイルが移動できませんでした\\r\\n\\r\\nファイルは現在ここにあります： "
              "/t/.quillon-1 (stop, ok)");
    EXPECT_EQ(f.ports.player.chosen, "/t/.quillon-1");
  }
}

}  // namespace
}  // namespace quillon
