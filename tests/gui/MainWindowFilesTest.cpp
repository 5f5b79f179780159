#include <wx/button.h>
#include <wx/checkbox.h>

#include "controls/WxText.h"
#include "gui/MainWindow.h"
#include "gui/MenuKeys.h"
#include "gui/Settle.h"
#include "support/MediaBuilders.h"

/// From files to renamed files in the main window: loading, titles, rules, applying, moving, deleting.
namespace quillon::test {
namespace {

using Texts = std::vector<std::string>;
using Rows = std::vector<int>;

class FilesInMainWindow : public MainWindowTest {
 protected:
  void SetUp() override {
    WriteMidi("a.mid", "First", "Someone");
    WriteMidi("b.mid", "Second");
    folder.Write("c.mp3", Mp3Audio(1) + Id3v1Trailer({.title = "Third", .artist = "Band", .year = "1999"}));
  }

  [[nodiscard]] std::string SizeOf(const std::string& name) const { return std::to_string(folder.Read(name).size()); }

  void ExpectEmptyPanel() const {
    EXPECT_EQ(Text("txtAlterTitle"), "");
    EXPECT_FALSE(Box().IsEnabled());
    EXPECT_EQ(Text("txtTitle"), "");
    EXPECT_EQ(Text("txtFileName"), "");
    EXPECT_EQ(Text("txtFileInfo"), "サイズ： --- バイト / 種類： ---");
    EXPECT_EQ(Text("txtFileDetail"), "著作権： --- / 分解能： 0 / トラック数： 0");
  }
};

TEST_F(FilesInMainWindow, StartsEmpty) {
  Open(Options());
  EXPECT_EQ(FromWx(Frame().GetTitle()), "Quillon");
  ExpectEmptyPanel();
  EXPECT_EQ(Status(kModePanel), kManual);
  EXPECT_EQ(Status(kSelectionPanel), "プレイヤー待機中...");
  EXPECT_EQ(Status(kChecksPanel), "チェック数： 0");
  EXPECT_EQ(Status(kItemsPanel), "アイテム数：  0");
  EXPECT_TRUE(Until([] { return FocusName() == "lvwFiles"; })) << FocusName();
}

TEST_F(FilesInMainWindow, AFolderIsLoadedAndItsFirstRowShown) {
  OpenFolder();
  EXPECT_EQ(Names(), (Texts{"a", "b", "c"}));
  EXPECT_EQ(CheckedRows(), (Rows{1, 2, 3}));
  EXPECT_EQ(SelectedRows(), Rows{1});
  EXPECT_EQ(NativeSelection(Frame().List()), Rows{1});
  ASSERT_EQ(NativeCount(Frame().List()), 3);
  EXPECT_EQ(NativeText(Frame().List(), 3, Column::kRenameName), "c");
  EXPECT_EQ(NativeText(Frame().List(), 3, Column::kTitle), "Third");
  EXPECT_EQ(NativeText(Frame().List(), 3, Column::kArtist), "Band");
  EXPECT_EQ(NativeText(Frame().List(), 3, Column::kType), "MP3");
  EXPECT_EQ(NativeText(Frame().List(), 3, Column::kSize), SizeOf("c.mp3"));
  EXPECT_EQ(NativeText(Frame().List(), 3, Column::kLocation), folder.At("c.mp3"));
  EXPECT_TRUE(Box().IsEnabled());
  EXPECT_EQ(Text("txtAlterTitle"), "a");
  EXPECT_EQ(Text("txtTitle"), "First");
  EXPECT_TRUE(Text("txtFileName").ends_with("a.mid")) << Text("txtFileName");
  EXPECT_EQ(Text("txtFileInfo"), "サイズ： " + SizeOf("a.mid") + " バイト / 種類： MIDI (SMF Format 0)");
  EXPECT_EQ(Text("txtFileDetail"), "著作権： Someone / 分解能： 480 / トラック数： 1");
  EXPECT_EQ(Status(kSelectionPanel), "選択： a.mid");
  EXPECT_EQ(Status(kChecksPanel), "チェック数： 3");
  EXPECT_EQ(Status(kItemsPanel), "アイテム数：  3");
}

TEST_F(FilesInMainWindow, TheFolderDialogLoadsAFolderAndRemembersIt) {
  OptionValues options = Options();
  options.system.loadFolder = home.Path();
  Open(options);
  dialogs.ChooseFolder(folder.Path().substr(0, folder.Path().size() - 1));
  Run(Command::mnuFolderReference);
  EXPECT_EQ(dialogs.Prompt(), "リネームするファイルが格納されているフォルダを選択してください");
  EXPECT_TRUE(home.Path().starts_with(dialogs.StartFolder())) << dialogs.StartFolder();
  EXPECT_EQ(Names(), (Texts{"a", "b", "c"}));
  EXPECT_EQ(App().Options().system.loadFolder, folder.Path());
  EXPECT_EQ(Text("txtAlterTitle"), "a");

  dialogs.ChooseFolder("");
  Run(Command::mnuFolderReference);
  EXPECT_EQ(List().Count(), 3);

  dialogs.ChooseFolder(folder.Path());
  dialogs.Answer();
  Run(Command::mnuFolderReference);
  EXPECT_EQ(dialogs.TakeShown(),
            (std::vector<Message>{{"フォルダ参照", folder.Path() + "\n\n既にこのフォルダは読み込まれています",
                                   MessageIcon::kExclamation, MessageButtons::kOk}}));
  EXPECT_EQ(List().Count(), 3);
}

TEST_F(FilesInMainWindow, TheFileDialogAddsAFile) {
  Open(Options());
  dialogs.ChooseFile(folder.At("b.mid"));
  Run(Command::mnuFileLoad);
  EXPECT_EQ(Names(), Texts{"b"});
  dialogs.ChooseFile("");
  Run(Command::mnuFileLoad);
  EXPECT_EQ(List().Count(), 1);
}

TEST_F(FilesInMainWindow, ThePanelFollowsTheClickedRow) {
  OpenFolder();
  ClickRow(3);
  EXPECT_TRUE(Until([this] { return Text("txtAlterTitle") == "c"; })) << Text("txtAlterTitle");
  EXPECT_EQ(SelectedRows(), Rows{3});
  EXPECT_EQ(Text("txtTitle"), "Third");
  EXPECT_EQ(Text("txtFileInfo"), "サイズ： " + SizeOf("c.mp3") + " バイト / 種類： MP3 (ID3v1)");
  EXPECT_EQ(Text("txtFileDetail"), "アーティスト： Band / アルバム： --- / コメント： --- / 年： 1999");
  EXPECT_EQ(Status(kSelectionPanel), "選択： c.mp3");
  FocusList();
  Key(WXK_UP);
  EXPECT_TRUE(Until([this] { return Text("txtAlterTitle") == "b"; })) << Text("txtAlterTitle");
  EXPECT_EQ(Text("txtFileDetail"), "著作権：  / 分解能： 480 / トラック数： 1");
}

TEST_F(FilesInMainWindow, ARowThatIsSelectedAlreadyCanBeClicked) {
  OpenFolder();
  const auto playGoesOn = [this] { App().Player().Choose(folder.At("b.mid")); };  // as continuous play does
  const auto chosenIsFirst = [this] { return App().Player().Paths().playFilePath == folder.At("a.mid"); };
  ASSERT_EQ(SelectedRows(), Rows{1});
  playGoesOn();
  ClickRow(1);
  EXPECT_TRUE(SettleUntil(chosenIsFirst));
  EXPECT_EQ(SelectedRows(), Rows{1});
}

TEST_F(FilesInMainWindow, TheRowMenuIsAboutItsRow) {
  OpenFolder();
  const auto playGoesOn = [this] { App().Player().Choose(folder.At("b.mid")); };
  const auto chosenIsFirst = [this] { return App().Player().Paths().playFilePath == folder.At("a.mid"); };
  FocusList();
  playGoesOn();
  {
    const MenuKeys keys({WXK_ESCAPE});
    Key(WXK_F10, wxMOD_SHIFT);
    EXPECT_TRUE(Until([&] { return !keys.IsRunning(); }));
  }
  EXPECT_TRUE(Until(chosenIsFirst));
  playGoesOn();
  {
    const MenuKeys keys({WXK_ESCAPE});
    const wxRect row = NativeRowRect(Frame().List(), 1);
    wxUIActionSimulator mouse;
    mouse.MouseMove(row.GetTopLeft() + wxPoint(row.width / 2, row.height / 2));
    wxYield();
    mouse.MouseClick(wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(Until([&] { return !keys.IsRunning(); }));
    Drain();
  }
  EXPECT_TRUE(Until(chosenIsFirst));
}

TEST_F(FilesInMainWindow, ARowThatIsNotPlayedIsOpenedByTheShell) {
  folder.Write("d.txt", "text");
  OpenFolder();
  SelectRow(4);
  Key(WXK_RETURN);
  EXPECT_EQ(opened, Texts{folder.At("d.txt")});
}

TEST_F(FilesInMainWindow, TitlesAndRulesBecomeFileNames) {
  OpenFolder();
  const std::string second = folder.Read("b.mid");
  dialogs.Answer();
  Run(Command::mnuRename);
  EXPECT_EQ(
      dialogs.TakeShown(),
      (std::vector<Message>{{"タイトルにリネーム", "チェックアイテムのリネーム名を、それぞれのタイトルに変更します",
                             MessageIcon::kQuestion, MessageButtons::kOkCancel}}));
  EXPECT_EQ(Names(), (Texts{"First", "Second", "Third"}));
  EXPECT_EQ(Text("txtAlterTitle"), "First");
  EXPECT_EQ(NativeText(Frame().List(), 2, Column::kRenameName), "Second");

  dialogs.Use([](wxDialog& dialog) {
    const auto find = [&](const char* name) { return wxWindow::FindWindowByName(name, &dialog); };
    dynamic_cast<wxCheckBox&>(*find("chkReplace0")).SetValue(true);
    dynamic_cast<wxTextCtrl&>(*find("txtObject0")).SetValue("ir");
    dynamic_cast<wxTextCtrl&>(*find("txtReplace0")).SetValue(ToWx("い"));
    wxCommandEvent click(wxEVT_BUTTON, find("cmdOK")->GetId());
    find("cmdOK")->ProcessWindowEvent(click);
  });
  Run(Command::mnuModify);
  EXPECT_EQ(Names(), (Texts{"Fいst", "Second", "Thいd"}));
  EXPECT_EQ(Text("txtAlterTitle"), "Fいst");
  EXPECT_TRUE(folder.Exists("a.mid")) << "nothing is renamed before it is applied";

  dialogs.Answer();
  dialogs.Answer();
  Run(Command::mnuUpdate);
  EXPECT_EQ(dialogs.TakeShown(),
            (std::vector<Message>{
                {"ファイルに適応",
                 "チェックアイテムのリネーム名をファイルに適応します\nこの操作は元に戻せません。実行しますか",
                 MessageIcon::kQuestion, MessageButtons::kYesNo},
                {"ファイルに適応", "3 個のファイルを適応しました\nエラーでスキップされたファイルはありません",
                 MessageIcon::kInformation, MessageButtons::kOk}}));
  for (const char* now : {"Fいst.mid", "Second.mid", "Thいd.mp3"}) EXPECT_TRUE(folder.Exists(now)) << now;
  for (const char* before : {"a.mid", "b.mid", "c.mp3"}) EXPECT_FALSE(folder.Exists(before)) << before;
  EXPECT_EQ(folder.Read("Second.mid"), second);
  EXPECT_EQ(CheckedRows(), Rows{});
  EXPECT_EQ(Status(kChecksPanel), "チェック数： 0");
  EXPECT_EQ(List().Row(1).Location(), folder.At("Fいst.mid"));
  EXPECT_TRUE(Text("txtFileName").ends_with("Fいst.mid")) << Text("txtFileName");
  EXPECT_EQ(NativeText(Frame().List(), 3, Column::kLocation), folder.At("Thいd.mp3"));
  EXPECT_TRUE(Frame().IsEnabled());
}

TEST_F(FilesInMainWindow, RulesWorkOnTheCheckedRowsOrOnAll) {
  OptionValues options = Options();
  options.modify.upper = true;
  OpenFolder(options);
  List().SetChecked(2, false);
  const auto execute = [](wxDialog& dialog) {
    wxCommandEvent click(wxEVT_BUTTON, wxID_OK);
    wxWindow::FindWindowByName("cmdOK", &dialog)->ProcessWindowEvent(click);
  };
  dialogs.Use(execute);
  Run(Command::mnuModify);
  EXPECT_EQ(Names(), (Texts{"A", "b", "C"}));
  List().SetRenameName(3, "c");
  dialogs.Use(execute);
  Run(Command::mnuAllModify);
  EXPECT_EQ(Names(), (Texts{"A", "B", "C"}));
  EXPECT_EQ(CheckedRows(), (Rows{1, 3}));
}

TEST_F(FilesInMainWindow, NoLeavesEverythingAsItIs) {
  OpenFolder();
  for (const Command command : {Command::mnuRename, Command::mnuAllRename, Command::mnuUndo, Command::mnuAllUndo,
                                Command::mnuUpdate, Command::mnuAllUpdate, Command::mnuReload}) {
    List().SetRenameName(2, "typed");
    dialogs.Answer(false);
    Run(command);
    EXPECT_EQ(dialogs.TakeShown().size(), 1u);
    EXPECT_EQ(Names(), (Texts{"a", "typed", "c"})) << static_cast<int>(command);
  }
  EXPECT_TRUE(folder.Exists("b.mid"));
}

TEST_F(FilesInMainWindow, AFailedRowStaysCheckedAndIsTriedAgain) {
  folder.Write("Taken.mid", "other");
  OpenFolder();
  ASSERT_EQ(List().Count(), 4);
  const int taken = List().IndexOf(folder.At("Taken.mid"));
  const int second = List().IndexOf(folder.At("b.mid"));
  List().SetChecked(taken, false);
  List().SetRenameName(second, "Taken");
  dialogs.Answer();
  dialogs.Answer();
  dialogs.Answer();
  Run(Command::mnuUpdate);
  const std::vector<Message> shown = dialogs.TakeShown();
  ASSERT_EQ(shown.size(), 3u);
  EXPECT_EQ(shown[1],
            (Message{"ファイルに適応", "リネーム名と同名のファイルが存在します\nファイルに適応できませんでした",
                     MessageIcon::kExclamation, MessageButtons::kOk}));
  EXPECT_EQ(shown[2],
            (Message{"ファイルに適応", "2 個のファイルを適応しました\n1 個のファイルがエラーでスキップされました",
                     MessageIcon::kExclamation, MessageButtons::kOk}));
  EXPECT_EQ(CheckedRows(), Rows{second});
  EXPECT_EQ(SelectedRows(), Rows{second}) << "the failed row is shown";
  EXPECT_EQ(Text("txtAlterTitle"), "Taken");
  EXPECT_EQ(Status(kSelectionPanel), "選択： b.mid");
  EXPECT_TRUE(folder.Exists("b.mid"));
  EXPECT_EQ(folder.Read("Taken.mid"), "other");

  List().SetRenameName(taken, "Moved away");
  SelectRow(taken);
  dialogs.Answer();
  Run(Command::mnuThisUpdate);
  EXPECT_EQ(dialogs.TakeShown().at(0).text, "選択されたアイテムの適応が完了しました");
  dialogs.Answer();
  dialogs.Answer();
  Run(Command::mnuUpdate);
  EXPECT_EQ(dialogs.TakeShown().at(1).text, "1 個のファイルを適応しました\nエラーでスキップされたファイルはありません");
  EXPECT_EQ(folder.Read("Taken.mid"), Midi("Second"));
  EXPECT_EQ(folder.Read("Moved away.mid"), "other");
  EXPECT_EQ(CheckedRows(), Rows{});
}

TEST_F(FilesInMainWindow, TheSelectedFileIsMovedAndStaysListed) {
  OptionValues options = Options();
  options.system.moveFolder = home.Path();
  OpenFolder(options);
  const std::string target = folder.MakeFolder("moved");
  SelectRow(2);
  dialogs.ChooseFolder(target.substr(0, target.size() - 1));
  dialogs.Answer();
  Run(Command::mnuThisMove);
  EXPECT_EQ(dialogs.Prompt(), "ファイルの移動先フォルダを選択してください");
  EXPECT_TRUE(home.Path().starts_with(dialogs.StartFolder())) << dialogs.StartFolder();
  EXPECT_EQ(dialogs.TakeShown(), (std::vector<Message>{{"ファイル移動", target + "\n\nファイルの移動が完了しました",
                                                        MessageIcon::kInformation, MessageButtons::kOk}}));
  EXPECT_TRUE(folder.Exists("moved/b.mid"));
  EXPECT_FALSE(folder.Exists("b.mid"));
  EXPECT_EQ(App().Options().system.moveFolder, target);
  EXPECT_EQ(NativeText(Frame().List(), 2, Column::kLocation), folder.At("moved/b.mid"));
  EXPECT_EQ(SelectedRows(), Rows{2});
}

TEST_F(FilesInMainWindow, AMovedFileLeavesTheListWhenTheUserWantsThat) {
  OptionValues options = Options();
  options.move.keepMovedRows = false;
  OpenFolder(options);
  const std::string target = folder.MakeFolder("moved");
  dialogs.ChooseFolder(target);
  dialogs.Answer();
  Run(Command::mnuThisMove);
  EXPECT_TRUE(folder.Exists("moved/a.mid"));
  EXPECT_EQ(Names(), (Texts{"b", "c"}));
  EXPECT_EQ(Status(kItemsPanel), "アイテム数：  2");
  ExpectEmptyPanel();
}

TEST_F(FilesInMainWindow, AFileWithThisNameAtTheTargetStopsTheMove) {
  const std::string target = folder.MakeFolder("moved");
  folder.Write("moved/a.mid", "other");
  OpenFolder();
  dialogs.ChooseFolder(target);
  dialogs.Answer();
  Run(Command::mnuThisMove);
  EXPECT_EQ(dialogs.TakeShown(),
            (std::vector<Message>{{"ファイル移動", "移動先に同名のファイルがあります\nファイルが移動できませんでした",
                                   MessageIcon::kExclamation, MessageButtons::kOk}}));
  EXPECT_TRUE(folder.Exists("a.mid"));
  EXPECT_EQ(folder.Read("moved/a.mid"), "other");
  EXPECT_EQ(List().Row(1).Location(), folder.At("a.mid"));
}

TEST_F(FilesInMainWindow, TheSelectedFileIsDeletedForGoodOnceTheUserAgrees) {
  OpenFolder();
  SelectRow(2);
  const Message question{"ファイル削除", folder.At("b.mid") + "\n\nこのファイルを完全に削除してもよろしいですか",
                         MessageIcon::kQuestion, MessageButtons::kYesNo};
  dialogs.Answer(false);
  Run(Command::mnuThisDel);
  EXPECT_EQ(dialogs.TakeShown(), std::vector<Message>{question});
  EXPECT_TRUE(folder.Exists("b.mid"));
  EXPECT_EQ(List().Count(), 3);

  dialogs.Answer();
  Run(Command::mnuThisDel);
  EXPECT_EQ(dialogs.TakeShown(), std::vector<Message>{question});
  EXPECT_FALSE(folder.Exists("b.mid"));
  EXPECT_EQ(Names(), (Texts{"a", "c"}));
  EXPECT_EQ(NativeCount(Frame().List()), 2);
  EXPECT_EQ(Status(kChecksPanel), "チェック数： 2");
  EXPECT_EQ(Status(kItemsPanel), "アイテム数：  2");
  EXPECT_EQ(Status(kSelectionPanel), "プレイヤー待機中...");
  ExpectEmptyPanel();
}

TEST_F(FilesInMainWindow, ReloadingReadsTheFilesAgain) {
  OpenFolder();
  List().SetRenameName(1, "typed");
  WriteMidi("a.mid", "Another");
  dialogs.Answer();
  Run(Command::mnuReload);
  EXPECT_EQ(dialogs.TakeShown(),
            (std::vector<Message>{{"再読み込み", "再読み込みを行うと現在の編集内容はすべて失われます。実行しますか",
                                   MessageIcon::kQuestion, MessageButtons::kOkCancel}}));
  EXPECT_EQ(Names(), (Texts{"a", "b", "c"}));
  EXPECT_EQ(Text("txtTitle"), "Another");
  EXPECT_EQ(Text("txtAlterTitle"), "a");
}

TEST_F(FilesInMainWindow, ClearingAsksAndEmptiesTheList) {
  OpenFolder();
  dialogs.Answer();
  Run(Command::mnuAllClear);
  const std::vector<Message> shown = dialogs.TakeShown();
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0].text, "現在の編集内容を破棄して、リストをクリアします");
  EXPECT_EQ(List().Count(), 0);
  EXPECT_EQ(NativeCount(Frame().List()), 0);
  EXPECT_EQ(Status(kItemsPanel), "アイテム数：  0");
  ExpectEmptyPanel();
}

}  // namespace
}  // namespace quillon::test
