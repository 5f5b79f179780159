#include <wx/checkbox.h>
#include <wx/timer.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <algorithm>
#include <filesystem>

#include "controls/WxText.h"
#include "gui/MainWindow.h"
#include "rename/RegexReplace.h"
#include "support/Rows.h"

/// Long runs, and the wait window that cancels them.
namespace quillon::test {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

wxWindow* WaitWindow() {
  for (wxWindow* window : wxTopLevelWindows) {
    if (window->GetName() == "frmWait" && window->IsShown()) return window;
  }
  return nullptr;
}

/// A user who acts once the wait window has been open for a moment and `ready` holds, while the run processes messages.
class User final : public wxTimer {
 public:
  explicit User(
      std::function<bool(wxWindow&)> act, std::function<bool()> ready = [] { return true; })
      : act_(std::move(act)), ready_(std::move(ready)) {
    Start(kPause);
  }

  void Notify() override {
    wxWindow* const window = WaitWindow();
    if (window != nullptr && !acted && ++seen_ > kPatience && ready_()) acted = act_(*window);
  }

  bool acted = false;

 private:
  static constexpr int kPause = 20;
  static constexpr int kPatience = 10;

  std::function<bool(wxWindow&)> act_;
  std::function<bool()> ready_;
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
  static constexpr const char* kFind = "^(.)(.*)$";
  static constexpr const char* kReplacement = "$2$1x";

  /// Many rows, and a rule that takes minutes for all of them.
  void OpenWithMuchToDo() {
    OptionValues options = Options();
    options.modify.method = FindMethod::kRegex;
    options.modify.rules[0] = {true, kFind, kReplacement};
    options.rename.applyRules = true;
    Open(options);
    for (int i = 1; i <= kRows; ++i) {
      FileItem row = RowFor(folder.At(std::to_string(i) + "/1.mid"));
      row.title = "1";
      List().Add(row);
    }
    Drain();
  }

