#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "app/CommandFixture.h"
#include "app/LoadCommands.h"
#include "app/OpenFileFilters.h"
#include "support/MediaBuilders.h"
#include "support/MemoryFileSystem.h"
#include "support/Recorders.h"
#include "support/Rows.h"

namespace quillon {
namespace {

using test::CheckedRows;
using test::FileCall;
using test::Locations;
using test::MemoryFileSystem;
using test::RenameNames;
using test::SelectedRows;
using Indices = std::vector<int>;
using Texts = std::vector<std::string>;

constexpr PathStyle kWin = PathStyle::kWindows;
constexpr PathStyle kLin = PathStyle::kLinux;

const char* const kPrompt = "folder dialog: リネームするファイルが格納されているフォルダを選択してください | ";
const char* const kNothingFound =
    "box [フォルダ参照] 指定されたフォルダ内にファイルが見つかりませんでした\\r\\n別のフォルダを参照しますか "
    "(question, yes/no)";
const char* const kUnreachable =
    "box [フォルダ参照] 指定されたパスにアクセスできません。メディアが挿入されているか確認してください\\r\\n"
    "ファイルを読み込めませんでした (exclamation, ok)";
const char* const kSearching = "panel player: フォルダ内を検索しています...";
const char* const kIdle = "panel player: プレイヤー待機中...";
const char* const kFileListed = "box [フォルダ参照] 既にこのファイルは読み込まれています (exclamation, ok)";

std::string Interrupted(int number) {
  return "box [フォルダ参照] 検索中にエラーが発生しました\\r\\nファイルの読み込みを中断しました (" +
         std::to_string(number) + ") (stop, ok)";
}

std::string NoAccess(const std::string& path) {
  return "box [フォルダ参照] 1 個のフォルダ または ファイルにアクセスできないため、読み込みませんでした\\r\\n\\r\\n" +
         path + " (exclamation, ok)";
}

std::string Gone(const std::string& path) {
  return "box [フォルダ参照] 1 個のファイルは途中でなくなったため、読み込みませんでした\\r\\n\\r\\n" + path +
         " (exclamation, ok)";
}

struct Fixture : test::CommandFixture {
  LoadCommands loader;

