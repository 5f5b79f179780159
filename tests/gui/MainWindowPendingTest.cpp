#include <wx/dnd.h>
#include <wx/panel.h>

#include "controls/WxText.h"
#include "gui/MainWindow.h"
#include "gui/Settle.h"

/// What the main window shows of names that are not applied yet, and how edits are taken back, with real keys.
namespace quillon::test {
namespace {

using Texts = std::vector<std::string>;
using Rows = std::vector<int>;
using enum Command;

class PendingInMainWindow : public MainWindowTest {
 protected:
  void SetUp() override {
    for (const char* name : {"a", "b", "c"}) WriteMidi(std::string(name) + ".mid", "Title of " + std::string(name));
  }

  [[nodiscard]] std::string Tip(int index) const {
    const wxRect row = NativeRowRect(Frame().List(), index);
    wxWindow& list = Frame().List().Window();
    wxMouseEvent motion(wxEVT_MOTION);
    motion.SetPosition(list.ScreenToClient(row.GetPosition() + wxPoint(row.height, row.height / 2)));
    motion.SetEventObject(&list);
    list.HandleWindowEvent(motion);
    return FromWx(list.GetToolTipText());
  }

  [[nodiscard]] bool IsShown(const char* name) const {
    const wxWindow* window = wxWindow::FindWindowByName(name, &Frame());
    return window != nullptr && window->IsShown();
  }
};

TEST_F(PendingInMainWindow, NamesAreBoldAndSayWhatTheyAre) {
  OpenFolder();
  EXPECT_FALSE(IsBold(Frame().List(), 1));
  EXPECT_EQ(SpokenText(Frame().List(), 1, Column::kRenameName), "a");
  EXPECT_EQ(Tip(1), "");
  EXPECT_EQ(Status(kPendingPanel), "未適応： 0");
  FocusBox();
  Key('x');
  EXPECT_TRUE(IsBold(Frame().List(), 1));
  EXPECT_FALSE(IsBold(Frame().List(), 2));
  EXPECT_EQ(SpokenText(Frame().List(), 1, Column::kRenameName), "x（未適応）");
  EXPECT_EQ(SpokenText(Frame().List(), 1, Column::kTitle), "Title of a");
  EXPECT_EQ(Tip(1), "a → x");
  EXPECT_EQ(Tip(2), "");
  EXPECT_EQ(Status(kPendingPanel), "未適応： 1");
  dialogs.Answer(true);
  dialogs.Answer(true);
  Run(mnuAllUpdate);
  EXPECT_FALSE(IsBold(Frame().List(), 1));
  EXPECT_EQ(Status(kPendingPanel), "未適応： 0");
}

TEST_F(PendingInMainWindow, ATextThatIsCutOffIsItsToolTip) {
  OpenFolder();
  Frame().List().SetColumnWidth(Column::kRenameName, Frame().FromDIP(60));
  const std::string name = "a name that does not fit into sixty pixels";
  App().LabelEdited(1, name);
  Drain();
  EXPECT_EQ(Tip(1), "a → " + name);
  App().LabelEdited(1, std::string(400, 'n'));
  Drain();
  EXPECT_EQ(Tip(1), "a → " + std::string(300, 'n') + "…");
}

TEST_F(PendingInMainWindow, F8GoesFromOneToTheNext) {
  OpenFolder();
  App().LabelEdited(1, "x");
  App().LabelEdited(3, "z");
  Drain();
  FocusBox();
  Key(WXK_F8);
  EXPECT_TRUE(Until([this] { return SelectedRows() == Rows{3}; }));
  EXPECT_EQ(NativeSelection(Frame().List()), Rows{3});
  Key(WXK_F8);
  EXPECT_TRUE(Until([this] { return SelectedRows() == Rows{1}; }));
}

TEST_F(PendingInMainWindow, EditsAreTakenBackByKeysInTheList) {
  OpenFolder();
  EXPECT_FALSE(MenuEnabled(mnuEditUndo));
  FocusBox();
  Key('x');
  Key('y');
  EXPECT_EQ(Names(), Texts({"xy", "b", "c"}));
  FocusList();
  EXPECT_TRUE(MenuEnabled(mnuEditUndo));
  Key('Z', wxMOD_CONTROL);
  EXPECT_TRUE(Until([this] { return Names()[0] == "a"; })) << Names()[0];
  EXPECT_EQ(Text("txtAlterTitle"), "a");
  EXPECT_FALSE(MenuEnabled(mnuEditUndo));
  EXPECT_TRUE(MenuEnabled(mnuEditRedo));
  Key('Y', wxMOD_CONTROL);
  EXPECT_TRUE(Until([this] { return Names()[0] == "xy"; })) << Names()[0];
}

TEST_F(PendingInMainWindow, InTheBoxTheKeysAreItsOwn) {
  OpenFolder();
  App().LabelEdited(3, "z");
  FocusBox();
  Key('x');
  Key('Z', wxMOD_CONTROL);
  EXPECT_TRUE(Until([this] { return Text("txtAlterTitle") == "a"; })) << Text("txtAlterTitle");
  EXPECT_EQ(Names(), Texts({"a", "b", "z"})) << "the list's last edit stays";
  EXPECT_EQ(FocusName(), "txtAlterTitle");
  Key('Y', wxMOD_CONTROL);
  EXPECT_TRUE(Until([this] { return Text("txtAlterTitle") == "x"; })) << Text("txtAlterTitle");
  EXPECT_EQ(Names(), Texts({"x", "b", "z"}));
  Key('y');  // Windows has selected what it brought back
  const std::string typed = Text("txtAlterTitle");
  Key('Y', wxMOD_CONTROL);
  Drain();
  EXPECT_EQ(Text("txtAlterTitle"), typed) << "nothing was undone";
}

TEST_F(PendingInMainWindow, TheEndAsksForThemIfTheOptionsSaySo) {
  OptionValues options = Options();
  options.extra.confirmPending = true;
  OpenFolder(options);
  App().LabelEdited(1, "x");
  dialogs.Answer(false);
  Frame().Close();
  Drain();
  ASSERT_TRUE(IsOpen());
  const std::vector<Message> asked = dialogs.TakeShown();
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_EQ(asked.front().text, "適応していないリネーム名が 1 個あります\n終了すると失われます。終了しますか");
  dialogs.Answer(true);
  Frame().Close();
  EXPECT_TRUE(Until([this] { return !IsOpen(); }));
}

TEST_F(PendingInMainWindow, ANameThatIsBeingTypedInTheListCountsAtTheEnd) {
  OptionValues options = Options();
  options.extra.confirmPending = true;
  OpenFolder(options);
  SelectRow(2);
  Key(WXK_F2);
  ASSERT_TRUE(Until([this] { return Frame().List().IsEditing(); }));
  Key('x');
  dialogs.Answer(false);
  Frame().Close();
  EXPECT_TRUE(Until([this] { return Names() == Texts{"a", "x", "c"}; })) << Names()[1];
  EXPECT_TRUE(Until([this] { return dialogs.AllShown(); }));
  EXPECT_TRUE(IsOpen());
}

TEST_F(PendingInMainWindow, AnEndThatCannotBeRefusedDoesNotAsk) {
  OptionValues options = Options();
  options.extra.confirmPending = true;
  OpenFolder(options);
  App().LabelEdited(1, "x");
  Frame().CloseUnanswered();
  EXPECT_TRUE(Until([this] { return !IsOpen(); }));
  EXPECT_EQ(dialogs.TakeShown(), std::vector<Message>());

  OpenFolder(options);
  App().LabelEdited(1, "x");
  dialogs.Answer(true);  // that the settings are deleted
  Run(mnuOptionDefaultExit);
  EXPECT_TRUE(Until([this] { return !IsOpen(); }));
  EXPECT_FALSE(home.Exists("Quillon.ini"));
}

TEST_F(PendingInMainWindow, AnEmptyListSaysWhatToDo) {
  Open(Options());
  EXPECT_TRUE(IsShown("fraListHint"));
  const wxRect hint = Get<wxPanel>("fraListHint").GetRect();
  EXPECT_TRUE(Frame().List().Window().GetRect().Contains(hint));
  App().LoadPaths({folder.Path()});
  Drain();
  EXPECT_FALSE(IsShown("fraListHint"));
  dialogs.Answer(true);
  Run(mnuAllClear);
  EXPECT_TRUE(IsShown("fraListHint"));
  auto* const target = dynamic_cast<wxFileDropTarget*>(Get<wxPanel>("fraListHint").GetDropTarget());
  ASSERT_NE(target, nullptr);
  wxArrayString paths;
  paths.Add(ToWx(folder.At("b.mid")));
  EXPECT_TRUE(target->OnDropFiles(1, 1, paths));
  EXPECT_TRUE(Until([this] { return Names() == Texts{"b"}; }));
}

TEST_F(PendingInMainWindow, AFrameShowsWhereADragGoes) {
  OpenFolder();
  wxDropTarget& target = *Frame().List().Window().GetDropTarget();
  const auto edges = [this] {
    int shown = 0;
    for (const wxWindow* child : Frame().List().Window().GetParent()->GetChildren()) {
      if (child->GetName() == "fraDropEdge" && child->IsShown()) ++shown;
    }
    return shown;
  };
  EXPECT_EQ(edges(), 0);
  target.OnEnter(5, 5, wxDragCopy);
  EXPECT_EQ(edges(), 4);
  target.OnLeave();
  EXPECT_EQ(edges(), 0);
  Frame().List().SetInputEnabled(false);
  target.OnEnter(5, 5, wxDragCopy);
  EXPECT_EQ(edges(), 0) << "nothing can be dropped while a command runs";
  Frame().List().SetInputEnabled(true);
}

TEST_F(PendingInMainWindow, AutoApplyModeWarnsInItsPanel) {
  Open(Options());
  EXPECT_FALSE(IsShown("fraModeWarning"));
  dialogs.Answer(true);
  dialogs.Answer(true);
  ClickModePanel();
  ASSERT_TRUE(Until([this] { return Status(kModePanel) == kAutomatic; }));
  ASSERT_TRUE(Until([this] { return IsShown("fraModeWarning"); }));
  const wxPanel& warning = Get<wxPanel>("fraModeWarning");
  EXPECT_EQ(warning.GetBackgroundColour(), wxColour(0xFF, 0xC1, 0x07));
  wxRect panel;
  ASSERT_TRUE(Frame().GetStatusBar()->GetFieldRect(kModePanel, panel));
  EXPECT_EQ(warning.GetRect(), panel);
  ClickModePanel(1);
  EXPECT_TRUE(Until([this] { return Status(kModePanel) == kManual; }));
  EXPECT_FALSE(IsShown("fraModeWarning"));
}

TEST_F(PendingInMainWindow, ToolBarLabelsAreShownAndHidden) {
  OpenFolder();
  const int plain = Frame().GetToolBar()->GetSize().y;
  Run(mnuToolLabels);
  EXPECT_TRUE(Frame().GetMenuBar()->IsChecked(frmMain::IdOf(mnuToolLabels)));
  EXPECT_TRUE(Until([&] { return Frame().GetToolBar()->GetSize().y > plain; })) << Frame().GetToolBar()->GetSize().y;
  EXPECT_TRUE(Frame().GetToolBar()->GetToolEnabled(frmMain::IdOf(mnuReload)));
  Run(mnuAllChk);
  EXPECT_TRUE(Frame().GetToolBar()->GetToolEnabled(frmMain::IdOf(mnuUpdate)));
  Run(mnuToolLabels);
  EXPECT_TRUE(Until([&] { return Frame().GetToolBar()->GetSize().y == plain; })) << Frame().GetToolBar()->GetSize().y;
  EXPECT_FALSE(Frame().GetMenuBar()->IsChecked(frmMain::IdOf(mnuToolLabels)));
}

}  // namespace
}  // namespace quillon::test
