#include <wx/checkbox.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <algorithm>

#include "controls/WxText.h"
#include "gui/MainWindow.h"
#include "support/Rows.h"

/// Runs that last, and the wait window that cancels them.
namespace quillon::test {
namespace {

using Texts = std::vector<std::string>;

wxWindow* WaitWindow() {
  for (wxWindow* window : wxTopLevelWindows) {
    if (window->GetName() == "frmWait" && window->IsShown()) return window;
  }
  return nullptr;
}

/// The user, who acts once the wait window is there, between the messages that the run lets through.
class User final : public wxTimer {
 public:
  explicit User(std::function<bool(wxWindow&)> act) : act_(std::move(act)) { Start(kPause); }

  void Notify() override {
    if (wxWindow* const window = WaitWindow(); window != nullptr && !acted && ++seen_ > kPatience)
      acted = act_(*window);
  }

  bool acted = false;

 private:
  static constexpr int kPause = 20;
  static constexpr int kPatience = 10;  // some rows are done meanwhile

  std::function<bool(wxWindow&)> act_;
  int seen_ = 0;
};

bool ClickCancel(wxWindow& window) {
  const wxRect button = wxWindow::FindWindowByName("cmdCancel", &window)->GetScreenRect();
  wxUIActionSimulator mouse;
  mouse.MouseMove(button.GetTopLeft() + wxPoint(button.width / 2, button.height / 2));
  mouse.MouseClick();
  return true;
}

bool PressEscape(wxWindow& window) {
  if (!dynamic_cast<wxTopLevelWindow&>(window).IsActive()) return false;
  wxUIActionSimulator().Char(WXK_ESCAPE);
  return true;
}

class WaitingInMainWindow : public MainWindowTest {
 protected:
  static constexpr int kRows = 1500;

  /// Many rows, and a rule that takes minutes for all of them.
  void OpenWithMuchToDo() {
    OptionValues options = Options();
    options.modify.findCtrl = 1;
    options.modify.rules[0] = {1, "^(\\d)", "0$1"};
    Open(options);
    for (int i = 1; i <= kRows; ++i) List().Add(RowFor(folder.At(std::to_string(i) + "/1.mid")));
    Drain();
  }

  /// Rows that are done: each holds as many zeros more as there are rows.
  [[nodiscard]] int DoneRows() const {
    int done = 0;
    while (done < kRows && List().Row(done + 1).renameName != "1") ++done;
    return done;
  }

  void ExpectTheRowsSoFar() const {
    const int done = DoneRows();
    EXPECT_GT(done, 0);
    EXPECT_LT(done, kRows);
    Texts expected(kRows, "1");
    std::fill_n(expected.begin(), done, std::string(kRows, '0') + "1");
    EXPECT_TRUE(Names() == expected) << done;
  }

  static void Execute(wxDialog& dialog) {
    wxWindow& button = *wxWindow::FindWindowByName("cmdOK", &dialog);
    wxCommandEvent click(wxEVT_BUTTON, button.GetId());
    button.ProcessWindowEvent(click);
  }
};

TEST_F(WaitingInMainWindow, TheButtonEndsALongRunAndTheRowsDoneStay) {
  OpenWithMuchToDo();
  User user(ClickCancel);
  dialogs.Use(Execute);
  Run(Command::mnuAllModify);
  EXPECT_TRUE(user.acted);
  ExpectTheRowsSoFar();
  EXPECT_EQ(WaitWindow(), nullptr);
  EXPECT_TRUE(dialogs.TakeShown().empty());
  EXPECT_FALSE(wxIsBusy());
  EXPECT_TRUE(Until([this] { return Frame().IsActive(); }));
}

TEST_F(WaitingInMainWindow, EscDoes) {
  OpenWithMuchToDo();
  User user(PressEscape);
  dialogs.Use(Execute);
  Run(Command::mnuAllModify);
  EXPECT_TRUE(user.acted);
  ExpectTheRowsSoFar();
  EXPECT_TRUE(Until([this] { return Frame().IsActive(); }));
}

TEST_F(WaitingInMainWindow, BothDoWithTheDialogOpen) {
  OpenWithMuchToDo();
  for (const auto act : {ClickCancel, PressEscape}) {
    for (int i = 1; i <= kRows; ++i) List().SetRenameName(i, "1");
    User user(act);
    dialogs.Use([](wxDialog& dialog) {
      dynamic_cast<wxCheckBox&>(*wxWindow::FindWindowByName("chkNonUnload", &dialog)).SetValue(true);
      Execute(dialog);
      EXPECT_TRUE(dialog.IsShown());
      EXPECT_TRUE(Until([&] { return dialog.IsActive(); }));
      dialog.EndModal(wxID_CANCEL);
    });
    Run(Command::mnuAllModify);
    EXPECT_TRUE(user.acted);
    ExpectTheRowsSoFar();
  }
}

TEST_F(WaitingInMainWindow, ClosingTheMainWindowDoesAndItCloses) {
  OpenWithMuchToDo();
  User user([this](wxWindow&) { return !Frame().Close(); });
  dialogs.Use(Execute);
  Run(Command::mnuAllModify);
  EXPECT_TRUE(user.acted);
  EXPECT_TRUE(Until([this] { return !IsOpen(); }));
}

}  // namespace
}  // namespace quillon::test