  /// What the rule makes of a name when it is applied once per row.
  [[nodiscard]] static std::string DoneName() {
    RegexLibrary library;
    std::string name = "1";
    for (int i = 0; i < kRows; ++i) name = *RegexReplace(name, kFind, kReplacement, "gk", library);
    return name;
  }

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
    std::fill_n(expected.begin(), done, DoneName());
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
  User user(ClickCancel, [this] { return DoneRows() > 0; });
  dialogs.Use(Execute);
  Run(Command::mnuAllModify);
  EXPECT_TRUE(user.acted);
  ExpectTheRowsSoFar();
  EXPECT_EQ(WaitWindow(), nullptr);
  EXPECT_TRUE(dialogs.TakeShown().empty());
  EXPECT_FALSE(wxIsBusy());
  EXPECT_TRUE(Until([this] { return Frame().IsActive(); }));
}

TEST_F(WaitingInMainWindow, EscEndsALongRunAndTheRowsDoneStay) {
  OpenWithMuchToDo();
  User user(PressEscape, [this] { return DoneRows() > 0; });
  dialogs.Use(Execute);
  Run(Command::mnuAllModify);
  EXPECT_TRUE(user.acted);
  ExpectTheRowsSoFar();
  EXPECT_TRUE(Until([this] { return Frame().IsActive(); }));
}

TEST_F(WaitingInMainWindow, ButtonAndEscEndALongRunWithTheDialogOpen) {
  OpenWithMuchToDo();
  for (const auto act : {ClickCancel, PressEscape}) {
    for (int i = 1; i <= kRows; ++i) List().SetRenameName(i, "1");
    User user(act, [this] { return DoneRows() > 0; });
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

TEST_F(WaitingInMainWindow, ClosingTheMainWindowEndsALongRunAndItCloses) {
  OpenWithMuchToDo();
  User user([this](wxWindow&) { return !Frame().Close(); });
  dialogs.Use(Execute);
  Run(Command::mnuAllModify);
  EXPECT_TRUE(user.acted);
  EXPECT_TRUE(Until([this] { return !IsOpen(); }));
}

TEST_F(WaitingInMainWindow, ButtonAndEscEndALongRunOfTitlesThatTheRulesEdit) {
  OpenWithMuchToDo();
  for (const auto act : {ClickCancel, PressEscape}) {
    for (int i = 1; i <= kRows; ++i) List().SetRenameName(i, "1");
    User user(act, [this] { return DoneRows() > 0; });
    dialogs.Answer();
    Run(Command::mnuAllRename);
    EXPECT_TRUE(user.acted);
    ExpectTheRowsSoFar();
    EXPECT_EQ(WaitWindow(), nullptr);
    EXPECT_EQ(dialogs.TakeShown().size(), 1u) << "the question alone";
    EXPECT_FALSE(wxIsBusy());
    EXPECT_TRUE(Until([this] { return Frame().IsActive(); }));
  }
}

TEST_F(WaitingInMainWindow, ClosingTheMainWindowEndsARunOfTitlesAndItCloses) {
  OpenWithMuchToDo();
  User user([this](wxWindow&) { return !Frame().Close(); });
  dialogs.Answer();
  Run(Command::mnuAllRename);
  EXPECT_TRUE(user.acted);
  EXPECT_TRUE(Until([this] { return !IsOpen(); }));
}

/// A folder on another volume, where nearly every Linux system has one.
class MovingInMainWindow : public MainWindowTest {
 protected:
  static constexpr std::uintmax_t kSize = std::uintmax_t{64} << 30u;

  void SetUp() override {
    std::error_code failed;
    if (!fs::create_directory(there_, failed)) GTEST_SKIP() << "no second volume is known here";
    // A sparse file: copying it takes long, and nothing is written.
    fs::resize_file(folder.Write("a.bin"), kSize, failed);
    if (failed) GTEST_SKIP() << "the volume holds no large file";
    folder.Write("b.bin", "b");
    const std::string probe = home.Write("probe");
    fs::rename(probe, there_ + "probe", failed);
    if (!failed) GTEST_SKIP() << "both folders are on one volume";
  }

  void TearDown() override {
    MainWindowTest::TearDown();
    std::error_code ignored;
    fs::remove_all(there_, ignored);
  }

  void ExpectNothingMoved() const {
    EXPECT_TRUE(fs::is_empty(there_));
    EXPECT_EQ(fs::file_size(folder.At("a.bin")), kSize);
    EXPECT_EQ(Locations(List()), (Texts{folder.At("a.bin"), folder.At("b.bin")}));
  }

  const std::string there_ = "/dev/shm/quillon-moving-" + std::to_string(wxGetProcessId()) + "/";
};

TEST_F(MovingInMainWindow, ALongMoveOfSeveralFilesIsShownAndCancelled) {
  OpenFolder();
  Run(Command::mnuDirShow);
  wxWindow* const beside = wxWindow::FindWindowByName("frmDirShow");
  ASSERT_NE(beside, nullptr);
  for (const auto act : {ClickCancel, PressEscape}) {
    std::string path;
    bool mainEnabled = true;
    bool besideEnabled = true;
    User user([&](wxWindow& window) {
      path = FromWx(wxWindow::FindWindowByName("lblPath", &window)->GetLabel());
      mainEnabled = Frame().IsEnabled();
      besideEnabled = beside->IsEnabled();
      return act(window);
    });
    dialogs.ChooseFolder(there_);
    dialogs.Answer();
    Run(Command::mnuAllMove);
    EXPECT_TRUE(user.acted);
    EXPECT_TRUE(path.ends_with("a.bin")) << path;
    EXPECT_FALSE(mainEnabled);
    EXPECT_FALSE(besideEnabled);
    EXPECT_EQ(
        dialogs.TakeShown(),
        (std::vector<Message>{{"ファイル移動",
                               "0 個のファイルの移動が完了しました\n移動を中止しました。残りのファイルは元のままです",
                               MessageIcon::kInformation, MessageButtons::kOk}}));
    ExpectNothingMoved();
    EXPECT_EQ(WaitWindow(), nullptr);
    EXPECT_TRUE(Frame().IsEnabled());
    EXPECT_TRUE(beside->IsEnabled());
    EXPECT_TRUE(Until([this] { return Frame().IsActive(); }));
  }
}

TEST_F(MovingInMainWindow, ALongMoveOfOneFileIsShownAndCancelled) {
  OpenFolder();
  SelectRow(1);
  User user(ClickCancel);
  dialogs.ChooseFolder(there_);
  dialogs.Answer();
  Run(Command::mnuThisMove);
  EXPECT_TRUE(user.acted);
  EXPECT_EQ(dialogs.TakeShown(), (std::vector<Message>{{"ファイル移動", "移動を中止しました。ファイルは元のままです",
                                                        MessageIcon::kInformation, MessageButtons::kOk}}));
  ExpectNothingMoved();
}

// A box of the main window would lie behind the wait window.
TEST_F(MainWindowTest, AFailureOfARunOpensOverTheWaitWindow) {
  folder.Write("a.txt", "");
  folder.Write("b.txt", "");
  OptionValues options = Options();
  options.update.automatic = true;
  OpenFolder(options);
  bool overWaitWindow = false;
  dialogs.Use([&](wxDialog& box) {
    overWaitWindow = box.GetParent() != nullptr && box.GetParent() == WaitWindow();
    box.EndModal(wxID_OK);
  });
  OptionValues::Modify rules;
  rules.rules[0] = {.active = true, .find = "b", .replacement = "a"};
  App().ModifyRows(Rows::kAll, rules);
  EXPECT_TRUE(overWaitWindow);
  EXPECT_TRUE(folder.Exists("b.txt"));
}

}  // namespace
}  // namespace quillon::test