  explicit Fixture(const Texts& paths, PathStyle pathStyle = kLin,
                   std::chrono::milliseconds interval = std::chrono::milliseconds(0))
      : CommandFixture(pathStyle),
        loader(session, files, {ports.search, ports.progress, ports.folders}, screen, interval) {
    options.find.filterByExtension = false;
    for (const std::string& path : paths) files.AddFile(path);
  }
};

TEST(mnuFolderReference, StartsAtTheLastFolderAndACancelChangesNothing) {
  Fixture f({"/m/a.mid"});
  f.options.system.loadFolder = "/last/";
  f.ports.folders.Answer("");
  EXPECT_EQ(f.loader.mnuFolderReference(), LoadOutcome::kCancelled);
  EXPECT_EQ(f.options.system.loadFolder, "/last/");
  EXPECT_EQ(f.ports.log.Events(), Texts({std::string(kPrompt) + "/last/"}));
  EXPECT_EQ(f.files.Calls().size(), 0u);
}

TEST(mnuFolderReference, TheChosenFolderBecomesTheLastOneWithASeparator) {
  for (const std::string& chosen : Texts({"/m", "/m/"})) {
    Fixture f({"/m/a.mid"});
    f.ports.folders.Answer(chosen);
    EXPECT_EQ(f.loader.mnuFolderReference(), LoadOutcome::kLoaded);
    EXPECT_EQ(f.options.system.loadFolder, "/m/");
    EXPECT_EQ(Locations(f.list), Texts({"/m/a.mid"}));
  }
  Fixture drive({"C:\\a.mid"}, kWin);
  drive.ports.folders.Answer("C:\\");
  EXPECT_EQ(drive.loader.mnuFolderReference(), LoadOutcome::kLoaded);
  EXPECT_EQ(drive.options.system.loadFolder, "C:\\");
}

TEST(LoadFolder, ShowsEveryStepInItsOrder) {
  Fixture f({"/m/a.mid", "/m/b.txt", "/m/c.wav"});
  f.ports.folders.Answer("/m");
  EXPECT_EQ(f.loader.mnuFolderReference(), LoadOutcome::kLoaded);
  EXPECT_EQ(f.ports.log.Events(),
            Texts({std::string(kPrompt), kSearching, "search begin: フォルダ内を検索しています... | 検索対象 : /m/",
                   "search in /m/", "search end", kIdle, "file panel reset", kIdle,
                   "progress begin: ファイル情報解析中... | ", "progress: 0% 完了しました | ",
                   "progress:   33% 完了しました | ", "progress:   66% 完了しました | ",
                   "progress:   100% 完了しました | ", "progress end", "file panel row 1"}));
  EXPECT_EQ(f.ports.pending.Count(), 6u) << "once per entry of the search and once per file of the registration";
}

TEST(LoadFolder, ShowsTheFirstAndTheLastPercentageHoweverSeldomProgressIsShown) {
  Fixture f({"/m/a", "/m/b", "/m/c", "/m/d"}, kLin, std::chrono::hours(1));
  f.loader.LoadFolder("/m/");
  EXPECT_EQ(
      f.ports.log.StartingWith("progress: "),
      Texts({"progress: 0% 完了しました | ", "progress:   25% 完了しました | ", "progress:   100% 完了しました | "}));
}

TEST(LoadFolder, TellsTheObserverOfAllRowsAtOnce) {
  Fixture f({"/m/a", "/m/b", "/m/c"});
  test::EventLog log;
  test::ListRecorder recorder(log);
  f.list.SetObserver(&recorder);
  f.loader.LoadFolder("/m/");
  EXPECT_EQ(log.Events(), Texts({"rows", "row 1"})) << "the rows, then the selection of the first";
}

TEST(LoadFolder, SelectsAndShowsTheFirstRowOfTheList) {
  Fixture f({"/m/a", "/m/b", "/n/c"});
  f.loader.LoadFolder("/m/");
  f.list.SelectOnly(2);
  f.ports.log.Clear();
  f.loader.LoadFolder("/n/");
  EXPECT_EQ(SelectedRows(f.list), Indices({1}));
  EXPECT_EQ(f.ports.log.StartingWith("file panel"), Texts({"file panel reset", "file panel row 1"}));
  EXPECT_EQ(Locations(f.list), Texts({"/m/a", "/m/b", "/n/c"}));
}

TEST(LoadFolder, RefusesAFolderWithAListedFileByItsName) {
  Fixture f({"C:\\曲\\a.mid", "C:\\曲\\b.mid"}, kWin);
  f.loader.LoadFolder("C:\\曲");
  f.list.RemoveWhere([](int index, const FileRow&) { return index == 1; });
  f.ports.log.Clear();
  EXPECT_EQ(f.loader.LoadFolder("c:\\曲"), LoadOutcome::kDuplicate);
  EXPECT_EQ(f.ports.log.Events(),
            Texts({"box [フォルダ参照] c:\\曲\\\\r\\n\\r\\n既にこのフォルダは読み込まれています (exclamation, ok)"}));
  EXPECT_EQ(Locations(f.list), Texts({"C:\\曲\\b.mid"}));
}

TEST(LoadFolder, RefusesALoadedFolderEvenWhenLoadingClearsTheList) {
  Fixture f({"/m/a.mid"});
  f.options.list.clearBeforeLoading = true;
  f.loader.LoadFolder("/m/");
  EXPECT_EQ(f.loader.LoadFolder("/m/"), LoadOutcome::kDuplicate);
  EXPECT_EQ(f.list.Count(), 1);
}

TEST(LoadFolder, ASubFolderOfALoadedFolderIsNoDuplicate) {
  Fixture f({"/m/a.mid", "/m/x/b.mid"});
  f.loader.LoadFolder("/m/");
  EXPECT_EQ(f.loader.LoadFolder("/m/x/"), LoadOutcome::kLoaded);
  EXPECT_EQ(Locations(f.list), Texts({"/m/a.mid", "/m/x/b.mid"}));
}

TEST(LoadFolder, FilesThatAreListedAlreadyAreNotListedTwice) {
  Fixture f({"/m/a.mid", "/m/x/b.mid", "/m/y/c.mid"});
  f.options.list.searchSubfolders = true;
  f.loader.LoadFolder("/m/x/");
  f.list.SetRenameName(1, "edited");
  EXPECT_EQ(f.loader.LoadFolder("/m/"), LoadOutcome::kLoaded);
  EXPECT_EQ(Locations(f.list), Texts({"/m/x/b.mid", "/m/a.mid", "/m/y/c.mid"}));
  EXPECT_EQ(RenameNames(f.list), Texts({"edited", "a", "c"}));
  EXPECT_TRUE(f.ports.log.Has("progress:   100% 完了しました | "));
}

TEST(LoadFolder, TakesWhatTheFilterOptionsSay) {
  Fixture f({"/m/a.mid", "/m/b.txt", "/m/c", "/m/d.html"});
  f.options.find.filterByExtension = true;
  f.options.find.text.on = true;
  f.loader.LoadFolder("/m/");
  EXPECT_EQ(Locations(f.list), Texts({"/m/a.mid", "/m/b.txt"}));
}

TEST(LoadFolder, WithoutAFilterTakesFilesWithoutExtensionToo) {
  Fixture f({"/m/a.mid", "/m/b.xyz", "/m/c"});
  f.loader.LoadFolder("/m/");
  EXPECT_EQ(Locations(f.list), Texts({"/m/a.mid", "/m/b.xyz", "/m/c"}));
}

TEST(LoadFolder, LeavesTheRecycleBinOutThoughItIsSearched) {
  Fixture f({"C:\\a.mid", "C:\\RECYCLED\\b.mid", "C:\\$Recycle.Bin\\c.mid", "C:\\m\\d.mid"}, kWin);
  f.options.list.searchSubfolders = true;
  f.loader.LoadFolder("C:\\");
  EXPECT_EQ(Locations(f.list), Texts({"C:\\a.mid", "C:\\m\\d.mid"}));
  EXPECT_EQ(f.files.CountOf(FileCall::kReadFolder), 4u);

  Fixture linux({"/v/a.mid", "/v/.Trash-1000/files/b.mid"});
  linux.options.list.searchSubfolders = true;
  linux.loader.LoadFolder("/v/");
  EXPECT_EQ(Locations(linux.list), Texts({"/v/a.mid"}));
}

TEST(LoadFolder, AFolderWithOnlySubFoldersHoldsNoFileUnlessTheyAreWanted) {
  Fixture f({"/m/x/a.mid"});
  f.ports.boxes.Answer(false);
  EXPECT_EQ(f.loader.LoadFolder("/m/"), LoadOutcome::kNothing);
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({kNothingFound}));
  f.options.list.searchSubfolders = true;
  EXPECT_EQ(f.loader.LoadFolder("/m/"), LoadOutcome::kLoaded);
  EXPECT_EQ(Locations(f.list), Texts({"/m/x/a.mid"}));
}

TEST(LoadFolder, NothingFoundIsExplained) {
  Fixture f({"/m/a.txt", "/m/b.doc", "/m/x/c.mid", "/m/y/d.mid", "/m/z/e.txt"});
  f.options.find.filterByExtension = true;
  f.ports.boxes.Answer(false);
  EXPECT_EQ(f.loader.LoadFolder("/m/"), LoadOutcome::kNothing);
  ASSERT_EQ(f.ports.boxes.Questions().size(), 1u);
  const QuestionMessage& question = f.ports.boxes.Questions().front();
  EXPECT_EQ(question.details,
            "フォルダ： /m/\r\n検索した拡張子： mid midi wav mp3 mpg mpeg avi\r\nほかの拡張子のファイル： 2 個\r\n"
            "検索しなかったサブフォルダ： 3 個");
  EXPECT_EQ(question.further, "サブフォルダも検索する(&S)");
}

TEST(LoadFolder, NothingFoundInAnEmptyFolderOffersNoSubfolders) {
  Fixture f({});
  f.files.AddFolder("/empty");
  f.ports.boxes.Answer(false);
  EXPECT_EQ(f.loader.LoadFolder("/empty"), LoadOutcome::kNothing);
  EXPECT_EQ(f.ports.boxes.Questions().back().details, "フォルダ： /empty/\r\n検索した拡張子： すべて");
  EXPECT_EQ(f.ports.boxes.Questions().back().further, "");
}

TEST(LoadFolder, NothingFoundInSearchedSubfoldersDoesNotOfferThemAgain) {
  Fixture f({"/m/x/a.txt", "/m/.Trash/b.mid"});
  f.options.find.filterByExtension = true;
  f.options.list.searchSubfolders = true;
  f.ports.boxes.Answer(false);
  EXPECT_EQ(f.loader.LoadFolder("/m/"), LoadOutcome::kNothing);
  EXPECT_EQ(f.ports.boxes.Questions().back().details,
            "フォルダ： /m/\r\n検索した拡張子： mid midi wav mp3 mpg mpeg avi\r\nほかの拡張子のファイル： 1 個\r\n"
            "ごみ箱の中のファイル： 1 個");
  EXPECT_EQ(f.ports.boxes.Questions().back().further, "");
}

TEST(LoadFolder, SubfoldersAreSearchedOnceWhenTheUserAsksForThem) {
  Fixture f({"/m/x/a.mid", "/m/y/b.mid"});
  f.ports.boxes.AnswerFurther();
  EXPECT_EQ(f.loader.LoadFolder("/m/"), LoadOutcome::kLoaded);
  EXPECT_EQ(Locations(f.list), Texts({"/m/x/a.mid", "/m/y/b.mid"}));
  EXPECT_EQ(f.ports.log.StartingWith("folder dialog"), Texts());
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({kNothingFound}));
  EXPECT_FALSE(f.options.list.searchSubfolders) << "the option stays";
}

