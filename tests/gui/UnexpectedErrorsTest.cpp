#include <wx/app.h>
#include <wx/button.h>
#include <wx/timer.h>
#include <wx/utils.h>

#include <new>
#include <stdexcept>

#include "app/window/frmMainPlayer.h"
#include "controls/WxText.h"
#include "gui/MainWindow.h"
#include "gui/Settle.h"

/// Uncaught exceptions: they are reported, and no edits are lost.
namespace quillon::test {
namespace {

using Boxes = std::vector<Message>;
using enum Command;

Message Told(const std::string& caption, const std::string& known) {
  return {caption, "予期しないエラーが発生しました\n" + known, MessageIcon::kStop, MessageButtons::kOk};
}

void RunOutOfMemory() {
  throw std::bad_alloc();
}

void Break() {
  throw std::runtime_error("it broke");
}

class UnexpectedErrors : public MainWindowTest {
 protected:
  void SetUp() override {
    for (const char* name : {"a", "b", "c"}) WriteMidi(std::string(name) + ".mid", "Title of " + std::string(name));
  }

  /// Edits the names of all rows.
  void OpenEdited(const OptionValues& options = Options()) {
    OpenFolder(options);
    for (int i = 1; i <= List().Count(); ++i) List().SetRenameName(i, "edited " + std::to_string(i));
    Settle();
  }

  /// Expects that the error has been reported, and that the next command can run.
  void ExpectUsable() {
    EXPECT_TRUE(Until([this] { return dialogs.AllShown(); })) << "the error is not told";
    Drain();
    EXPECT_FALSE(App().IsRunning());
    EXPECT_TRUE(Frame().IsEnabled());
    EXPECT_FALSE(wxIsBusy());
    EXPECT_TRUE(Box().IsEditable());
    EXPECT_EQ(Names(), (std::vector<std::string>{"edited 1", "edited 2", "edited 3"}));
    Run(mnuChkRem);
    EXPECT_EQ(List().CheckedCount(), 0);
  }
};

TEST_F(UnexpectedErrors, OfACommandAreReportedWithItsNameAndTheEditsStay) {
  OpenEdited();
  dialogs.AnswerAfter(RunOutOfMemory);
  dialogs.Answer();
  Run(mnuReload);
  ExpectUsable();
  EXPECT_EQ(dialogs.TakeShown().back(), Told("再読み込み", "メモリが足りません"));
}

TEST_F(UnexpectedErrors, OfEveryKindAreReportedWithTheirDetails) {
  struct Case {
    std::function<void()> thrown;
    std::string known;
  };
  const std::vector<Case> cases = {{RunOutOfMemory, "メモリが足りません"},
                                   {Break, "it broke"},
                                   {[] { throw std::runtime_error(""); }, "std::runtime_error"},
                                   {[] { throw 42; }, "int"}};
  OpenEdited();
  for (const Case& c : cases) {
    SCOPED_TRACE(c.known);
    dialogs.AnswerAfter(c.thrown);
    dialogs.Answer();
    Run(mnuAllRename);
    ExpectUsable();
    EXPECT_EQ(dialogs.TakeShown().back(), Told("すべてタイトルにリネーム", c.known));
  }
}

TEST_F(UnexpectedErrors, InTheMiddleOfApplyingLeaveTheWindowEnabledAndTheRowsBeforeApplied) {
  OptionValues options = Options();
  options.system.suppressConfirmations = true;
  OpenEdited(options);
  folder.Write("edited 2.mid");
  dialogs.AnswerAfter(Break);
  dialogs.Answer();
  Run(mnuAllUpdate);
  ExpectUsable();
  EXPECT_EQ(dialogs.TakeShown().back(), Told("すべてファイルに適応", "it broke"));
  EXPECT_EQ(List().Row(1).Location(), folder.At("edited 1.mid"));
  EXPECT_TRUE(folder.Exists("c.mid")) << "the rest was not begun";
}

TEST_F(UnexpectedErrors, InADialogAreReportedOverItAndItGoesOn) {
  OpenEdited();
  dialogs.Use([&](wxDialog& dialog) {
    dialogs.Answer();
    auto* const button = dynamic_cast<wxButton*>(wxWindow::FindWindowByName("cmdCancel", &dialog));
    ASSERT_NE(button, nullptr);
    dialog.CallAfter(&Break);
    dialog.CallAfter([&dialog, button] {
      EXPECT_TRUE(dialog.IsShown());
      wxCommandEvent click(wxEVT_BUTTON, button->GetId());
      click.SetEventObject(button);
      button->GetEventHandler()->AddPendingEvent(click);
    });
  });
  Run(mnuOption);
  ExpectUsable();
  EXPECT_EQ(dialogs.TakeShown(), Boxes({Told("オプション", "it broke")}));
}

TEST_F(UnexpectedErrors, WithoutACommandAreReportedUnderTheProgramsName) {
  OpenEdited();
  dialogs.Answer();
  Frame().CallAfter(&Break);
  ExpectUsable();
  EXPECT_EQ(dialogs.TakeShown(), Boxes({Told(FromWx(wxTheApp->GetAppDisplayName()), "it broke")}));
}

TEST_F(UnexpectedErrors, OfOneEventDoNotDropTheOtherEvents) {
  OpenEdited();
  dialogs.Answer();
  bool behind = false;
  Frame().CallAfter(&Break);
  Frame().CallAfter([&] { behind = true; });
  ExpectUsable();
  EXPECT_TRUE(behind);
}

TEST_F(UnexpectedErrors, OfATickAreReportedOnceAndStopTheTimer) {
  OpenEdited();
  int ticks = 0;
  const frmMainControls controls;
  FraMusicPlayer player(controls, [&] {
    ++ticks;
    Break();
  });
  dialogs.AnswerAfter([&] { EXPECT_TRUE(SettleUntil([&] { return ticks == 2; })) << ticks; });
  player.SetTimer(10);
  ExpectUsable();
  wxMilliSleep(100);
  Drain();
  EXPECT_EQ(ticks, 2);
  EXPECT_EQ(dialogs.TakeShown().size(), 1U);
}

TEST_F(UnexpectedErrors, WhileOneIsShownAreReportedOnce) {
  OpenEdited();
  dialogs.AnswerAfter([&] {
    for (int i = 0; i < 20; ++i) Frame().CallAfter(&Break);
    Settle();
  });
  Frame().CallAfter(&Break);
  ExpectUsable();
  EXPECT_EQ(dialogs.TakeShown().size(), 1U);
}

TEST_F(UnexpectedErrors, OfTheMessageBoxItselfAreNotReported) {
  OpenEdited();
  dialogs.AnswerAfter(RunOutOfMemory);
  Frame().CallAfter(&Break);
  ExpectUsable();
  EXPECT_EQ(dialogs.TakeShown().size(), 1U);
}

}  // namespace
}  // namespace quillon::test
