#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/RenameFixture.h"

namespace quillon {
namespace {

using test::CheckedRows;
using test::FileCall;
using test::Locations;
using test::RenameFixture;
using Indices = std::vector<int>;
using Texts = std::vector<std::string>;

constexpr PathStyle kWin = PathStyle::kWindows;
constexpr PathStyle kLin = PathStyle::kLinux;

const char* const kGeneral = "\\r\\nファイルに適応できませんでした";
const char* const kSingleDone = "box [ファイルに適応] 選択されたアイテムの適応が完了しました (information, ok)";
const char* const kNoName =
    "box [ファイルに適応] リネーム名が存在しません\\r\\nファイルに適応できませんでした (exclamation, ok)";

std::string Summary(const std::string& first, const std::string& second, const char* icon) {
  return "box [ファイルに適応] " + first + "\\r\\n" + second + " (" + icon + ", ok)";
}

std::string Done(int count) {
  return std::to_string(count) + " 個のファイルを適応しました";
}
std::string Skipped(int count) {
  return std::to_string(count) + " 個のファイルがエラーでスキップされました";
}
const char* const kNoneDone = "正常に適応が完了したファイルはありません";
const char* const kNoneSkipped = "エラーでスキップされたファイルはありません";
const char* const kInterrupted = "エラーにより処理が中断されました";

TEST(ApplyRenameName, RenamesTheFileAndFollowsIt) {
  for (const PathStyle style : {kLin, kWin}) {
    RenameFixture f({"Song.MP3", "other.mid"}, style);
    f.list.CheckAll();
    f.list.SetRenameName(1, "New");
    f.ports.player.chosen = f.Path("Song.MP3");
    EXPECT_EQ(f.applying.ApplyRenameName(1), ApplyCode::kApplied);
    EXPECT_EQ(f.ports.player.chosen, f.Path("New.mp3"));
    EXPECT_EQ(f.list.Row(1).Location(), f.Path("New.mp3"));
    EXPECT_EQ(f.list.Row(1).renameName, "New");
    EXPECT_EQ(f.files.BytesOf(f.Path("New.mp3")), "Song.MP3");
    EXPECT_FALSE(f.files.Exists(f.Path("Song.MP3")));
    EXPECT_EQ(CheckedRows(f.list), Indices({2}));
    EXPECT_EQ(f.ports.log.Events(), Texts({"player release " + f.Path("Song.MP3")})) << "no message, no other panel";
  }
}

TEST(ApplyRenameName, PutsTheExtensionInLowerCaseEvenUnderTheSameName) {
  for (const PathStyle style : {kLin, kWin}) {
    RenameFixture f({"Song.MP3"}, style);
    EXPECT_EQ(f.applying.ApplyRenameName(1), ApplyCode::kApplied);
    EXPECT_EQ(f.Names(), Texts({"Song.mp3"}));
    EXPECT_EQ(f.list.Row(1).Location(), f.Path("Song.mp3"));
  }
}

TEST(ApplyRenameName, TheFilesOwnNameSucceedsAndTouchesNothing) {
  RenameFixture f({"a.mid"});
  EXPECT_EQ(f.applying.ApplyRenameName(1), ApplyCode::kApplied);
  EXPECT_EQ(f.Names(), Texts({"a.mid"}));
}

TEST(ApplyRenameName, ChangesTheLetterCaseAlone) {
  for (const PathStyle style : {kLin, kWin}) {
    RenameFixture f({"song.mid"}, style);
    f.list.SetRenameName(1, "SONG");
    EXPECT_EQ(f.applying.ApplyRenameName(1), ApplyCode::kApplied);
    EXPECT_EQ(f.Names(), Texts({"SONG.mid"}));
    EXPECT_EQ(f.list.Row(1).Location(), f.Path("SONG.mid"));
  }
}

TEST(ApplyRenameName, KeepsALeadingBlankAndDropsATrailingOne) {
  RenameFixture f({"x.mid"});
  f.list.SetRenameName(1, " a ");
  EXPECT_EQ(f.applying.ApplyRenameName(1), ApplyCode::kApplied);
  EXPECT_EQ(f.Names(), Texts({" a.mid"}));
  EXPECT_EQ(f.list.Row(1).renameName, " a ") << "the rename name itself stays as it was typed";
}

TEST(ApplyRenameName, NeverTakesTheExtensionFromTheRenameName) {
  RenameFixture f({"a.mp3"});
  f.list.SetRenameName(1, "song.mp3");
  EXPECT_EQ(f.applying.ApplyRenameName(1), ApplyCode::kApplied);
  EXPECT_EQ(f.Names(), Texts({"song.mp3.mp3"}));
}

TEST(ApplyRenameName, AFileWithoutExtensionGetsNoTrailingDot) {
  for (const PathStyle style : {kLin, kWin}) {
    RenameFixture f({"readme"}, style);
    f.list.SetRenameName(1, "notes");
    EXPECT_EQ(f.applying.ApplyRenameName(1), ApplyCode::kApplied);
    EXPECT_EQ(f.Names(), Texts({"notes"}));
    EXPECT_EQ(f.list.Row(1).Location(), f.Path("notes"));
  }
}

TEST(ApplyRenameName, ShowsTheNewPathOnlyForTheSelectedRow) {
  RenameFixture f({"a.mid", "b.mid"});
  f.SetNames({"x", "y"});
  f.list.SetSelected(1, true);
  f.list.SetSelected(2, true);
  f.applying.ApplyRenameName(1);
  f.applying.ApplyRenameName(2);
  EXPECT_EQ(f.ports.log.StartingWith("file panel"), Texts({"file panel name /m/x.mid"}))
      << "the selected row is the first of several";
}

struct FailureCase {
  const char* name;
  std::string renameName;
  int error;  ///< of the file system; 0: it is not asked
  int code;
  const char* reason;
  const char* icon;
};

std::vector<FailureCase> FailureCases() {
  return {
      {"empty", "", 0, 1, "リネーム名が存在しません", "exclamation"},
      {"blanks only", "   ", 0, 1, "リネーム名が存在しません", "exclamation"},
      {"invalid character", "a?b", 0, 2, "リネーム名に不正な文字が含まれています", "exclamation"},
      {"blank and invalid character", " :", 0, 2, "リネーム名に不正な文字が含まれています", "exclamation"},
      {"target exists", "x", 58, 3, "リネーム名と同名のファイルが存在します", "exclamation"},
      {"no access", "x", 75, 4, "ファイルにアクセスできません", "exclamation"},
      {"file is open", "x", 55, 4, "ファイルにアクセスできません", "exclamation"},
      {"not found", "x", 53, 5, "リネーム名が無効 または 長すぎます", "exclamation"},
      {"unreachable", "x", 52, 16, "リネームに適応できませんでした", "stop"},
      {"system's own number", "x", file_error::kOwn + 28, 16, "リネームに適応できませんでした", "stop"},
      {"stranded", "x", file_error::kStranded, 16, "リネームに適応できませんでした", "stop"},
  };
}

void Prepare(RenameFixture& f, const FailureCase& c) {
  f.list.SetRenameName(2, c.renameName);
  f.list.SelectOnly(1);
  if (c.error != 0) f.files.Fail(FileCall::kRename, f.Path("b.mid"), {c.error, "why"});
}

TEST(ApplyRenameName, ThePresentNamePassesWhateverCharactersItHolds) {
  RenameFixture f({"a:b?.mid"});
  EXPECT_EQ(f.applying.ApplyRenameName(1), ApplyCode::kApplied);
  f.list.SetRenameName(1, "a:b");
  EXPECT_EQ(f.applying.ApplyRenameName(1), ApplyCode::kInvalidCharacter);
  f.mode.automatic = true;
  EXPECT_EQ(f.applying.ApplyRenameName(1), ApplyCode::kApplied);
}

TEST(ApplyRenameNameFailure, ARowPointsAtItsFileWhereverItWasLeft) {
  RenameFixture f({"a.mid", "b.mid"});
  f.list.SetRenameName(2, "B");
  f.list.SelectOnly(2);
  f.ports.player.chosen = "/m/b.mid";
  f.files.Fail(FileCall::kRename, "/m/b.mid", {file_error::kStranded, "lost", "/m/.quillon-1"});
  EXPECT_EQ(f.applying.ApplyRenameName(2), ApplyCode::kUnexpected);
  EXPECT_EQ(f.list.Row(2).Location(), "/m/.quillon-1");
  EXPECT_EQ(f.ports.player.chosen, "/m/.quillon-1");
  EXPECT_TRUE(f.ports.log.Has("file panel name /m/.quillon-1"));
  EXPECT_EQ(f.ports.log.StartingWith("box").front(),
            std::string("box [ファイルに適応] リネームに適応できませんでした") + kGeneral +
                "\\r\\n\\r\\nファイルは現在ここにあります： /m/.quillon-1 (stop, ok)");
}

TEST(ApplyRenameNameFailure, ReportsTheReasonAndShowsTheRow) {
  for (const FailureCase& c : FailureCases()) {
    SCOPED_TRACE(c.name);
    RenameFixture f({"a.mid", "b.mid"});
    Prepare(f, c);
    EXPECT_EQ(static_cast<int>(f.applying.ApplyRenameName(2)), c.code);
    EXPECT_EQ(f.ports.log.Events(),
              Texts({"player release /m/b.mid", "file panel row 2", "window scrolls to 2",
                     std::string("box [ファイルに適応] ") + c.reason + kGeneral + " (" + c.icon + ", ok)",
                     "window enabled", "focus list"}));
    EXPECT_EQ(f.list.SelectedIndex(), 2);
    EXPECT_EQ(f.list.SelectedCount(), 1);
    EXPECT_EQ(f.files.CountOf(FileCall::kRename), c.error == 0 ? 0u : 1u);
  }
}

TEST(ApplyRenameNameFailure, LeavesTheRowAndTheFileAsTheyWere) {
  for (const FailureCase& c : FailureCases()) {
    SCOPED_TRACE(c.name);
    for (const bool checked : {false, true}) {
      RenameFixture f({"a.mid", "b.mid"});
      Prepare(f, c);
      f.list.SetChecked(2, checked);
      f.applying.ApplyRenameName(2);
      EXPECT_EQ(f.list.Row(2).Location(), "/m/b.mid");
      EXPECT_EQ(f.list.Row(2).renameName, c.renameName);
      EXPECT_EQ(f.list.Row(2).checked, checked) << "checking a failed row is the caller's";
      EXPECT_EQ(f.files.BytesOf("/m/b.mid"), "b.mid");
    }
  }
}

TEST(ApplyRenameNameFailure, ErrSkipSilencesAllButTheUnexpected) {
  for (const FailureCase& c : FailureCases()) {
    SCOPED_TRACE(c.name);
    RenameFixture f({"a.mid", "b.mid"});
    f.options.update.skipFailedRows = true;
    Prepare(f, c);
    EXPECT_EQ(static_cast<int>(f.applying.ApplyRenameName(2)), c.code);
    if (c.code == 16) {
      EXPECT_EQ(f.ports.boxes.Shown().size(), 1u);
      EXPECT_EQ(f.list.SelectedIndex(), 2);
      EXPECT_TRUE(f.ports.log.Has("file panel row 2"));
    } else {
      EXPECT_EQ(f.ports.log.Events(), Texts({"player release /m/b.mid"}));
      EXPECT_EQ(f.list.SelectedIndex(), 1) << "the selection stays where it was";
    }
  }
}

TEST(ApplyRenameNameFailure, ThePlayerReleasesTheFileBeforeAnyCheck) {
  for (const FailureCase& c : FailureCases()) {
    SCOPED_TRACE(c.name);
    RenameFixture f({"a.mid", "b.mid"});
    Prepare(f, c);
    f.ports.player.loaded = "/m/b.mid";
    f.applying.ApplyRenameName(2);
    EXPECT_EQ(f.ports.player.loaded, "");
    EXPECT_EQ(f.ports.log.Events()[1], "player stopped");
  }
}

TEST(ApplyRenameNameFailure, ComesFromTheDiskItself) {
  RenameFixture f({"a.mid", "b.mid", "gone.mid", "folder.mid"});
  f.files.AddFolder("/m/taken.mid");
  ASSERT_FALSE(f.files.Remove("/m/gone.mid"));
  f.SetNames({"b", std::string(252, 'x'), "new", "taken"});
  EXPECT_EQ(f.applying.ApplyRenameName(1), ApplyCode::kTargetExists);
  EXPECT_EQ(f.applying.ApplyRenameName(2), ApplyCode::kInvalidName) << "256 bytes";
  EXPECT_EQ(f.applying.ApplyRenameName(3), ApplyCode::kInvalidName) << "the source is missing";
  EXPECT_EQ(f.applying.ApplyRenameName(4), ApplyCode::kTargetExists) << "a folder has that name";
  f.list.SetRenameName(2, std::string(251, 'x'));
  EXPECT_EQ(f.applying.ApplyRenameName(2), ApplyCode::kApplied) << "255 bytes";
}

TEST(ApplyRenameNameFailure, ANameOfDotsWithoutExtensionIsInvalid) {
  for (const std::string& name : Texts({".", "..", " . ."})) {
    RenameFixture f({"readme"});
    f.list.SetRenameName(1, name);
    EXPECT_EQ(f.applying.ApplyRenameName(1), ApplyCode::kInvalidName) << name;
    EXPECT_EQ(f.Names(), Texts({"readme"}));
  }
}

TEST(ApplyRenameName, UnchecksAsTheOptionSays) {
  struct Case {
    const char* name;
    bool uncheck;
    bool automatic;
    bool checkedAfter;
  };
  for (const Case& c :
       {Case{"on", 1, false, false}, Case{"off", 0, false, true}, Case{"auto-apply mode", 1, true, true}}) {
    RenameFixture f({"a.mid"});
    f.options.update.uncheckAppliedRows = c.uncheck;
    f.mode.automatic = c.automatic;
    f.list.SetChecked(1, true);
    f.list.SetRenameName(1, "b");
    EXPECT_EQ(f.applying.ApplyRenameName(1), ApplyCode::kApplied);
    EXPECT_EQ(f.list.Row(1).checked, c.checkedAfter) << c.name;
  }
}

TEST(ApplyRenameBatch, ShowsEveryStepInItsOrder) {
  RenameFixture f({"a.mid", "b.mid", "c.mid"});
  f.SetNames({"x", "", "z"});
  f.applying.ApplyRenameBatch(Rows::kAll);
  EXPECT_EQ(f.ports.log.Events(),
            Texts({"pointer hourglass", "window disabled", "player release /m/a.mid", "player release /m/b.mid",
                   "file panel row 2", "window scrolls to 2", kNoName, "window enabled", "focus list",
                   "player release /m/c.mid", Summary(Done(2), Skipped(1), "exclamation"), "pointer normal",
                   "window enabled"}));
  EXPECT_EQ(Locations(f.list), Texts({"/m/x.mid", "/m/b.mid", "/m/z.mid"}));
}

TEST(ApplyRenameBatch, AnExceptionLeavesTheWindowEnabledAndWhatWasApplied) {
  struct OutOfMemory final : FileChanges {
    explicit OutOfMemory(FileChanges& all) : disk(all) {}
    FileOutcome Rename(const std::string& from, const std::string& to) override {
      if (++calls == 2) throw std::bad_alloc();
      return disk.Rename(from, to);
    }
    MoveOutcome Move(const std::string&, const std::string&, Progress*) override { return NotKept(); }
    void RemoveLeftovers(const std::string&) override {}
    FileOutcome Remove(const std::string&) override { return std::nullopt; }
    int Recycle(const std::string&, std::uintptr_t) override { return 0; }
    FileChanges& disk;
    int calls = 0;
  };
  RenameFixture f({"a.mid", "b.mid"});
  OutOfMemory disk(f.files);
  RenameEngine engine(f.list, f.mode, disk, f.ports.player, f.style);
  f.SetNames({"x", "y"});
  EXPECT_THROW(ApplyCommands(f.session, engine, f.files, f.screen).ApplyRenameBatch(Rows::kAll), std::bad_alloc);
  EXPECT_EQ(f.ports.log.Events().back(), "window enabled");
  EXPECT_TRUE(f.ports.log.Has("pointer normal"));
  EXPECT_EQ(Locations(f.list), Texts({"/m/x.mid", "/m/b.mid"}));
  EXPECT_EQ(test::RenameNames(f.list), Texts({"x", "y"}));
}

TEST(ApplyRenameBatch, SumsUpInTwoLines) {
  struct Case {
    const char* name;
    Texts renameNames;
    Texts boxes;
  };
  const std::vector<Case> cases = {
      {"all applied", {"x", "y"}, {Summary(Done(2), kNoneSkipped, "information")}},
      {"one of two", {"x", ""}, {Summary(Done(1), Skipped(1), "exclamation")}},
      {"none applied", {"", "a/b"}, {Summary(kNoneDone, Skipped(2), "exclamation")}},
      {"own names", {"a", "b"}, {Summary(Done(2), kNoneSkipped, "information")}},
  };
  for (const Case& c : cases) {
    RenameFixture f({"a.mid", "b.mid"});
    f.options.update.skipFailedRows = true;
    f.SetNames(c.renameNames);
    f.applying.ApplyRenameBatch(Rows::kAll);
    EXPECT_EQ(f.ports.log.StartingWith("box"), c.boxes) << c.name;
  }
}

TEST(ApplyRenameBatch, WithNothingInScopeShowsNothing) {
  RenameFixture unchecked({"a.mid"});
  unchecked.applying.ApplyRenameBatch(Rows::kChecked);
  EXPECT_EQ(unchecked.ports.log.Events(),
            Texts({"pointer hourglass", "window disabled", "pointer normal", "window enabled"}));
  RenameFixture empty;
  const BatchOutcome outcome = empty.applying.ApplyRenameBatch(Rows::kAll);
  EXPECT_EQ(empty.ports.boxes.Shown().size(), 0u);
  EXPECT_EQ(outcome.applied + outcome.skipped, 0);
}

TEST(ApplyRenameBatch, TakesTheCheckedRowsOrAll) {
  for (const bool all : {false, true}) {
    RenameFixture f({"a.mid", "b.mid", "c.mid"});
    f.SetNames({"x", "y", "z"});
    f.list.SetChecked(2, true);
    EXPECT_EQ(f.applying.ApplyRenameBatch(all ? Rows::kAll : Rows::kChecked).applied, all ? 3 : 1);
    EXPECT_EQ(f.Names(), all ? Texts({"x.mid", "y.mid", "z.mid"}) : Texts({"a.mid", "c.mid", "y.mid"}));
    EXPECT_EQ(f.list.CheckedCount(), 0);
  }
}

TEST(ApplyRenameBatch, WithErrSkipOneNamesakeIsSkippedCheckedAndCounted) {
  RenameFixture f({"a.mid", "b.mid", "c.mid"});
  f.files.AddFile("/m/taken.mid", "taken");
  f.options.update.skipFailedRows = true;
  f.SetNames({"x", "y", "taken"});
  const BatchOutcome outcome = f.applying.ApplyRenameBatch(Rows::kAll);
  EXPECT_EQ(f.Names(), Texts({"c.mid", "taken.mid", "x.mid", "y.mid"}));
  EXPECT_EQ(f.files.BytesOf("/m/taken.mid"), "taken");
  EXPECT_EQ(CheckedRows(f.list), Indices({3}));
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({Summary(Done(2), Skipped(1), "exclamation")}));
  EXPECT_EQ(outcome.applied, 2);
  EXPECT_EQ(outcome.skipped, 1);
  EXPECT_FALSE(outcome.stopped);
  ASSERT_EQ(outcome.failures.size(), 1u);
  EXPECT_EQ(outcome.failures[0].index, 3);
  EXPECT_EQ(outcome.failures[0].code, ApplyCode::kTargetExists);
  EXPECT_EQ(outcome.failures[0].error.number, file_error::kAlreadyExists);
}

TEST(ApplyRenameBatch, ChecksFailedRowsAsTheOptionSays) {
  for (const bool check : {false, true}) {
    RenameFixture f({"a.mid", "b.mid"});
    f.options.update.checkFailedRows = check;
    f.options.update.skipFailedRows = true;
    f.SetNames({"", "y"});
    f.applying.ApplyRenameBatch(Rows::kAll);
    EXPECT_EQ(CheckedRows(f.list), check ? Indices({1}) : Indices());
  }
}

TEST(ApplyRenameBatch, TheCheckedRowsAreThenExactlyTheFailedOnes) {
  RenameFixture f({"a.mid", "b.mid", "c.mid", "d.mid"});
  f.options.update.skipFailedRows = true;
  f.list.CheckAll();
  f.SetNames({"", "y", "a?", "z"});
  f.applying.ApplyRenameBatch(Rows::kChecked);
  EXPECT_EQ(CheckedRows(f.list), Indices({1, 3}));
  f.list.SetRenameName(1, "w");
  f.list.SetRenameName(3, "x");
  f.applying.ApplyRenameBatch(Rows::kChecked);
  EXPECT_EQ(CheckedRows(f.list), Indices());
  EXPECT_EQ(f.Names(), Texts({"w.mid", "x.mid", "y.mid", "z.mid"}));
}

struct StoppedCase {
  const char* name;
  std::size_t at;  ///< 1-based row of the unexpected error
  Texts summary;
};

TEST(ApplyRenameBatch, AnUnexpectedErrorStopsIt) {
  const std::vector<StoppedCase> cases = {
      {"first row", 1, {}},
      {"second row", 2, {Summary(Done(1), kInterrupted, "exclamation")}},
      {"last row", 4, {Summary(Done(2), kInterrupted, "exclamation")}},
  };
  for (const StoppedCase& c : cases) {
    SCOPED_TRACE(c.name);
    const Texts names = {"a.mid", "b.mid", "c.mid", "d.mid"};
    RenameFixture f(names);
    f.options.update.skipFailedRows = true;
    f.SetNames({"w", "x", "", "z"});
    f.files.Fail(FileCall::kRename, "/m/" + names[c.at - 1], {file_error::kUnreachable, "gone"});
    const BatchOutcome outcome = f.applying.ApplyRenameBatch(Rows::kAll);
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(f.files.CountOf(FileCall::kRename), c.at == 4 ? 3u : c.at) << "rows after it are not applied";
    Texts boxes = {
        "box [ファイルに適応] リネームに適応できませんでした\\r\\nファイルに適応できませんでした (stop, ok)"};
    boxes.insert(boxes.end(), c.summary.begin(), c.summary.end());
    EXPECT_EQ(f.ports.log.StartingWith("box"), boxes);
    EXPECT_TRUE(f.list.Row(static_cast<int>(c.at)).checked);
    EXPECT_EQ(f.list.SelectedIndex(), static_cast<int>(c.at));
    const Texts& events = f.ports.log.Events();
    EXPECT_EQ(Texts(events.end() - 2, events.end()), Texts({"pointer normal", "window enabled"}));
  }
}

TEST(ApplyRenameBatch, TheStoppedRowIsNotCheckedWhenTheOptionIsOff) {
  RenameFixture f({"a.mid"});
  f.options.update.checkFailedRows = false;
  f.list.SetRenameName(1, "x");
  f.files.Fail(FileCall::kRename, "/m/a.mid", {file_error::kUnreachable, "gone"});
  const BatchOutcome outcome = f.applying.ApplyRenameBatch(Rows::kAll);
  EXPECT_EQ(CheckedRows(f.list), Indices());
  EXPECT_EQ(outcome.skipped, 0) << "the stop is no skip";
  ASSERT_EQ(outcome.failures.size(), 1u);
  EXPECT_EQ(outcome.failures[0].error.description, "gone");
}

TEST(ApplyRenameBatch, ShowsNoFurtherFailuresWhenTheUserWantsNone) {
  RenameFixture f({"a.mid", "b.mid", "c.mid", "d.mid"});
  f.SetNames({"", "", "", "x"});
  f.ports.boxes.AnswerFailure(FailureAnswer::kTold);
  f.ports.boxes.AnswerFailure(FailureAnswer::kTellNoMore);
  EXPECT_EQ(f.applying.ApplyRenameBatch(Rows::kAll).skipped, 3);
  EXPECT_EQ(f.ports.boxes.Failures().size(), 2U);
  EXPECT_TRUE(f.ports.boxes.Failures()[0].inBatch);
  EXPECT_EQ(f.ports.log.StartingWith("box").back(), Summary(Done(1), Skipped(3), "exclamation"));
  f.applying.ApplyRenameBatch(Rows::kAll);
  EXPECT_EQ(f.ports.boxes.Failures().size(), 5U) << "the next batch tells again";
}

TEST(ApplyRenameBatch, AnUnexpectedErrorIsShownEvenThen) {
  RenameFixture f({"a.mid", "b.mid"});
  f.SetNames({"", "y"});
  f.files.Fail(FileCall::kRename, "/m/b.mid", {file_error::kUnreachable, "why"});
  f.ports.boxes.AnswerFailure(FailureAnswer::kTellNoMore);
  f.applying.ApplyRenameBatch(Rows::kAll);
  ASSERT_EQ(f.ports.boxes.Failures().size(), 2U);
  EXPECT_EQ(f.ports.boxes.Failures()[1].message.icon, MessageIcon::kStop);
  EXPECT_FALSE(f.ports.boxes.Failures()[1].inBatch) << "nothing comes after it";
}

TEST(ApplyRenameBatch, EndsWithoutASummaryWhenTheUserClosesTheWindow) {
  RenameFixture f({"a.mid", "b.mid", "c.mid"});
  f.SetNames({"x", "", "z"});
  f.ports.boxes.AnswerFailure(FailureAnswer::kStop);
  EXPECT_TRUE(f.applying.ApplyRenameBatch(Rows::kAll).stopped);
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({kNoName}));
  EXPECT_EQ(Locations(f.list), Texts({"/m/x.mid", "/m/b.mid", "/m/c.mid"}));
  EXPECT_EQ(f.ports.log.Events().back(), "window enabled");
}