TEST(LoadFolder, AnotherFolderIsSearchedAsTheOptionSaysAgain) {
  Fixture f({"/m/x/a.txt", "/n/x/a.mid", "/n/y/b.mid"});
  f.options.find.filterByExtension = true;
  f.ports.boxes.AnswerFurther();
  f.ports.boxes.Answer(true);
  f.ports.folders.Answer("/n");
  f.ports.boxes.Answer(false);
  EXPECT_EQ(f.loader.LoadFolder("/m/"), LoadOutcome::kNothing);
  ASSERT_EQ(f.ports.boxes.Questions().size(), 3u);
  EXPECT_EQ(f.ports.boxes.Questions()[1].further, "");
  EXPECT_EQ(f.ports.boxes.Questions()[2].further, "サブフォルダも検索する(&S)");
  EXPECT_EQ(f.list.Count(), 0);
}

TEST(LoadFolder, YesToAnotherFolderAsksAgainFromTheFolderJustSearched) {
  Fixture f({"/full/a.mid"});
  f.files.AddFolder("/empty");
  f.ports.folders.Answer("/empty");
  f.ports.boxes.Answer(true);
  f.ports.folders.Answer("/full");
  EXPECT_EQ(f.loader.mnuFolderReference(), LoadOutcome::kLoaded);
  EXPECT_EQ(f.ports.log.StartingWith("folder dialog"), Texts({std::string(kPrompt), std::string(kPrompt) + "/empty/"}));
  EXPECT_EQ(f.options.system.loadFolder, "/full/");
  EXPECT_EQ(f.list.Count(), 1);
}

