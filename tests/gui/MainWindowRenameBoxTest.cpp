#include "controls/WxText.h"
#include "gui/MainWindow.h"
#include "gui/Settle.h"

/// The rename box, with real keys, in both apply modes.
namespace quillon::test {
namespace {

using Texts = std::vector<std::string>;
using Rows = std::vector<int>;

const Message kAsksForName{"自動適応モード", "リネーム名を入力してください", MessageIcon::kExclamation,
                           MessageButtons::kOk};

class RenameBoxInMainWindow : public MainWindowTest {
 protected:
  void SetUp() override {
    for (const char* name : {"a", "b", "c"}) WriteMidi(std::string(name) + ".mid", "Title of " + std::string(name));
  }

  void OpenAutomatic() {
    OptionValues options = Options();
    options.update.automatic = true;
    OpenFolder(options);
    ASSERT_EQ(Status(kModePanel), kAutomatic);
  }

  void EmptyBox() {
    FocusBox();
    Key(WXK_DELETE);
    ASSERT_TRUE(Until([this] { return Text("txtAlterTitle").empty(); })) << Text("txtAlterTitle");
  }

  [[nodiscard]] std::string Selected() const { return FromWx(Box().GetStringSelection()); }
};

TEST_F(RenameBoxInMainWindow, TheFocusSelectsTheWholeName) {
  OpenFolder();
  FocusBox();
  EXPECT_EQ(Selected(), "a");
}

TEST_F(RenameBoxInMainWindow, ItsAccessKeyLeadsToIt) {
  OpenFolder();
  FocusList();
  Key('N', wxMOD_ALT);
  EXPECT_TRUE(Until([] { return FocusName() == "txtAlterTitle"; })) << FocusName();
}

TEST_F(RenameBoxInMainWindow, TypingWritesToTheRow) {
  OpenFolder();
  FocusBox();
  Key('x');
  Key('y');
  EXPECT_EQ(Text("txtAlterTitle"), "xy");
  EXPECT_EQ(Names(), (Texts{"xy", "b", "c"}));
  EXPECT_EQ(NativeText(Frame().List(), 1, Column::kRenameName), "xy");
  EXPECT_TRUE(folder.Exists("a.mid"));
  wxUIActionSimulator().Text("?");
  EXPECT_TRUE(Until([this] { return Names()[0] == "xy?"; })) << Names()[0];
}

TEST_F(RenameBoxInMainWindow, EnterWalksDownTheList) {
  OpenFolder();
  FocusBox();
  Key('x');
  Key(WXK_RETURN);
  EXPECT_TRUE(Until([this] { return Text("txtAlterTitle") == "b"; })) << Text("txtAlterTitle");
  EXPECT_EQ(SelectedRows(), Rows{2});
  EXPECT_EQ(NativeSelection(Frame().List()), Rows{2});
  EXPECT_EQ(FocusName(), "txtAlterTitle");
  EXPECT_EQ(Selected(), "b");
  EXPECT_EQ(Text("txtTitle"), "Title of b");
  Key('y');
  Key(WXK_RETURN);
  Key('z');
  Key(WXK_RETURN);
  EXPECT_EQ(SelectedRows(), Rows{3}) << "the last row stays";
  EXPECT_EQ(Names(), (Texts{"x", "y", "z"}));
  EXPECT_EQ(Text("txtAlterTitle"), "z");
}

TEST_F(RenameBoxInMainWindow, TypingWritesToEverySelectedRow) {
  OpenFolder();
  FocusList();
  Key('A', wxMOD_CONTROL);
  ASSERT_EQ(SelectedRows(), (Rows{1, 2, 3}));
  FocusBox();
  Key('x');
  EXPECT_EQ(Names(), (Texts{"x", "x", "x"}));
  EXPECT_EQ(SelectedRows(), (Rows{1, 2, 3}));
  ClickBox();
  EXPECT_EQ(SelectedRows(), (Rows{1, 2, 3})) << "a click leaves them selected";
}

TEST_F(RenameBoxInMainWindow, AClickOnTheModePanelSwitchesTheModeOfAnEmptyList) {
  Open(Options());
  dialogs.Answer();
  ClickModePanel();
  EXPECT_EQ(dialogs.TakeShown(), (std::vector<Message>{{"設定", "自動適応モードが有効になりました",
                                                        MessageIcon::kInformation, MessageButtons::kOk}}));
  EXPECT_EQ(Status(kModePanel), kAutomatic);
  EXPECT_TRUE(App().Mode().automatic);
  EXPECT_NE(home.Read("Quillon.ini").find("AutoUpdate=1"), std::string::npos);
  dialogs.Answer();
  ClickModePanel(3);
  EXPECT_EQ(dialogs.TakeShown(), (std::vector<Message>{{"設定", "自動適応モードが無効になりました",
                                                        MessageIcon::kInformation, MessageButtons::kOk}}));
  EXPECT_EQ(Status(kModePanel), kManual);
  EXPECT_FALSE(App().Mode().automatic);
  EXPECT_NE(home.Read("Quillon.ini").find("AutoUpdate=0"), std::string::npos);
}

TEST_F(RenameBoxInMainWindow, WithRowsTheModeWaitsForAnEmptyList) {
  OpenFolder();
  dialogs.Answer();
  ClickModePanel();
  EXPECT_EQ(dialogs.TakeShown(),
            (std::vector<Message>{{"設定",
                                   "この設定は 次回起動時 または 「再読み込み」「リストクリア」 実行後に有効となります",
                                   MessageIcon::kInformation, MessageButtons::kOk}}));
  EXPECT_EQ(Status(kModePanel), kManual);
  EXPECT_FALSE(App().Mode().automatic);
  dialogs.Answer();
  dialogs.Answer();
  Run(Command::mnuReload);
  EXPECT_EQ(dialogs.TakeShown().at(1).text, "自動適応モードが有効になりました");
  EXPECT_EQ(Status(kModePanel), kAutomatic);
  EXPECT_TRUE(App().Mode().automatic);
}

TEST_F(RenameBoxInMainWindow, InAutomaticModeEachKeyRenamesTheFile) {
  OpenAutomatic();
  FocusBox();
  Key('x');
  EXPECT_TRUE(folder.Exists("x.mid"));
  EXPECT_FALSE(folder.Exists("a.mid"));
  Key('y');
  EXPECT_TRUE(folder.Exists("xy.mid"));
  EXPECT_FALSE(folder.Exists("x.mid"));
  EXPECT_EQ(List().Row(1).Location(), folder.At("xy.mid"));
  EXPECT_TRUE(Text("txtFileName").ends_with("xy.mid")) << Text("txtFileName");
  EXPECT_TRUE(Status(kSelectionPanel).starts_with("選択： ")) << Status(kSelectionPanel);
  EXPECT_TRUE(Status(kSelectionPanel).ends_with("xy.mid")) << Status(kSelectionPanel);
  EXPECT_EQ(Box().GetInsertionPoint(), 2);
  EXPECT_EQ(CheckedRows(), (Rows{1, 2, 3})) << "check marks stay in this mode";
}

TEST_F(RenameBoxInMainWindow, InAutomaticModeAnInvalidCharacterIsRefusedWhereItWasTyped) {
  OpenAutomatic();
  FocusBox();
  Key('x');
  Key('y');
  Box().SetInsertionPoint(1);
  wxUIActionSimulator().Text("?");
  Settle();
  Drain();
  EXPECT_EQ(Text("txtAlterTitle"), "xy");
  EXPECT_EQ(Box().GetInsertionPoint(), 1);
  EXPECT_TRUE(folder.Exists("xy.mid"));
  Key('z');
  EXPECT_EQ(Text("txtAlterTitle"), "xzy");
  EXPECT_TRUE(folder.Exists("xzy.mid"));
}

TEST_F(RenameBoxInMainWindow, InAutomaticModeATakenNameIsReplacedWithTheFormerOne) {
  OpenAutomatic();
  FocusBox();
  dialogs.Answer();
  Key('b');
  EXPECT_EQ(
      dialogs.TakeShown(),
      (std::vector<Message>{{"ファイルに適応", "リネーム名と同名のファイルが存在します\nファイルに適応できませんでした",
                             MessageIcon::kExclamation, MessageButtons::kOk}}));
  EXPECT_EQ(Text("txtAlterTitle"), "a");
  EXPECT_EQ(Selected(), "a");
  EXPECT_EQ(FocusName(), "txtAlterTitle");
  EXPECT_EQ(Names(), (Texts{"a", "b", "c"}));
  EXPECT_EQ(folder.Read("a.mid"), Midi("Title of a"));
  EXPECT_EQ(folder.Read("b.mid"), Midi("Title of b"));
}

TEST_F(RenameBoxInMainWindow, InAutomaticModeAnEmptyBoxMayNotBeLeft) {
  OpenAutomatic();
  EmptyBox();
  EXPECT_TRUE(folder.Exists("a.mid"));
  dialogs.Answer();
  Key(WXK_TAB);
  EXPECT_EQ(dialogs.TakeShown(), std::vector<Message>{kAsksForName});
  EXPECT_TRUE(Until([] { return FocusName() == "txtAlterTitle"; })) << FocusName();
  EXPECT_EQ(Text("txtAlterTitle"), "");

  Key(WXK_RETURN);
  EXPECT_EQ(Text("txtAlterTitle"), "a");
  EXPECT_EQ(Selected(), "a");
  EXPECT_EQ(SelectedRows(), Rows{1});
  EXPECT_EQ(Names(), (Texts{"a", "b", "c"}));
}

TEST_F(RenameBoxInMainWindow, InAutomaticModeAnEmptyBoxMayBeLeftForAnotherWindow) {
  OpenAutomatic();
  EmptyBox();
  auto* const other = new wxFrame(nullptr, wxID_ANY, "other");
  other->Show();
  other->Raise();
  EXPECT_TRUE(Until([&] { return other->IsActive() && !Frame().IsActive(); }));
  Settle();
  Drain();
  EXPECT_EQ(Text("txtAlterTitle"), "") << "and nothing was asked";
  other->Destroy();
  Frame().Raise();
  EXPECT_TRUE(Until([this] { return Frame().IsActive(); }));
  EXPECT_TRUE(Until([] { return FocusName() == "txtAlterTitle"; })) << FocusName();
}

TEST_F(RenameBoxInMainWindow, InAutomaticModeAnEmptyBoxKeepsItsRow) {
  OpenAutomatic();
  EmptyBox();
  dialogs.Answer();
  ClickRow(3);
  EXPECT_EQ(dialogs.TakeShown(), std::vector<Message>{kAsksForName});
  EXPECT_TRUE(Until([this] { return NativeSelection(Frame().List()) == Rows{1}; }));
  EXPECT_EQ(SelectedRows(), Rows{1});
  EXPECT_EQ(Text("txtAlterTitle"), "a");
  EXPECT_EQ(Text("txtTitle"), "Title of a");
  EXPECT_EQ(Names(), (Texts{"a", "b", "c"}));
  EXPECT_TRUE(Until([] { return FocusName() == "txtAlterTitle"; })) << FocusName();
}

TEST_F(RenameBoxInMainWindow, InAutomaticModeTheListsOwnEditorRenamesToo) {
  OpenAutomatic();
  FocusList();
  Key(WXK_F2);
  ASSERT_TRUE(Until([this] { return Frame().List().IsEditing(); }));
  Key('n');
  Key(WXK_RETURN);
  EXPECT_TRUE(Until([this] { return folder.Exists("n.mid"); }));
  EXPECT_EQ(Names()[0], "n");
  EXPECT_EQ(Text("txtAlterTitle"), "n");
  EXPECT_EQ(Status(kSelectionPanel), "選択： n.mid");

  dialogs.Answer();
  Key(WXK_F2);
  ASSERT_TRUE(Until([this] { return Frame().List().IsEditing(); }));
  wxUIActionSimulator().Text("?");
  Key(WXK_RETURN);
  EXPECT_TRUE(Until([this] { return dialogs.AllShown(); }));
  EXPECT_EQ(dialogs.TakeShown(), (std::vector<Message>{{"自動適応モード", "不正な文字が含まれているため適応できません",
                                                        MessageIcon::kExclamation, MessageButtons::kOk}}));
  EXPECT_EQ(Names()[0], "n");
}

}  // namespace
}  // namespace quillon::test