TEST(ApplyRenameNameFailure, OffersDetails) {
  RenameFixture f({"a.mid", "b.mid"});
  f.SetNames({"x", ""});
  f.files.Fail(FileCall::kRename, "/m/a.mid", {file_error::kOwn + 5, "Input/output error"});
  f.applying.ApplyRenameName(1);
  f.applying.ApplyRenameName(2);
  ASSERT_EQ(f.ports.boxes.Failures().size(), 2U);
  EXPECT_EQ(f.ports.boxes.Failures()[0].details,
            "ファイル： /m/a.mid\r\n変更後： /m/x.mid\r\nシステムのメッセージ： Input/output error");
  EXPECT_EQ(f.ports.boxes.Failures()[1].details, "ファイル： /m/b.mid");
  EXPECT_FALSE(f.ports.boxes.Failures()[1].inBatch);
}

TEST(ApplyRenameNameFailure, DetailsNameTheInvalidCharacterAndItsPosition) {
  RenameFixture f({"a.mid", "b.mid"});
  f.SetNames({"音楽?:", "x\ry"});
  f.applying.ApplyRenameName(1);
  f.applying.ApplyRenameName(2);
  ASSERT_EQ(f.ports.boxes.Failures().size(), 2U);
  EXPECT_EQ(f.ports.boxes.Failures()[0].details,
            "ファイル： /m/a.mid\r\nリネーム名： 音楽?:\r\nリネーム名の 3 文字目の文字は、ファイル名に使えません： ?");
  EXPECT_EQ(f.ports.boxes.Failures()[1].details,
            "ファイル： /m/b.mid\r\nリネーム名： x\ry\r\nリネーム名の 2 文字目の文字は、ファイル名に使えません： 改行");
}