TEST(LoadFolder, YesAndThenACancelEndsIt) {
  Fixture f({});
  f.files.AddFolder("/empty");
  f.ports.boxes.Answer(true);
  f.ports.folders.Answer("");
  EXPECT_EQ(f.loader.LoadFolder("/empty"), LoadOutcome::kCancelled);
  EXPECT_EQ(f.options.system.loadFolder, "/empty/");
}

TEST(LoadFolder, NothingFoundLeavesTheListAndThePanels) {
  Fixture f({"/m/a.mid"});
  f.files.AddFolder("/empty");
  f.options.list.clearBeforeLoading = true;
  f.loader.LoadFolder("/m/");
  f.ports.log.Clear();
  f.ports.boxes.Answer(false);
  EXPECT_EQ(f.loader.LoadFolder("/empty"), LoadOutcome::kNothing);
  EXPECT_EQ(f.list.Count(), 1);
  EXPECT_EQ(f.ports.log.StartingWith("file panel"), Texts());
  EXPECT_EQ(f.ports.log.StartingWith("player"), Texts());
}

TEST(LoadFolder, ACancelledSearchRegistersNothing) {
  Fixture f({"/m/a", "/m/b", "/m/c"});
  f.ports.pending.At(2, [&] { f.loader.Cancel(); });
  EXPECT_EQ(f.loader.LoadFolder("/m/"), LoadOutcome::kCancelled);
  EXPECT_EQ(f.list.Count(), 0);
  EXPECT_EQ(f.ports.log.Events(), Texts({kSearching, "search begin: フォルダ内を検索しています... | 検索対象 : /m/",
                                         "search in /m/", "search end", kIdle}));
  EXPECT_EQ(f.options.system.loadFolder, "/m/");
}

TEST(LoadFolder, TheStatusShowsTheSearchAndThenItsFormerText) {
  Fixture f({"/m/a", "/m/b"});
  f.status.ShowPlayer(PlayerState::kPlaying, "a.mp3");
  f.ports.log.Clear();
  f.ports.pending.At(1, [&] { f.loader.Cancel(); });
  f.loader.LoadFolder("/m/");
  EXPECT_EQ(f.ports.log.StartingWith("panel player"), Texts({kSearching, "panel player: 再生中： a.mp3"}));
}

TEST(LoadFolder, AnEarlierCancelIsForgotten) {
  Fixture f({"/m/a"});
  f.loader.Cancel();
  EXPECT_EQ(f.loader.LoadFolder("/m/"), LoadOutcome::kLoaded);
}

TEST(LoadPaths, SeveralFilesShowTheirProgressAndLetMessagesThrough) {
  Fixture f({"/m/a.mid", "/m/b.mid", "/m/c.mid"});
  f.loader.LoadPaths({"/m/a.mid", "/m/b.mid", "/m/c.mid"});
  EXPECT_EQ(f.list.Count(), 3);
  EXPECT_EQ(f.ports.pending.Count(), 3U);
  EXPECT_EQ(f.ports.log.StartingWith("progress begin").size(), 1U);
  EXPECT_EQ(f.ports.log.StartingWith("progress end").size(), 1U);
}

TEST(LoadPaths, AnEmptyPathIsNotTheRootFolder) {
  Fixture f({"/a.mid", "/m/b.mid"});
  f.options.list.searchSubfolders = true;
  f.loader.LoadPaths({"", "/m/b.mid"});
  EXPECT_EQ(f.loader.LoadPath(""), LoadOutcome::kNothing);
  EXPECT_EQ(f.list.Count(), 1);
}

