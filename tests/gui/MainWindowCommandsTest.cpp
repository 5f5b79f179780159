#include <wx/menu.h>
#include <wx/timer.h>
#include <wx/toolbar.h>

#include <algorithm>

#include "controls/WxText.h"
#include "gui/MainWindow.h"
#include "gui/Settle.h"
#include "gui/SystemView.h"

/// Menus, tool bar and keys of the main window.
namespace quillon::test {
namespace {

using Rows = std::vector<int>;
using enum Command;

class CommandsOfMainWindow : public MainWindowTest {
 protected:
  void SetUp() override {
    for (const char* name : {"a", "b", "c"}) WriteMidi(std::string(name) + ".mid", "Title of " + std::string(name));
  }

  [[nodiscard]] bool ToolEnabled(Command command) const {
    return Frame().GetToolBar()->GetToolEnabled(frmMain::IdOf(command));
  }

  void ExpectMenu(const std::vector<Command>& commands, bool enabled) const {
    for (const Command command : commands) {
      EXPECT_EQ(MenuEnabled(command), enabled) << EntryOf(command).caption;
    }
  }
};

const std::vector<Command> kForRows = {mnuReload,  mnuAllClear,  mnuAllUpdate,    mnuAllRename,
                                       mnuAllUndo, mnuAllModify, mnuAllMove,      mnuAllChk,
                                       mnuChkRem,  mnuTurnChk,   mnuUnChkListRem, mnuSortTitle};
const std::vector<Command> kForCheckedRows = {mnuUpdate, mnuRename, mnuUndo, mnuModify, mnuMove};

TEST_F(CommandsOfMainWindow, AreEnabledAsTheListAllows) {
  Open(Options());
  ExpectMenu(kForRows, false);
  ExpectMenu(kForCheckedRows, false);
  ExpectMenu({mnuFolderReference, mnuFileLoad, mnuFront, mnuShowHelp, mnuExit, mnuOptionDefaultExit}, true);
  for (const Command tool : {mnuReload, mnuUpdate, mnuRename, mnuModify, mnuMove}) EXPECT_FALSE(ToolEnabled(tool));
  EXPECT_TRUE(ToolEnabled(mnuFolderReference));

  dialogs.ChooseFolder(folder.Path());
  Run(mnuFolderReference);
  ExpectMenu(kForRows, true);
  ExpectMenu(kForCheckedRows, true);
  for (const Command tool : {mnuReload, mnuUpdate, mnuRename, mnuModify, mnuMove}) EXPECT_TRUE(ToolEnabled(tool));

  Run(mnuChkRem);
  EXPECT_EQ(Status(kChecksPanel), "チェック数： 0");
  ExpectMenu(kForRows, true);
  ExpectMenu(kForCheckedRows, false);
  Run(mnuTurnChk);
  EXPECT_EQ(Status(kChecksPanel), "チェック数： 3");
  ExpectMenu(kForCheckedRows, true);
}

TEST_F(CommandsOfMainWindow, InAutomaticModeNothingIsAppliedOrUndoneByCommand) {
  OptionValues options = Options();
  options.update.automatic = true;
  OpenFolder(options);
  ExpectMenu({mnuUpdate, mnuAllUpdate, mnuUndo, mnuAllUndo}, false);
  ExpectMenu({mnuRename, mnuAllRename, mnuModify, mnuAllModify, mnuMove, mnuReload}, true);
}

TEST_F(CommandsOfMainWindow, ACommandThatIsNotEnabledDoesNothing) {
  OpenFolder();
  Run(mnuChkRem);
  for (const Command command : kForCheckedRows) Run(command);
  EXPECT_EQ(List().Count(), 3) << "and nothing was asked";
}

TEST_F(CommandsOfMainWindow, AlwaysOnTopIsMarkedInItsMenuItem) {
  Open(Options());
  const int id = frmMain::IdOf(mnuFront);
  EXPECT_FALSE(Frame().GetMenuBar()->IsChecked(id));
  for (const bool front : {true, false}) {
    Frame().GetMenuBar()->Check(id, front);  // as the menu does before its event
    Run(mnuFront);
    EXPECT_EQ(Frame().GetMenuBar()->IsChecked(id), front);
    EXPECT_TRUE(Until([&] { return IsAboveOthers(Frame()) == front; })) << front;
    EXPECT_EQ(App().Options().system.alwaysOnTop, front);
  }
  OptionValues options = Options();
  options.system.alwaysOnTop = true;
  CloseWindow();
  Open(options);
  EXPECT_TRUE(Frame().GetMenuBar()->IsChecked(id));
  EXPECT_TRUE(Until([&] { return IsAboveOthers(Frame()); }));
}

TEST_F(CommandsOfMainWindow, F5Reloads) {
  OpenFolder();
  FocusList();
  dialogs.Answer(false);
  Key(WXK_F5);
  EXPECT_EQ(dialogs.TakeShown().size(), 1u);
}

TEST_F(CommandsOfMainWindow, F2EditsTheNameInTheList) {
  OpenFolder();
  SelectRow(2);
  Key(WXK_F2);
  ASSERT_TRUE(Until([this] { return Frame().List().IsEditing(); }));
  Key('n');
  Key(WXK_RETURN);
  EXPECT_TRUE(Until([this] { return Names()[1] == "n"; })) << Names()[1];
  EXPECT_EQ(Text("txtAlterTitle"), "n");
  EXPECT_FALSE(Frame().List().IsEditing());
  EXPECT_TRUE(folder.Exists("b.mid"));

  Key(WXK_F2);
  ASSERT_TRUE(Until([this] { return Frame().List().IsEditing(); }));
  Key('q');
  Key(WXK_ESCAPE);
  EXPECT_TRUE(Until([this] { return !Frame().List().IsEditing(); }));
  EXPECT_EQ(Names()[1], "n");
}

TEST_F(CommandsOfMainWindow, ANameTypedInTheListCountsWhenAnotherRowIsClicked) {
  OpenFolder();
  FocusList();
  Key(WXK_F2);
  ASSERT_TRUE(Until([this] { return Frame().List().IsEditing(); }));
  Key('n');
  ClickRow(3);
  EXPECT_TRUE(Until([this] { return Names()[0] == "n"; })) << Names()[0];
  EXPECT_TRUE(Until([this] { return SelectedRows() == Rows{3}; }));
  EXPECT_EQ(Text("txtAlterTitle"), "c");
}

TEST_F(CommandsOfMainWindow, ANameTypedInTheListCountsForACommandGivenMeanwhile) {
  OpenFolder();
  FocusList();
  Key(WXK_F2);
  ASSERT_TRUE(Until([this] { return Frame().List().IsEditing(); }));
  Key('n');
  dialogs.Answer(true);
  dialogs.Answer(true);
  Post(Command::mnuUpdate);
  EXPECT_TRUE(Until([this] { return folder.Exists("n.mid"); }));
  EXPECT_TRUE(Until([this] { return dialogs.AllShown() && !App().IsRunning(); }));
  EXPECT_EQ(dialogs.TakeShown().size(), 2u);
  EXPECT_FALSE(folder.Exists("a.mid"));
}

TEST_F(CommandsOfMainWindow, DeleteDeletesTheFileInTheListAndACharacterInTheBox) {
  OpenFolder();
  FocusList();
  dialogs.Answer(false);
  Key(WXK_DELETE);
  EXPECT_EQ(dialogs.TakeShown().size(), 1u);
  FocusBox();
  Key(WXK_DELETE);
  EXPECT_EQ(Text("txtAlterTitle"), "");
  EXPECT_TRUE(folder.Exists("a.mid"));
}

TEST_F(CommandsOfMainWindow, ShiftDeleteRemovesTheRowFromTheListOnly) {
  OpenFolder();
  SelectRow(2);
  Key(WXK_DELETE, wxMOD_SHIFT);
  EXPECT_TRUE(Until([this] { return List().Count() == 2; }));
  EXPECT_TRUE(folder.Exists("b.mid"));
}

TEST_F(CommandsOfMainWindow, CtrlASelectsEveryRowAndSpaceTogglesTheirChecks) {
  OpenFolder();
  SelectRow(2);
  Key(WXK_SPACE);
  EXPECT_EQ(CheckedRows(), (Rows{1, 3}));
  EXPECT_EQ(Status(kChecksPanel), "チェック数： 2");
  EXPECT_EQ(SelectedRows(), Rows{2});
  Key('A', wxMOD_CONTROL);
  EXPECT_EQ(SelectedRows(), (Rows{1, 2, 3}));
  EXPECT_EQ(NativeSelection(Frame().List()), (Rows{1, 2, 3}));
  Key(WXK_SPACE);
  EXPECT_EQ(CheckedRows(), Rows{}) << "all as the first one, which is the current row now";
  Key(WXK_SPACE);
  EXPECT_EQ(CheckedRows(), (Rows{1, 2, 3}));
  EXPECT_EQ(SelectedRows(), (Rows{1, 2, 3}));
  Key(WXK_SPACE, wxMOD_SHIFT);
  EXPECT_EQ(CheckedRows(), (Rows{1, 2, 3})) << "not a key of the list";
  EXPECT_EQ(SelectedRows(), (Rows{1, 2, 3}));
}

TEST_F(CommandsOfMainWindow, SortingReversesTheOrder) {
  OpenFolder();
  Run(mnuSortTitle);
  EXPECT_EQ(Names(), (std::vector<std::string>{"c", "b", "a"}));
  EXPECT_EQ(NativeText(Frame().List(), 1, Column::kRenameName), "c");
  EXPECT_EQ(SelectedRows(), Rows{3}) << "the selected file stays selected";
  EXPECT_EQ(Text("txtAlterTitle"), "a");
  Run(mnuSortTitle);
  EXPECT_EQ(Names(), (std::vector<std::string>{"a", "b", "c"}));
}

/// Looks at the menu that pops up, then closes it with Escape.
class RowMenuKeys final : public wxTimer {
 public:
  explicit RowMenuKeys(frmMain& frame) : frame_(frame) { frame_.Bind(wxEVT_MENU_OPEN, &RowMenuKeys::OnOpen, this); }
  ~RowMenuKeys() override { frame_.Unbind(wxEVT_MENU_OPEN, &RowMenuKeys::OnOpen, this); }
  RowMenuKeys(const RowMenuKeys&) = delete;
  RowMenuKeys& operator=(const RowMenuKeys&) = delete;