TEST(ApplyRenameNameFailure, DetailsNameTheCharacterThatAutoModeRefuses) {
  RenameFixture f({"a?b.mid"});
  f.mode.automatic = true;
  f.SetNames({"a?b?c"});
  f.applying.ApplyRenameName(1);
  ASSERT_EQ(f.ports.boxes.Failures().size(), 1U);
  EXPECT_EQ(f.ports.boxes.Failures()[0].details,
            "ファイル： /m/a?b.mid\r\nリネーム名： a?b?c\r\nリネーム名の 4 文字目の文字は、ファイル名に使えません： ?")
      << "the file has the first one already";
}

TEST(mnuThisUpdate, AppliesTheSelectedRowAndSaysSo) {
  RenameFixture f({"a.mid", "b.mid"});
  f.SetNames({"x", "y"});
  f.list.CheckAll();
  f.list.SelectOnly(2);
  f.applying.mnuThisUpdate();
  EXPECT_EQ(f.Names(), Texts({"a.mid", "y.mid"}));
  EXPECT_EQ(CheckedRows(f.list), Indices({1}));
  EXPECT_EQ(f.ports.log.Events(), Texts({"player release /m/b.mid", "file panel name /m/y.mid", kSingleDone}));
}

TEST(mnuThisUpdate, UnchecksAlsoInAutoApplyMode) {
  for (const bool uncheck : {false, true}) {
    RenameFixture f({"a.mid"});
    f.mode.automatic = true;
    f.options.update.uncheckAppliedRows = uncheck;
    f.list.SetChecked(1, true);
    f.list.SelectOnly(1);
    f.applying.mnuThisUpdate();
    EXPECT_EQ(f.list.Row(1).checked, !uncheck);
  }
}