TEST(LoadPaths, FilesThatAreListedAlreadyAreReportedOnce) {
  Fixture f({"/m/a.mid", "/m/b.mid", "/m/c.mid"});
  f.loader.LoadPaths({"/m/a.mid", "/m/b.mid"});
  f.loader.LoadPaths({"/m/a.mid", "/m/b.mid", "/m/c.mid"});
  EXPECT_EQ(f.list.Count(), 3);
  ASSERT_EQ(f.ports.boxes.Shown().size(), 1U);
  EXPECT_EQ(f.ports.boxes.Shown()[0].text, "2 個のファイルは既に読み込まれています");
}

TEST(LoadPaths, CancellingSkipsTheRemainingPathsToo) {
  Fixture f({"/m/a.mid", "/n/b.mid", "/o/c.mid"});
  f.ports.pending.At(1, [&] { f.loader.Cancel(); });
  f.loader.LoadPaths({"/m/", "/n/", "/o/c.mid"});
  EXPECT_EQ(f.list.Count(), 0);
  EXPECT_EQ(f.ports.log.StartingWith("search begin").size(), 1U);
  f.loader.LoadPaths({"/n/"});
  EXPECT_EQ(f.list.Count(), 1);
}

TEST(LoadPaths, CancellingAmongFilesKeepsThoseThatAreListed) {
  Fixture f({"/m/a.mid", "/m/b.mid", "/m/c.mid"});
  f.ports.pending.At(2, [&] { f.loader.Cancel(); });
  f.loader.LoadPaths({"/m/a.mid", "/m/b.mid", "/m/c.mid"});
  EXPECT_EQ(f.list.Count(), 1);
  EXPECT_TRUE(f.ports.log.Has("progress end"));
}

TEST(LoadPaths, CancellingAmongFilesSkipsTheFoldersAfterThemToo) {
  Fixture f({"/m/a.mid", "/m/b.mid", "/n/c.mid"});
  f.ports.pending.At(2, [&] { f.loader.Cancel(); });
  f.loader.LoadPaths({"/m/a.mid", "/m/b.mid", "/n/"});
  EXPECT_EQ(Locations(f.list), Texts({"/m/a.mid"}));
  EXPECT_EQ(f.ports.log.StartingWith("search begin"), Texts());
}

TEST(LoadExceptions, LeaveNoProgressWindowAndNoChangedOption) {
  struct Case {
    const char* name;
    std::size_t call;  // the number of the Process call that throws
    Texts rows;
  };
  for (const Case& c : std::vector<Case>{{"in the search", 1, {}}, {"in the registration", 4, {"/m/a.mid"}}}) {
    SCOPED_TRACE(c.name);
    Fixture f({"/m/a.mid", "/m/b.mid"});
    f.options.list.clearBeforeLoading = true;
    test::EventLog log;
    test::ListRecorder recorder(log);
    f.list.SetObserver(&recorder);
    f.ports.pending.At(c.call, [] { throw std::bad_alloc(); });
    EXPECT_THROW(f.loader.LoadPaths({"/m/"}), std::bad_alloc);
    EXPECT_TRUE(f.options.list.clearBeforeLoading);
    EXPECT_EQ(f.ports.log.StartingWith("search begin").size(), f.ports.log.StartingWith("search end").size());
    EXPECT_EQ(f.ports.log.StartingWith("progress begin").size(), f.ports.log.StartingWith("progress end").size());
    EXPECT_EQ(Locations(f.list), c.rows);
    EXPECT_EQ(log.Has("rows"), !c.rows.empty()) << "the window knows of the rows that are there";
    log.Clear();
    f.list.Add({});
    EXPECT_EQ(log.Events(), Texts({"rows"})) << "the list is no longer quiet";
  }
}

TEST(LoadExceptions, DuringAReloadKeepTheOtherRows) {
  Fixture f({"/m/a.mid", "/m/b.mid"});
  f.loader.LoadFolder("/m/");
  f.list.SetRenameName(2, "edited");
  f.ports.log.Clear();
  f.ports.boxes.Answer(true);
  f.ports.pending.At(2, [] { throw std::bad_alloc(); });
  EXPECT_THROW(f.loader.mnuReload(), std::bad_alloc);
  EXPECT_EQ(RenameNames(f.list), Texts({"a", "edited"}));
  EXPECT_TRUE(f.ports.log.Has("progress end"));
  EXPECT_TRUE(f.list.ContainsFile("/m/a.mid"));
}

TEST(LoadFolderErrors, AnUnreachablePathClearsTheLastFolder) {
  Fixture f({"/m/a.mid"});
  f.ports.folders.Answer("/absent");
  EXPECT_EQ(f.loader.mnuFolderReference(), LoadOutcome::kFailed);
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({kUnreachable}));
  EXPECT_TRUE(f.ports.log.Has("search end"));
  EXPECT_EQ(f.options.system.loadFolder, "");
  f.ports.folders.Answer("");
  f.ports.log.Clear();
  f.loader.mnuFolderReference();
  EXPECT_EQ(f.ports.log.Events(), Texts({kPrompt})) << "the next dialog starts at the platform's default";
}

