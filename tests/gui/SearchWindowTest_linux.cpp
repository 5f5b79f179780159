#include <wx/frame.h>
#include <wx/utils.h>

#include <utility>

#include "filelist/window/frmFolderRef.h"
#include "gui/MainWindow.h"
#include "gui/Settle.h"

namespace quillon::test {
namespace {

constexpr unsigned long kMapped = 200;

class SearchWindowOnGtk : public MainWindowTest {};

TEST_F(SearchWindowOnGtk, StaysHiddenAfterASearchThatEndsAsItAppearsAndIsReadyForTheNext) {
  Open(Options());
  LongSearch& search = Frame().Search();
  wxWindow& window = search.Window();
  for (int round = 0; round < 2; ++round) {  // GTK shows a window differently the very first time
    bool ended = false;
    const auto end = [&](wxShowEvent& event) {
      event.Skip();
      if (!event.IsShown() || std::exchange(ended, true)) return;
      (void)wxGetMousePosition();  // is answered after the window system has received the window
      wxMilliSleep(kMapped);       // and has shown it, which the program learns later
      search.End();
    };
    window.Bind(wxEVT_SHOW, end);
    search.Begin("", "target");
    EXPECT_TRUE(Until([&] { return ended; }));
    Settle();
    EXPECT_FALSE(window.IsShown()) << round;
    window.Unbind(wxEVT_SHOW, end);
  }
  search.Begin("", "target");
  EXPECT_TRUE(Until([&] { return window.IsShownOnScreen(); }));
  search.End();
}

TEST_F(SearchWindowOnGtk, WaitsForItsOwner) {
  Open(Options());
  wxFrame owner(nullptr, wxID_ANY, "owner");
  LongSearch search(owner, [] {});
  search.Begin("", "target");
  Settle();
  wxMilliSleep(kMapped);
  Settle();
  EXPECT_FALSE(search.Window().IsShown());
  owner.Show();
  EXPECT_TRUE(Until([&] { return search.Window().IsShownOnScreen(); }));
  search.End();
}

}  // namespace
}  // namespace quillon::test
