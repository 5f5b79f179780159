#include <wx/infobar.h>

#include "controls/WxText.h"
#include "gui/MainWindow.h"
#include "gui/Settle.h"
#include "support/SongBuilders.h"

namespace quillon {
namespace {

class MoreTagsBarTest : public test::MainWindowTest {
 protected:
  void WriteSong(const std::string& name, const std::string& title) {
    folder.Write(name, test::FlacFile({{"TITLE", title}, {"ARTIST", "歌手"}}));
  }

  [[nodiscard]] wxInfoBar* Bar() const {
    return dynamic_cast<wxInfoBar*>(wxWindow::FindWindowByName("barMoreTags", &Frame()));
  }
  [[nodiscard]] bool BarIsShown() const { return Bar() != nullptr && Bar()->IsShown(); }
  [[nodiscard]] wxRect ListPlace() const { return Frame().List().Window().GetRect(); }

  /// Sends the event that the bar gets from its button on either system.
  void Press(int button) const {
    wxCommandEvent event(wxEVT_BUTTON, button);
    event.SetEventObject(Bar());
    Bar()->HandleWindowEvent(event);
    Drain();
  }
};

TEST_F(MoreTagsBarTest, IsNotMadeWithoutNeed) {
  folder.Write("a.txt", "");
  OpenFolder();
  EXPECT_EQ(Bar(), nullptr);
}

TEST_F(MoreTagsBarTest, StandsAboveTheListAndGoesAgain) {
  WriteSong("a.flac", "朝");
  Open(Options());
  const wxRect before = ListPlace();
  App().LoadPaths({folder.Path()});
  ASSERT_TRUE(BarIsShown());
  ASSERT_TRUE(test::Until([&] { return ListPlace().y > 0; }));
  EXPECT_EQ(Bar()->GetRect().y, 0);
  EXPECT_GE(ListPlace().y, Bar()->GetRect().GetBottom());
  EXPECT_EQ(ListPlace().GetBottom(), before.GetBottom());
  EXPECT_EQ(Bar()->GetRect().width, before.width);

  Press(wxID_CLOSE);
  EXPECT_FALSE(BarIsShown());
  EXPECT_EQ(ListPlace(), before);
  EXPECT_EQ(List().Row(1).title, "---");
  EXPECT_FALSE(App().Options().extra.readMoreTags);
}

TEST_F(MoreTagsBarTest, ItsButtonReadsTheTagsAndKeepsTheOptionForTheNextStart) {
  WriteSong("a.flac", "朝");
  OpenFolder();
  ASSERT_TRUE(BarIsShown());
  Press(wxID_OPEN);
  EXPECT_FALSE(BarIsShown());
  EXPECT_EQ(List().Row(1).title, "朝");
  EXPECT_EQ(Text("txtTitle"), "朝");
  CloseWindow();
  EXPECT_NE(home.Read("Quillon.ini").find("[Extra]\r\nReadMoreTags=1\r\n"), std::string::npos);
}

TEST_F(MoreTagsBarTest, FollowsTheWidthOfTheWindow) {
  WriteSong("a.flac", "朝");
  OpenFolder();
  ASSERT_TRUE(BarIsShown());
  Frame().SetSize(Frame().GetSize() + wxSize(60, 40));
  EXPECT_TRUE(test::Until([&] { return Bar()->GetRect().width == ListPlace().width; }));
}

}  // namespace
}  // namespace quillon
