#include <wx/dialog.h>
#include <wx/utils.h>

#include "gui/MainWindow.h"
#include "gui/SystemView.h"

/// What the main window shows during long commands.
namespace quillon::test {
namespace {

class BusyMainWindow : public MainWindowTest {
 protected:
  void SetUp() override {
    for (const char* name : {"a", "b"}) WriteMidi(std::string(name) + ".mid", "Title of " + std::string(name));
  }

  static const wxWindow* WaitWindow() {
    for (const wxWindow* window : wxTopLevelWindows) {
      if (window->GetName() == "frmWait" && window->IsShown()) return window;
    }
    return nullptr;
  }

  /// Runs a command on many rows, and expects that it disables the window while the hourglass is shown.
  void ExpectDisabledUnderTheHourglass(Command command) const {
    std::vector<bool> hourglass;
    {
      const EnablingWatch watch(Frame(), [&](bool enabled) {
        if (!enabled) hourglass.push_back(ShowsPointer(Frame(), wxCURSOR_WAIT));
      });
      Run(command);
    }
    ASSERT_FALSE(hourglass.empty()) << "it was never disabled";
    EXPECT_TRUE(hourglass.front());
    EXPECT_TRUE(Frame().IsEnabled());
    EXPECT_FALSE(wxIsBusy());
  }
};

TEST_F(BusyMainWindow, IsDisabledUnderTheHourglassWhileFilesAreRenamed) {
  OpenFolder();
  List().SetRenameName(1, "x");
  dialogs.Answer();
  dialogs.Answer();
  ExpectDisabledUnderTheHourglass(Command::mnuAllUpdate);
  EXPECT_TRUE(folder.Exists("x.mid"));
}

TEST_F(BusyMainWindow, IsDisabledUnderTheHourglassWhileFilesAreMoved) {
  OpenFolder();
  dialogs.ChooseFolder(folder.MakeFolder("moved"));
  dialogs.Answer();
  ExpectDisabledUnderTheHourglass(Command::mnuAllMove);
  EXPECT_TRUE(folder.Exists("moved/b.mid"));
}

TEST_F(BusyMainWindow, ShowsTheWaitWindowAndTheBusyArrowWhileRulesRun) {
  OptionValues options = Options();
  options.update.automatic = true;
  options.modify.rules[0] = {true, "a", "b"};
  OpenFolder(options);
  dialogs.Use([](wxDialog& dialog) {
    wxCommandEvent click(wxEVT_BUTTON, wxID_OK);
    wxWindow::FindWindowByName("cmdOK", &dialog)->ProcessWindowEvent(click);
  });
  bool asked = false;
  dialogs.AnswerAfter([&] {  // the first row's new name exists already
    asked = true;
    EXPECT_NE(WaitWindow(), nullptr);
    EXPECT_TRUE(ShowsPointer(Frame(), wxCURSOR_ARROWWAIT));
  });
  Run(Command::mnuAllModify);
  EXPECT_TRUE(asked);
  EXPECT_EQ(WaitWindow(), nullptr);
  EXPECT_FALSE(wxIsBusy());
}

}  // namespace
}  // namespace quillon::test