TEST(LoadFolderErrors, AnyOtherErrorIsShownWithItsNumber) {
  for (const int number : {file_error::kAccess, file_error::kNotFound, file_error::kOwn + 21}) {
    Fixture f({"/m/a.mid"});
    f.files.Fail(FileCall::kReadFolder, "/m/", {number, "why"});
    EXPECT_EQ(f.loader.LoadFolder("/m/"), LoadOutcome::kFailed);
    EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({Interrupted(number)}));
    EXPECT_EQ(f.options.system.loadFolder, "");
    EXPECT_EQ(f.list.Count(), 0);
  }
}

TEST(LoadFolderErrors, RowsRegisteredBeforeTheErrorStay) {
  Fixture f({"/m/a.txt", "/m/b.txt", "/m/c.txt", "/m/d.txt"});
  test::EventLog log;
  test::ListRecorder recorder(log);
  f.list.SetObserver(&recorder);
  f.files.Fail(FileCall::kStatus, "/m/c.txt", {file_error::kUnreachable, "gone"});
  EXPECT_EQ(f.loader.LoadFolder("/m/"), LoadOutcome::kFailed);
  EXPECT_EQ(Locations(f.list), Texts({"/m/a.txt", "/m/b.txt"}));
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({kUnreachable}));
  EXPECT_TRUE(f.ports.log.Has("progress end"));
  EXPECT_EQ(f.options.system.loadFolder, "");
  EXPECT_EQ(log.Events(), Texts({"rows"}));
}

TEST(LoadFolderErrors, NoRowIsSelectedWhileThePanelsShowNone) {
  Fixture f({"/m/a.txt", "/n/b.txt"});
  f.loader.LoadFolder("/m/");
  ASSERT_EQ(f.list.SelectedIndex(), 1);
  f.ports.log.Clear();
  f.files.Fail(FileCall::kStatus, "/n/b.txt", {file_error::kOwn + 5, "input/output error"});
  EXPECT_EQ(f.loader.LoadFolder("/n/"), LoadOutcome::kFailed);
  EXPECT_EQ(f.ports.log.StartingWith("file panel"), Texts({"file panel reset"}));
  EXPECT_EQ(f.list.SelectedIndex(), 0);
}

TEST(LoadFolderErrors, AnInaccessibleFileIsSkippedAndNamed) {
  Fixture f({"/m/a.txt", "/m/b.txt", "/m/c.txt"});
  f.files.Fail(FileCall::kStatus, "/m/b.txt", {file_error::kAccess, "denied"});
  EXPECT_EQ(f.loader.LoadFolder("/m/"), LoadOutcome::kLoaded);
  EXPECT_EQ(Locations(f.list), Texts({"/m/a.txt", "/m/c.txt"}));
  EXPECT_TRUE(f.ports.log.StartingWith("box").empty());
  f.loader.TellPassedOver();
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({NoAccess("/m/b.txt")}));
}

TEST(LoadFolderErrors, AFileThatVanishedSinceTheSearchIsSkipped) {
  Fixture f({"/m/a.txt", "/m/b.txt", "/m/c.txt"});
  f.ports.pending.At(5, [&] { (void)f.files.Remove("/m/b.txt"); });
  EXPECT_EQ(f.loader.LoadFolder("/m/"), LoadOutcome::kLoaded);
  EXPECT_EQ(Locations(f.list), Texts({"/m/a.txt", "/m/c.txt"}));
  EXPECT_TRUE(f.ports.log.StartingWith("box").empty());
  f.loader.TellPassedOver();
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({Gone("/m/b.txt")}));
}

TEST(LoadFolderErrors, OfSeveralFilesThoseThatVanishedAreSkipped) {
  Fixture f({"/m/a.txt", "/m/b.txt", "/m/c.txt"});
  f.ports.pending.At(1, [&] { (void)f.files.Remove("/m/b.txt"); });
  f.loader.LoadPaths({"/m/a.txt", "/m/b.txt", "/m/c.txt"});
  EXPECT_EQ(Locations(f.list), Texts({"/m/a.txt", "/m/c.txt"}));
  f.loader.TellPassedOver();
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({Gone("/m/b.txt")}));
}

TEST(LoadRemove, ClearsTheListAndStopsThePlayerBeforeTheNewRows) {
  Fixture f({"/m/a", "/n/b"});
  f.loader.LoadFolder("/m/");
  f.options.list.clearBeforeLoading = true;
  f.ports.player.loaded = "/m/a";
  f.ports.log.Clear();
  EXPECT_EQ(f.loader.LoadFolder("/n/"), LoadOutcome::kLoaded);
  EXPECT_EQ(Locations(f.list), Texts({"/n/b"}));
  EXPECT_EQ(f.ports.player.loaded, "");
  EXPECT_EQ(SelectedRows(f.list), Indices({1}));
}

