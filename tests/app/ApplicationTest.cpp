#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "app/ApplicationFixture.h"
#include "settings/basINIControl.h"
#include "support/MediaBuilders.h"

namespace quillon {
namespace {

using enum Command;
using test::ApplicationFixture;
using test::Locations;
using test::SelectedRows;
using Indices = std::vector<int>;
using Texts = std::vector<std::string>;

const char* const kIdle = "プレイヤー待機中...";

// Start.

TEST(Application, StartsWithEmptyPanelsInManualMode) {
  ApplicationFixture f;
  f.box.SetEnabled(true);
  f.ports.log.Clear();
  f.app.Start();
  EXPECT_EQ(f.Log().Events(), Texts({"main not on top", "main does not repeat", "panel mode: 手動適応モード",
                                     std::string("panel player: ") + kIdle, "rename box disabled"}));
  EXPECT_EQ(f.information.summary, "サイズ： --- バイト / 種類： ---");
  EXPECT_EQ(f.information.detail, "著作権： --- / 分解能： 0 / トラック数： 0");
  EXPECT_FALSE(f.app.Mode().automatic);
}

TEST(Application, StartsAsTheSettingsSay) {
  OptionValues options = ApplicationFixture::Options();
  options.update.automatic = true;
  options.system.alwaysOnTop = true;
  ApplicationFixture f(options);
  f.app.Start();
  EXPECT_TRUE(f.Log().Has("main on top"));
  EXPECT_EQ(f.LastPanel("mode"), "自動適応モード");
  EXPECT_TRUE(f.app.Mode().automatic);
}

TEST(Application, StartsInTheStoredMode) {
  OptionValues options = ApplicationFixture::Options();
  options.update.automatic = false;
  ApplicationFixture f(options);
  f.app.Start();
  EXPECT_EQ(f.LastPanel("mode"), "手動適応モード");
}

// Enabling.

TEST(Application, RefusesACommandThatIsNotEnabled) {
  ApplicationFixture f;
  for (const Command command : {mnuReload, mnuAllClear, mnuUpdate, mnuAllUpdate, mnuRename, mnuAllModify, mnuMove,
                                mnuThisDel, mnuThisEditRenameName, mnuPlay, kSeparator}) {
    EXPECT_FALSE(f.app.IsEnabled(command));
    f.app.Execute(command);
  }
  EXPECT_EQ(f.Log().Events(), Texts()) << "no question is asked, too";
}

TEST(Application, InAutoModeApplyingAsksNothing) {
  OptionValues options = ApplicationFixture::Options();
  options.update.automatic = true;
  ApplicationFixture f(options);
  f.Load({"a.txt"});
  f.app.Execute(mnuAllChk);
  f.ports.log.Clear();
  for (const Command command : {mnuUpdate, mnuAllUpdate, mnuThisUpdate, mnuUndo, mnuAllUndo}) {
    f.app.Execute(command);
  }
  EXPECT_EQ(f.Log().Events(), Texts());
}

TEST(Application, DisablesTheWindowsInputWhileACommandRuns) {
  ApplicationFixture f;
  f.Load({"a.txt"});
  f.app.Execute(mnuAllChk);
  EXPECT_EQ(f.Log().Events(), Texts({"main input off", "main input on"}));
}

TEST(Application, RefusesOtherCommandsAndEventsWhileACommandRuns) {
  ApplicationFixture f;
  f.Load({"a.txt", "b.txt"});
  f.app.Options().system.suppressConfirmations = true;
  bool ran = false;
  f.ports.pending.At(1, [&] {
    ran = true;
    EXPECT_TRUE(f.app.IsRunning());
    f.app.Execute(mnuAllClear);
    f.app.Execute(mnuFront);
    f.app.Execute(mnuShowHelp);
    f.app.Execute(mnuThisEditRenameName);
    f.app.LoadPaths({f.home.Path()});
    f.app.ModePanelClicked();
    f.app.HeaderClicked(Column::kTitle);
    f.app.RowActivated(1);
    f.app.LabelEdited(1, "label");
    f.Type("typed");
    f.app.RenameBoxEntered();
    f.app.RenameBoxFocused();
    f.app.RenameBoxClicked();
    f.app.AskForName();
  });
  f.app.Execute(mnuReload);
  EXPECT_TRUE(ran);
  EXPECT_FALSE(f.app.IsRunning());
  EXPECT_EQ(f.Names(), Texts({"a", "b"}));
  EXPECT_EQ(f.Boxes(), Texts());
  EXPECT_EQ(f.Log().StartingWith("shell"), Texts());
  EXPECT_EQ(f.Log().StartingWith("main"), Texts({"main input off", "main input on"}));
  EXPECT_EQ(f.box.Text(), "a") << "what was typed meanwhile is gone";
  EXPECT_FALSE(f.app.Options().system.alwaysOnTop);
  f.app.Execute(mnuFront);
  EXPECT_TRUE(f.app.Options().system.alwaysOnTop) << "and then it answers again";
}

TEST(Application, AnEmptiedBoxAsksForNothingWhileACommandRuns) {
  OptionValues options = ApplicationFixture::Options();
  options.update.automatic = true;
  options.system.suppressConfirmations = true;
  ApplicationFixture f(options);
  f.Load({"a.txt"});
  f.Type("");
  EXPECT_TRUE(f.app.RenameBoxNeedsName());
  bool asked = true;
  f.main.modifyDialog = [&](Rows) { asked = f.app.RenameBoxNeedsName(); };
  f.app.Execute(mnuAllModify);
  EXPECT_FALSE(asked);
}

// Loading.

TEST(Application, LoadingAFolderSelectsAndShowsItsFirstRow) {
  ApplicationFixture f;
  f.folder.Write("a.txt", "12345");
  f.folder.Write("b.txt");
  f.ports.folders.Answer(f.folder.Path());
  f.app.Execute(mnuFolderReference);
  EXPECT_EQ(Locations(f.app.List()), Texts({f.folder.At("a.txt"), f.folder.At("b.txt")}));
  EXPECT_EQ(SelectedRows(f.app.List()), Indices({1}));
  EXPECT_EQ(f.box.Text(), "a");
  EXPECT_TRUE(f.box.IsEnabled());
  EXPECT_EQ(f.information.fileName, f.folder.At("a.txt"));
  EXPECT_TRUE(f.information.summary.starts_with("サイズ： 5 バイト")) << f.information.summary;
  EXPECT_EQ(f.LastPanel("player"), "選択： a.txt");
  EXPECT_EQ(f.app.Player().Paths().playFilePath, f.folder.At("a.txt"));
  EXPECT_EQ(f.app.Options().system.loadFolder, f.folder.Path());
}

TEST(Application, PathsAddToOneListEvenWhenLoadingIsSetToClearIt) {
  OptionValues options = ApplicationFixture::Options();
  options.list.clearBeforeLoading = true;
  ApplicationFixture f(options);
  const std::string file = f.home.Write("with space.txt");
  f.folder.Write("a.txt");
  f.folder.Write("inner/b.txt");
  std::string bare = f.folder.MakeFolder("inner");
  bare.pop_back();
  f.app.LoadPaths({file, f.folder.Path(), bare});
  EXPECT_EQ(Locations(f.app.List()), Texts({file, f.folder.At("a.txt"), f.folder.At("inner/b.txt")}));
  EXPECT_TRUE(f.app.Options().list.clearBeforeLoading);
  EXPECT_EQ(f.app.Options().system.loadFolder, f.folder.At("inner/"));
  EXPECT_TRUE(f.box.IsEnabled());
  EXPECT_EQ(f.Log().StartingWith("folder dialog"), Texts());
}

TEST(Application, WithoutPathsNoCommandRuns) {
  ApplicationFixture f;
  f.app.LoadPaths({});
  EXPECT_EQ(f.Log().Events(), Texts());
}

TEST(Application, OpenedFilesAreAddedWhateverTheFilterSays) {
  OptionValues options = ApplicationFixture::Options();
  options.find.filterByExtension = true;
  options.system.loadFolder = "/start/";
  ApplicationFixture f(options);
  f.main.chosenFiles = {f.folder.Write("a.xyz"), f.folder.Write("b.mid")};
  f.app.Execute(mnuFileLoad);
  EXPECT_EQ(Locations(f.app.List()), f.main.chosenFiles);
  EXPECT_TRUE(f.Log().Has("main file dialog: ファイルを開く | /start/"));
  ASSERT_EQ(f.main.shownFilters.size(), 7u);
  EXPECT_EQ(f.main.shownFilters[0].pattern, "*.mid;*.midi;*.wav;*.mp3;*.mpg;*.mpeg;*.avi");
}

TEST(Application, ADroppedFileThatIsListedIsRefused) {
  ApplicationFixture f;
  f.Load({"a.txt"});
  f.app.LoadPaths({f.folder.At("a.txt")});
  EXPECT_EQ(f.Boxes(), Texts({"box [フォルダ参照] 既にこのファイルは読み込まれています (exclamation, ok)"}));
  EXPECT_EQ(f.app.List().Count(), 1);
}

// The mode panel.

const char* const kAutoIsOff = "box [設定] 自動適応モードが無効になりました (information, ok)";
const char* const kAutoIsOn = "box [設定] 自動適応モードが有効になりました (information, ok)";
const char* const kAutoComes =
    "box [設定] この設定は 次回起動時 または 「再読み込み」「リストクリア」 実行後に有効となります (information, ok)";

TEST(ModePanel, SwitchesTheAutoModeOffAtOnce) {
  OptionValues options = ApplicationFixture::Options();
  options.update.automatic = true;
  ApplicationFixture f(options);
  f.Load({"a.txt"});
  f.app.ModePanelClicked();
  EXPECT_EQ(f.Log().Events(), Texts({"panel mode: 手動適応モード", kAutoIsOff}));
  EXPECT_FALSE(f.app.Mode().automatic);
  EXPECT_FALSE(f.app.Options().update.automatic);
  EXPECT_EQ(f.home.Read("Quillon.ini"), "[Update]\r\nAutoUpdate=0\r\n") << "this setting alone, at once";
}

TEST(ModePanel, OverALoadedListTheAutoModeWaits) {
  ApplicationFixture f;
  f.Load({"a.txt"});
  f.app.ModePanelClicked();
  EXPECT_EQ(f.Log().Events(), Texts({kAutoComes})) << "the panel stays as it is";
  EXPECT_FALSE(f.app.Mode().automatic);
  EXPECT_TRUE(f.app.Options().update.automatic);
  EXPECT_EQ(f.home.Read("Quillon.ini"), "[Update]\r\nAutoUpdate=1\r\n");
}

TEST(ModePanel, OverAnEmptyListTheAutoModeStartsAtOnce) {
  ApplicationFixture f;
  f.app.ModePanelClicked();
  EXPECT_EQ(f.Log().Events(), Texts({"panel mode: 自動適応モード", kAutoIsOn}));
  EXPECT_TRUE(f.app.Mode().automatic);
  EXPECT_TRUE(f.app.Options().update.automatic);
  EXPECT_EQ(f.home.Read("Quillon.ini"), "[Update]\r\nAutoUpdate=1\r\n");
}

TEST(ModePanel, LeavesTheOtherSettingsInTheFileAlone) {
  ApplicationFixture f;
  f.home.Write("Quillon.ini", "[Update]\r\nErrSkip=1\r\nAutoUpdate=0\r\n[List]\r\nLoadChk=0\r\n");
  f.app.ModePanelClicked();
  EXPECT_EQ(f.home.Read("Quillon.ini"), "[Update]\r\nErrSkip=1\r\nAutoUpdate=1\r\n[List]\r\nLoadChk=0\r\n");
}

TEST(ModePanel, HoldsForThisRunWhenTheSettingCannotBeStored) {
  ApplicationFixture f(ApplicationFixture::Options(), "a folder");
  f.home.MakeFolder("a folder");
  f.app.ModePanelClicked();
  EXPECT_EQ(f.Boxes(), Texts({kAutoIsOn})) << "a failure is not told";
  EXPECT_TRUE(f.app.Mode().automatic);
}

TEST(ModePanel, HasAMenuEntryThatDoesTheSame) {
  ApplicationFixture f;
  f.app.Execute(mnuApplyMode);
  EXPECT_EQ(f.Boxes(), Texts({kAutoIsOn}));
  EXPECT_TRUE(f.app.Mode().automatic);
}

TEST(ModePanel, TheWaitingModeStartsWithAReloadOrAClearedList) {
  for (const Command command : {mnuReload, mnuAllClear}) {
    ApplicationFixture f;
    f.Load({"a.txt"});
    f.app.ModePanelClicked();
    f.ports.log.Clear();
    f.ports.boxes.Answer(true);
    f.app.Execute(command);
    EXPECT_EQ(f.Boxes().size(), 2u);
    EXPECT_EQ(f.Boxes().back(), kAutoIsOn);
    EXPECT_EQ(f.LastPanel("mode"), "自動適応モード");
    EXPECT_TRUE(f.app.Mode().automatic);
  }
}

TEST(ModePanel, AReloadWithoutAWaitingModeStaysManual) {
  ApplicationFixture f;
  f.Load({"a.txt"});
  f.ports.boxes.Answer(true);
  f.app.Execute(mnuReload);
  EXPECT_EQ(f.Boxes().size(), 1u) << "the question";
  EXPECT_EQ(f.LastPanel("mode"), "手動適応モード");
}

TEST(ModePanel, ACancelledReloadChangesNoMode) {
  ApplicationFixture f;
  f.Load({"a.txt"});
  f.app.ModePanelClicked();
  f.ports.log.Clear();
  f.ports.boxes.Answer(false);
  f.app.Execute(mnuReload);
  EXPECT_FALSE(f.app.Mode().automatic);
  EXPECT_EQ(f.Log().StartingWith("panel"), Texts());
}

// The options dialog.

TEST(OptionDialog, AfterItHasClosedThePanelShowsThePresentMode) {
  for (const bool ok : {true, false}) {
    ApplicationFixture f;
    f.main.optionDialog = [&](OptionForm& form) {
      form.Click("chkAutoUpdate", true, [] {});
      EXPECT_EQ(f.LastPanel("mode"), "") << "not before";
      ok ? form.cmdOK() : form.cmdCancel();
    };
    f.app.Execute(mnuOption);
    EXPECT_EQ(f.LastPanel("mode"), ok ? "自動適応モード" : "手動適応モード");
    EXPECT_EQ(f.app.Mode().automatic, ok);
    EXPECT_EQ(f.Boxes(), Texts({kAutoIsOn}));
    EXPECT_EQ(f.home.Read("Quillon.ini"), ok ? "[Update]\r\nAutoUpdate=1\r\n" : "[Update]\r\nAutoUpdate=0\r\n");
  }
}

TEST(OptionDialog, OverALoadedListTheAutoModeWaits) {
  ApplicationFixture f;
  f.Load({"a.txt"});
  f.main.optionDialog = [&](OptionForm& form) {
    form.Click("chkAutoUpdate", true, [] {});
    form.cmdOK();
  };
  f.app.Execute(mnuOption);
  EXPECT_EQ(f.LastPanel("mode"), "手動適応モード");
  EXPECT_EQ(f.Boxes(), Texts({kAutoComes}));
  f.ports.boxes.Answer(true);
  f.app.Execute(mnuReload);
  EXPECT_EQ(f.LastPanel("mode"), "自動適応モード");
}

TEST(OptionDialog, ChangedSettingsHoldForTheNextCommandThatReadsThem) {
  ApplicationFixture f;
  f.folder.Write("a.txt", "a");
  f.folder.Write("b.mid", "b");
  f.main.optionDialog = [&](OptionForm& form) {
    form.Click("chkExtensionFilter", true, [] {});
    form.cmdOK();
  };
  f.app.LoadPaths({f.folder.Path()});
  EXPECT_EQ(f.app.List().Count(), 2);
  f.app.Execute(mnuOption);
  EXPECT_EQ(f.app.List().Count(), 2) << "the list is not read anew";
  f.ports.boxes.Answer(true);
  f.app.Execute(mnuAllClear);
  f.app.LoadPaths({f.folder.Path()});
  EXPECT_EQ(f.app.List().Count(), 1);
}

TEST(Application, ShowsTheVersionBoxAndTheFolderList) {
  ApplicationFixture f;
  f.app.Execute(mnuVarInfo);
  f.app.Execute(mnuDirShow);
  EXPECT_TRUE(f.Log().Has("main version dialog"));
  EXPECT_TRUE(f.Log().Has("main folder list"));
}

// Commands of the window itself.

TEST(mnuFront, TogglesTheWindowsPlace) {
  ApplicationFixture f;
  f.app.Execute(mnuFront);
  EXPECT_TRUE(f.app.Options().system.alwaysOnTop);
  f.app.Execute(mnuFront);
  EXPECT_FALSE(f.app.Options().system.alwaysOnTop);
  EXPECT_EQ(f.Log().StartingWith("main on"), Texts({"main on top"}));
  EXPECT_EQ(f.Log().StartingWith("main not"), Texts({"main not on top"}));
}

TEST(mnuShowHelp, OpensTheHelpFile) {
  ApplicationFixture f;
  f.app.Execute(mnuShowHelp);
  EXPECT_TRUE(f.Log().Has("shell opens " + f.home.At("Quillon.chm")));
  EXPECT_EQ(f.Boxes(), Texts());
}

TEST(mnuShowHelp, OnlyAMissingFileIsReported) {
  for (const int answer : {kShellNoProgram, 0, 3, 5}) {
    ApplicationFixture f;
    f.shellAnswer = answer;
    f.app.Execute(mnuShowHelp);
    EXPECT_EQ(f.Boxes(), Texts()) << answer;
  }
  ApplicationFixture f;
  f.shellAnswer = kShellFileNotFound;
  f.app.Execute(mnuShowHelp);
  EXPECT_EQ(f.Boxes(), Texts({"box [ヘルプの表示] ヘルプファイルが開けませんでした (stop, ok)"}));
}

const char* const kResetQuestion =
    "box [設定をデフォルトに戻して終了] 設定をすべてデフォルトに戻して終了します (question, yes/no)";

TEST(mnuOptionDefaultExit, AsksAndNoChangesNothing) {
  ApplicationFixture f;
  f.home.Write("Quillon.ini", "[List]\r\n");
  f.ports.boxes.Answer(false);
  f.app.Execute(mnuOptionDefaultExit);
  EXPECT_EQ(f.Boxes(), Texts({kResetQuestion}));
  EXPECT_TRUE(f.home.Exists("Quillon.ini"));
  EXPECT_FALSE(f.Log().Has("main ends at once"));
}

TEST(mnuOptionDefaultExit, DeletesTheSettingsAndEndsAtOnce) {
  for (const bool suppressed : {false, true}) {
    ApplicationFixture f;
    f.app.Options().system.suppressConfirmations = suppressed;
    f.home.Write("Quillon.ini", "[List]\r\n");
    if (!suppressed) f.ports.boxes.Answer(true);
    f.app.Execute(mnuOptionDefaultExit);
    EXPECT_EQ(f.Boxes(), !suppressed ? Texts({kResetQuestion}) : Texts());
    EXPECT_FALSE(f.home.Exists("Quillon.ini"));
    EXPECT_TRUE(f.Log().Has("main ends at once"));
    EXPECT_FALSE(f.Log().Has("main quits"));
  }
}

TEST(mnuExit, ClosesTheWindow) {
  ApplicationFixture f;
  f.app.Execute(mnuExit);
  EXPECT_TRUE(f.Log().Has("main quits"));
  EXPECT_FALSE(f.Log().Has("main ends at once"));
}

TEST(SaveSettings, WritesEverythingButTheStoredApplyMode) {
  ApplicationFixture f;
  f.home.Write("Quillon.ini", "[Update]\r\nAutoUpdate=1\r\n");
  f.app.Options().system.loadFolder = "/last/";
  f.app.Options().window.width = 7777;
  f.app.Execute(mnuFront);
  EXPECT_TRUE(f.app.SaveSettings(WindowGeometry::kKeep));
  IniFile file(f.home.At("Quillon.ini"));
  EXPECT_TRUE(file.Load());
  EXPECT_EQ(file.ReadInteger("Update", "AutoUpdate", 5), 1);
  EXPECT_EQ(file.ReadString("System", "DirPath", ""), "/last/");
  EXPECT_EQ(file.ReadString("System", "Front", ""), "True");
  EXPECT_EQ(file.ReadInteger("Window", "WindowWidth", 5), 5) << "not from a maximised window";
  EXPECT_TRUE(f.app.SaveSettings(WindowGeometry::kWrite));
  EXPECT_TRUE(file.Load());
  EXPECT_EQ(file.ReadInteger("Window", "WindowWidth", 5), 7777);
}

TEST(SaveSettings, NeverCreatesTheStoredApplyMode) {
  ApplicationFixture f;
  f.app.Options().update.automatic = true;
  EXPECT_TRUE(f.app.SaveSettings(WindowGeometry::kWrite));
  EXPECT_EQ(f.home.Read("Quillon.ini").find("AutoUpdate"), std::string::npos);
}

TEST(SaveSettings, DoesNotChangeAFileThatCanNoLongerBeRead) {
  ApplicationFixture f;
  EXPECT_TRUE(f.app.SaveSettings(WindowGeometry::kWrite));
  const std::string tooLarge(IniFile::kLargestFile + 1, '\n');
  f.home.Write("Quillon.ini", tooLarge);
  EXPECT_FALSE(f.app.SaveSettings(WindowGeometry::kWrite));
  EXPECT_TRUE(f.home.Read("Quillon.ini") == tooLarge);
}

TEST(SaveSettings, ReportsItsFailure) {
  ApplicationFixture f(ApplicationFixture::Options(), "a folder");
  f.home.MakeFolder("a folder");
  EXPECT_FALSE(f.app.SaveSettings(WindowGeometry::kWrite));
}

}  // namespace
}  // namespace quillon