TEST(mnuThisUpdate, ReportsAFailureEvenWithErrSkipAndRestoresIt) {
  for (const bool check : {false, true}) {
    RenameFixture f({"a.mid"});
    f.options.update.skipFailedRows = true;
    f.options.update.checkFailedRows = check;
    f.list.SetRenameName(1, "");
    f.list.SelectOnly(1);
    f.applying.mnuThisUpdate();
    EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({kNoName}));
    EXPECT_EQ(f.list.Row(1).checked, check);
    EXPECT_TRUE(f.options.update.skipFailedRows);
  }
}

TEST(mnuThisUpdate, DoesNothingWithoutASelection) {
  RenameFixture f({"a.mid"});
  f.list.SetRenameName(1, "x");
  f.applying.mnuThisUpdate();
  EXPECT_EQ(f.Names(), Texts({"a.mid"}));
  EXPECT_EQ(f.ports.log.Events(), Texts());
}

struct CommandCase {
  const char* name;
  void (ApplyCommands::*command)();
  const char* question;
  Texts applied;
};

std::vector<CommandCase> BatchCommands() {
  return {
      {"mnuAllUpdate",
       &ApplyCommands::mnuAllUpdate,
       "box [ファイルに適応] 全アイテムのリネーム名をファイルに適応します\\r\\n"
       "この操作は元に戻せません。実行しますか (question, yes/no)",
       {"x.mid", "y.mid"}},
      {"mnuUpdate",
       &ApplyCommands::mnuUpdate,
       "box [ファイルに適応] チェックアイテムのリネーム名をファイルに適応します\\r\\n"
       "この操作は元に戻せません。実行しますか (question, yes/no)",
       {"a.mid", "y.mid"}},
  };
}

TEST(BatchCommands, AskFirst) {
  for (const CommandCase& c : BatchCommands()) {
    for (const bool yes : {false, true}) {
      RenameFixture f({"a.mid", "b.mid"});
      f.SetNames({"x", "y"});
      f.list.SetChecked(2, true);
      f.ports.boxes.Answer(yes);
      (f.applying.*c.command)();
      EXPECT_EQ(f.ports.log.Events().front(), c.question);
      EXPECT_EQ(f.Names(), yes ? c.applied : Texts({"a.mid", "b.mid"})) << c.name;
      EXPECT_EQ(f.ports.boxes.Shown().size(), yes ? 2u : 1u);
    }
  }
}

TEST(BatchCommands, AskNothingWhenConfirmationsAreOff) {
  for (const CommandCase& c : BatchCommands()) {
    RenameFixture f({"a.mid", "b.mid"});
    f.SetNames({"x", "y"});
    f.list.SetChecked(2, true);
    f.options.system.suppressConfirmations = true;
    (f.applying.*c.command)();
    EXPECT_EQ(f.Names(), c.applied) << c.name;
    EXPECT_EQ(f.ports.boxes.Shown().size(), 1u) << "only the summary";
  }
}

}  // namespace
}  // namespace quillon