TEST(LoadRemove, OffKeepsTheRowsAndThePlayer) {
  Fixture f({"/m/a", "/n/b"});
  f.loader.LoadFolder("/m/");
  f.ports.player.loaded = "/m/a";
  f.loader.LoadFolder("/n/");
  EXPECT_EQ(f.list.Count(), 2);
  EXPECT_EQ(f.ports.player.loaded, "/m/a");
}

TEST(LoadRemove, IsIgnoredWhileSeveralPathsAreLoaded) {
  Fixture f({"/m/a", "/n/b", "/o/c"});
  f.options.list.clearBeforeLoading = true;
  f.loader.LoadPaths({"/m/", "/n", "/o/c"});
  EXPECT_EQ(Locations(f.list), Texts({"/m/a", "/n/b", "/o/c"}));
  EXPECT_TRUE(f.options.list.clearBeforeLoading);
}

TEST(LoadChk, DecidesWhetherNewRowsAreChecked) {
  Fixture f({"/m/a", "/n/b", "/o/c"});
  f.loader.LoadFolder("/m/");
  f.options.list.checkLoadedRows = false;
  f.loader.LoadFolder("/n/");
  f.loader.AddFile("/o/c");
  EXPECT_EQ(CheckedRows(f.list), Indices({1}));
  EXPECT_EQ(CheckCountText(f.list), "チェック数： 1");
}

TEST(LoadedRow, ShowsWhatTheFileHolds) {
  Fixture f({});
  f.files.AddFile("/m/midi.MID", test::SimpleMidiFile("Title  ", "Copyright "));
  f.files.AddFile("/m/page.html", "<title>x</title>");
  f.files.AddFile("/m/plain.mp3", "no tag at all");
  f.files.AddFile("/m/song.tag.mp3", test::Mp3Audio(2) + test::Id3v1Trailer({"Tag", "Artist"}));
  f.files.AddFile("/m/text", std::string(1234, 'x'));
  f.loader.LoadFolder("/m/");
  struct Case {
    std::string renameName, title, artist, type;
  };
  const std::vector<Case> cases = {{"midi", "Title", "Copyright", "MIDI"},
                                   {"page", "---", "---", "HTML"},
                                   {"plain", "", "", "MP3"},
                                   {"song.tag", "Tag", "Artist", "MP3"},
                                   {"", "---", "---", ""}};
  ASSERT_EQ(f.list.Count(), 5);
  for (int index = 1; index <= 5; ++index) {
    const Case& c = cases[static_cast<std::size_t>(index) - 1];
    const FileRow row = f.list.Row(index);
    SCOPED_TRACE(row.Location());
    EXPECT_EQ(row.renameName, c.renameName);
    EXPECT_EQ(row.title, c.title);
    EXPECT_EQ(row.artist, c.artist);
    EXPECT_EQ(row.type, c.type);
    EXPECT_EQ(row.size, f.files.BytesOf(row.Location()).size());
  }
  EXPECT_EQ(ColumnText(f.list.Row(5), Column::kSize), "1,234");
  EXPECT_EQ(f.list.Row(3).iconNumber, f.list.Row(4).iconNumber) << "one image per type";
  EXPECT_NE(f.list.Row(1).iconNumber, f.list.Row(2).iconNumber);
  EXPECT_EQ(FileList::IconKey(f.list.Row(1).iconNumber).rfind("ICONKEY", 0), 0u);
}

TEST(LoadedRow, AFileThatMayNotBeReadIsListedWithoutATitle) {
  Fixture f({});
  f.files.AddFile("/m/a.mp3", std::string(99, 'x'));
  f.files.Fail(FileCall::kOpenFile, "/m/a.mp3", {file_error::kAccess, "denied"});
  EXPECT_EQ(f.loader.LoadFolder("/m/"), LoadOutcome::kLoaded);
  EXPECT_EQ(f.list.Row(1).title, "");
  EXPECT_EQ(f.list.Row(1).size, 99u);
}

TEST(LoadedRow, ATypeWithoutAReaderIsNotOpened) {
  Fixture f({"/m/a.txt", "/m/b.avi", "/m/c.wav", "/m/d.html"});
  f.loader.LoadFolder("/m/");
  EXPECT_EQ(f.list.Count(), 4);
  EXPECT_EQ(f.files.CountOf(FileCall::kOpenFile), 0u);
}

TEST(AddFile, AddsOneRowWhateverTheFilterSays) {
  Fixture f({"/m/a.xyz"});
  f.options.find.filterByExtension = true;
  EXPECT_EQ(f.loader.AddFile("/m/a.xyz"), LoadOutcome::kLoaded);
  EXPECT_EQ(Locations(f.list), Texts({"/m/a.xyz"}));
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts());
}

TEST(AddFile, KeepsTheListEvenWhenLoadingAFolderClearsIt) {
  Fixture f({"/m/a", "/m/b"});
  f.options.list.clearBeforeLoading = true;
  f.loader.AddFile("/m/a");
  f.loader.AddFile("/m/b");
  EXPECT_EQ(f.list.Count(), 2);
}