  void Notify() override { wxUIActionSimulator().Char(WXK_ESCAPE); }

  std::vector<std::pair<int, bool>> items;  // ids, enabled

 private:
  static constexpr int kUntilShown = 200;  // milliseconds

  void OnOpen(wxMenuEvent& event) {
    event.Skip();
    if (!event.IsPopup()) return;
    for (const wxMenuItem* item : event.GetMenu()->GetMenuItems()) {
      if (!item->IsSeparator()) items.emplace_back(item->GetId(), item->IsEnabled());
    }
    StartOnce(kUntilShown);
  }

  frmMain& frame_;
};

TEST_F(CommandsOfMainWindow, ShiftF10OpensTheRowMenu) {
  OpenFolder();
  FocusList();
  RowMenuKeys keys(Frame());
  Key(WXK_F10, wxMOD_SHIFT);
  std::vector<std::pair<int, bool>> expected;
  for (const Command command : RowMenuCommands()) {
    if (command != kSeparator) expected.emplace_back(frmMain::IdOf(command), true);
  }
  EXPECT_EQ(keys.items, expected);
}

// Native lists have keys of their own: Ctrl+P goes up in GTK's.
TEST_F(MainWindowTest, KeysOfTheMenusWorkInTheList) {
  folder.Write("a.txt", "");
  folder.Write("b.txt", "");
  OpenFolder();
  Frame().List().Window().SetFocus();
  Drain();
  for (const int modifiers : {int{wxMOD_CONTROL}, wxMOD_CONTROL | wxMOD_SHIFT}) {
    bool patternOpened = false;
    dialogs.Use([&](wxDialog& dialog) {
      patternOpened = dialog.GetName() == "frmPattern";
      dialog.EndModal(wxID_CANCEL);
    });
    wxUIActionSimulator().Char('P', modifiers);
    EXPECT_TRUE(Until([&] { return patternOpened; })) << modifiers;
    Drain();
  }
  EXPECT_EQ(List().SelectedIndex(), 1);
}

}  // namespace
}  // namespace quillon::test
