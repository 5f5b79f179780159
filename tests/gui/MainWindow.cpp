#include "gui/MainWindow.h"

#include <wx/eventfilter.h>
#include <wx/menu.h>
#include <wx/statusbr.h>
#include <wx/stopwatch.h>
#include <wx/utils.h>

#include "controls/WxText.h"
#include "gui/Settle.h"
#include "platform/Shell.h"
#include "support/MediaBuilders.h"

namespace quillon::test {
namespace {

constexpr int kTries = 5;  // of ten seconds
constexpr long kAnswer = 150;
constexpr long kRest = 20;
constexpr unsigned long kPause = 2;

/// Notices when the release of a simulated key or button has reached the program.
class Release final : public wxEventFilter {
 public:
  Release() { wxEvtHandler::AddFilter(this); }
  ~Release() override { wxEvtHandler::RemoveFilter(this); }
  Release(const Release&) = delete;
  Release& operator=(const Release&) = delete;

  int FilterEvent(wxEvent& event) override {
    if (event.GetEventType() == wxEVT_KEY_UP || event.GetEventType() == wxEVT_LEFT_UP) seen_ = true;
    return Event_Skip;
  }

  /// Waits for a limited time only, because not every release is seen: a native editor passes none on.
  void Await() const {
    Process(kAnswer, true);
    Process(kRest, false);
  }

 private:
  void Process(long milliseconds, bool untilSeen) const {
    const wxStopWatch watch;
    while (watch.Time() < milliseconds && !(untilSeen && seen_)) {
      wxYield();
      wxMilliSleep(kPause);
    }
  }

  bool seen_ = false;
};

wxPoint Centre(const wxRect& rect) {
  return rect.GetTopLeft() + wxPoint(rect.width / 2, rect.height / 2);
}

}  // namespace

bool Until(const std::function<bool()>& condition) {
  for (int i = 0; i < kTries; ++i) {
    if (SettleUntil(condition)) return true;
  }
  return false;
}

OptionValues MainWindowTest::Options() {
  OptionValues options;
  options.find.filterByExtension = false;
  options.list.deleteTo = DeleteTo::kNowhere;
  return options;
}

void MainWindowTest::TearDown() {
  if (!IsOpen()) return;
  EXPECT_TRUE(Until([this] { return !App().IsRunning(); }));
  Frame().Close(true);
  EXPECT_TRUE(Until([this] { return !IsOpen(); }));
}

void MainWindowTest::Open(const OptionValues& options, const std::vector<std::string>& paths) {
  const auto keep = [this](const std::string& target, wxWindow&) {
    opened.push_back(target);
    return kShellOpened;
  };
  window_ = opensForReal ? new frmMain(options, Paths()) : new frmMain(options, Paths(), keep);
  Frame().CallAfter([this, paths] { Frame().Start(paths); });
  ASSERT_TRUE(Until([this] { return !IsOpen() || (Frame().IsActive() && Frame().IsShownOnScreen()); }));
  ASSERT_TRUE(IsOpen());
  Settle();
}

void MainWindowTest::CloseWindow() {
  Frame().Close();
  EXPECT_TRUE(Until([this] { return !IsOpen(); }));
}

void MainWindowTest::Drain() const {
  for (int i = 0; i < 3 && IsOpen(); ++i) {
    const auto done = std::make_shared<bool>(false);
    Frame().CallAfter([done] { *done = true; });
    EXPECT_TRUE(Until([&] { return !IsOpen() || (*done && !App().IsRunning()); }));
  }
}

void MainWindowTest::Post(Command command) const {
  wxCommandEvent event(wxEVT_MENU, frmMain::IdOf(command));
  event.SetEventObject(&Frame());
  wxPostEvent(&Frame(), event);
}

void MainWindowTest::Run(Command command) const {
  Post(command);
  Drain();
}

std::string NativeText(lvwFiles& list, int index, Column column) {
  std::string text = SpokenText(list, index, column);
  const std::string_view mark = kPendingSpoken;
  if (text.ends_with(mark)) text.resize(text.size() - mark.size());
  return text;
}

std::string MainWindowTest::Text(const std::string& name) const {
  return FromWx(Get<wxTextCtrl>(name).GetValue());
}

std::string MainWindowTest::Status(int panel) const {
  return FromWx(Frame().GetStatusBar()->GetStatusText(panel));
}

bool MainWindowTest::MenuEnabled(Command command) const {
  return Frame().GetMenuBar()->IsEnabled(frmMain::IdOf(command));
}

std::vector<std::string> MainWindowTest::Names() const {
  std::vector<std::string> names;
  for (int i = 1; i <= List().Count(); ++i) names.emplace_back(List().Row(i).renameName);
  return names;
}

std::vector<int> MainWindowTest::CheckedRows() const {
  std::vector<int> rows;
  for (int i = 1; i <= List().Count(); ++i) {
    if (List().Row(i).checked) rows.push_back(i);
  }
  return rows;
}

std::vector<int> MainWindowTest::SelectedRows() const {
  std::vector<int> rows;
  for (int i = 1; i <= List().Count(); ++i) {
    if (List().Row(i).selected) rows.push_back(i);
  }
  return rows;
}

void MainWindowTest::Key(int key, int modifiers) const {
  const Release release;
  wxUIActionSimulator().Char(key, modifiers);
  release.Await();
  Drain();
}

void MainWindowTest::Click(wxPoint screen) const {
  wxUIActionSimulator mouse;
  mouse.MouseMove(screen);
  wxYield();
  const Release release;
  mouse.MouseClick();
  release.Await();
  Drain();
}

void MainWindowTest::ClickRow(int index) const {
  const wxRect row = NativeRowRect(Frame().List(), index);
  Click(row.GetTopLeft() + wxPoint(row.width / 2, row.height / 2));
}

void MainWindowTest::ClickOn(const std::string& control) const {
  Click(Centre(Get<wxWindow>(control).GetScreenRect()));
}

void MainWindowTest::ClickModePanel(int quarters) const {
  wxRect panel;
  Frame().GetStatusBar()->GetFieldRect(kModePanel, panel);
  Click(Frame().GetStatusBar()->ClientToScreen({panel.x + panel.width * quarters / 4, Centre(panel).y}));
}

std::string MainWindowTest::FocusName() {
  const wxWindow* const focus = wxWindow::FindFocus();
  return focus == nullptr ? "" : FromWx(focus->GetName());
}

void MainWindowTest::FocusList() const {
  Frame().List().Window().SetFocus();
  EXPECT_TRUE(Until([] { return FocusName() == "lvwFiles"; })) << FocusName();
  Drain();
}

void MainWindowTest::FocusBox() const {
  Box().SetFocus();
  EXPECT_TRUE(Until([] { return FocusName() == "txtAlterTitle"; })) << FocusName();
  Drain();
}

void MainWindowTest::SelectRow(int index) const {
  FocusList();
  Key(WXK_HOME);
  for (int i = 1; i < index; ++i) Key(WXK_DOWN);
  EXPECT_EQ(SelectedRows(), std::vector<int>{index});
}

std::string MainWindowTest::Midi(const std::string& title, const std::string& copyright) {
  return SimpleMidiFile(title, copyright, 1);
}

std::string MainWindowTest::WriteMidi(const std::string& name, const std::string& title,
                                      const std::string& copyright) const {
  return folder.Write(name, Midi(title, copyright));
}

}  // namespace quillon::test