TEST(AddFile, RefusesAListedFile) {
  Fixture f({"C:\\m\\a.mid"}, kWin);
  f.loader.AddFile("C:\\m\\a.mid");
  EXPECT_EQ(f.loader.AddFile("c:\\M\\A.MID"), LoadOutcome::kDuplicate);
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({kFileListed}));
  EXPECT_EQ(f.list.Count(), 1);
}

TEST(AddFile, AFileThatCannotBeReadIsAnError) {
  Fixture f({"/m/a.txt"});
  f.options.system.loadFolder = "/last/";
  f.files.Fail(FileCall::kStatus, "/m/a.txt", {file_error::kOwn + 5, "input/output error"});
  EXPECT_EQ(f.loader.AddFile("/m/a.txt"), LoadOutcome::kFailed);
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({Interrupted(file_error::kOwn + 5)}));
  EXPECT_EQ(f.options.system.loadFolder, "");
}

TEST(AddFile, AFileThatVanishedIsSkipped) {
  for (const char* path : {"/m/a.txt", "/m/a.mid"}) {
    Fixture f({"/n/b.txt"});
    f.options.system.loadFolder = "/last/";
    EXPECT_EQ(f.loader.AddFile(path), LoadOutcome::kNothing);
    EXPECT_EQ(f.ports.log.StartingWith("box"), Texts());
    f.loader.TellPassedOver();
    EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({Gone(path)}));
    EXPECT_EQ(f.options.system.loadFolder, "/last/");
    EXPECT_EQ(f.list.Count(), 0);
  }
}

TEST(LoadPath, AddsAFileAndLoadsAnythingElseAsAFolder) {
  Fixture f({"/m/a.txt", "/m/b.txt", "/n/c.txt"});
  EXPECT_EQ(f.loader.LoadPath("/m/b.txt"), LoadOutcome::kLoaded);
  EXPECT_EQ(f.options.system.loadFolder, "") << "a single file is no folder";
  EXPECT_EQ(f.loader.LoadPath("/n"), LoadOutcome::kLoaded);
  EXPECT_EQ(Locations(f.list), Texts({"/m/b.txt", "/n/c.txt"}));
  EXPECT_EQ(f.options.system.loadFolder, "/n/");
  EXPECT_EQ(f.loader.LoadPath("/m/absent.txt"), LoadOutcome::kFailed);
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts({kUnreachable}));
}

TEST(LoadPath, TheFolderOfAnAddedFileCountsAsLoaded) {
  Fixture f({"/m/a.txt", "/m/b.txt"});
  f.loader.LoadPath("/m/a.txt");
  EXPECT_EQ(f.loader.LoadPath("/m"), LoadOutcome::kDuplicate);
}

TEST(OpenFileFilters, BeginWithThePatternOfTheOptions) {
  struct Case {
    const char* name;
    bool filter, etc, html, music, text;
    std::string expected;
  };
  OptionValues::Find find;
  find.other.extensions = "xyz";
  find.html.extensions = "htm html";
  find.media.extensions = "mid midi";
  find.text.extensions = "txt";
  const std::vector<Case> cases = {
      {"filter off", false, true, true, true, true, "*.*"},
      {"no group", true, false, false, false, false, "*.*"},
      {"music", true, false, false, true, false, "*.mid;*.midi"},
      {"all, in their own order", true, true, true, true, true, "*.xyz;*.htm;*.html;*.mid;*.midi;*.txt"},
  };
  for (const Case& c : cases) {
    find.filterByExtension = c.filter;
    find.other.on = c.etc;
    find.html.on = c.html;
    find.media.on = c.music;
    find.text.on = c.text;
    EXPECT_EQ(OpenFilePattern(find), c.expected) << c.name;
    EXPECT_EQ(OpenFileFilters(find).front(), FileDialogFilter({"ファイル (" + c.expected + ")", c.expected})) << c.name;
  }
}

TEST(OpenFileFilters, OfferTheMediaTypesAfterIt) {
  OptionValues::Find find;
  find.filterByExtension = false;
  const std::vector<FileDialogFilter> expected = {
      {"ファイル (*.*)", "*.*"}, {"すべてのメディアファイル", "*.mid;*.mp3;*.mpeg;*.mpe;*.mpg;*.avi;*.wav"},
      {"MIDIファイル", "*.mid"}, {"MP3ファイル", "*.mp3"},
      {"WAVEファイル", "*.wav"}, {"MPEGファイル", "*.mpe;*.mpg;*.mpeg"},
      {"AVIファイル", "*.avi"}};
  EXPECT_EQ(OpenFileFilters(find), expected);
  EXPECT_STREQ(kOpenFileTitle, "ファイルを開く");
}

}  // namespace
}  // namespace quillon
