#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/dcclient.h>
#include <wx/frame.h>
#include <wx/hyperlink.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/Product.h"
#include "controls/WxText.h"
#include "dialogs/VersionText.h"
#include "dialogs/window/frmVerInfo.h"
#include "gui/Settle.h"

namespace quillon {
namespace {

using test::Settle;
using test::SettleUntil;
using testing::ElementsAre;
using testing::IsEmpty;

class VersionBox : public testing::Test {
 protected:
  void SetUp() override {
    main->Show();
    ASSERT_TRUE(SettleUntil([this] { return main->IsActive(); }));
  }

  void TearDown() override {
    dialog.reset();
    main->Destroy();
    Settle();
  }

  void Make(bool regexAvailable = true, bool front = false) {
    dialog = std::make_unique<frmVerInfo>(main, regexAvailable, front,
                                          [this](const std::string& address) { opened.push_back(address); });
  }

  void Open() {
    Make();
    dialog->Show();
    ASSERT_TRUE(SettleUntil([this] { return dialog->IsActive(); }));
    Settle();
  }

  template <class Control>
  Control& Get(const std::string& name) {
    auto* const control = dynamic_cast<Control*>(wxWindow::FindWindowByName(name, dialog.get()));
    if (control == nullptr) throw std::runtime_error("no such control: " + name);
    return *control;
  }

  std::string Label(const std::string& name) { return FromWx(Get<wxStaticText>(name).GetLabelText()); }
  bool HasFocus(const std::string& name) {
    return SettleUntil([&] { return wxWindow::FindFocus() == &Get<wxWindow>(name); });
  }
  void Focus(const std::string& name) {
    Get<wxWindow>(name).SetFocus();
    ASSERT_TRUE(HasFocus(name));
    Settle();
  }

  void Click(const std::string& name) {
    auto& control = Get<wxWindow>(name);
    const wxSize size = control.GetSize();
    hand.MouseMove(control.ClientToScreen(wxPoint(size.x / 2, size.y / 2)));
    Settle();
    hand.MouseClick();
  }

  /// Shows the dialog as the program does; returns false when `act`, called while it is open, does not close it.
  bool ClosesOn(const std::function<void()>& act) {
    bool closed = true;
    dialog->CallAfter([&] {
      Settle();
      act();
      closed = SettleUntil([this] { return !dialog->IsShown(); });
      if (!closed) dialog->EndModal(wxID_NONE);
    });
    dialog->ShowModal();
    return closed;
  }

  wxFrame* main = new wxFrame(nullptr, wxID_ANY, "main");
  std::unique_ptr<frmVerInfo> dialog;
  std::vector<std::string> opened;
  wxUIActionSimulator hand;
};

TEST_F(VersionBox, SaysWhichProductItIs) {
  Make();
  EXPECT_EQ(FromWx(dialog->GetTitle()), "バージョン情報");
  EXPECT_EQ(Label("lblAppName"), kProductName);
  EXPECT_EQ(Label("lblVer"), VersionText());
  EXPECT_EQ(Label("txtCopyright"), kProductCopyright);
  EXPECT_EQ(FromWx(Get<wxHyperlinkCtrl>("txtURL").GetLabel()), kProductUrl);
  EXPECT_EQ(FromWx(Get<wxButton>("cmdOK").GetLabelText()), "OK");
}

TEST_F(VersionBox, ShowsTheNameLargeAndBold) {
  Make();
  const wxFont name = Get<wxStaticText>("lblAppName").GetFont();
  const wxFont usual = Get<wxStaticText>("lblVer").GetFont();
  EXPECT_GT(name.GetFractionalPointSize(), usual.GetFractionalPointSize() * 1.5);
  EXPECT_GT(name.GetNumericWeight(), usual.GetNumericWeight());
}

TEST_F(VersionBox, ShowsTheProgramsIcon) {
  Make();
  const wxBitmap icon = Get<wxStaticBitmap>("picIcon").GetBitmap();
  ASSERT_TRUE(icon.IsOk());
  EXPECT_EQ(icon.GetLogicalSize(), dialog->FromDIP(wxSize(48, 48)));
  const wxImage image = icon.ConvertToImage();
  EXPECT_GT(image.CountColours(3), 2u) << "empty";
}

TEST_F(VersionBox, SaysWhetherTheLibraryIsThere) {
  for (const bool available : {true, false}) {
    Make(available);
    EXPECT_EQ(FromWx(Get<wxTextCtrl>("txtInfo").GetValue()), InformationText(available));
  }
}

TEST_F(VersionBox, ShowsItsInformationWhole) {
  Open();
  auto& box = Get<wxTextCtrl>("txtInfo");
  EXPECT_FALSE(box.IsEditable());
  wxClientDC dc(&box);
  dc.SetFont(box.GetFont());
  const wxSize text = dc.GetMultiLineTextExtent(box.GetValue());
  EXPECT_GE(box.GetClientSize().x, text.x);
  EXPECT_GE(box.GetClientSize().y, text.y);
  const wxPoint last = box.PositionToCoords(box.GetLastPosition() - 1);
  EXPECT_GT(last.y, text.y / 2);
  EXPECT_LT(last.y, text.y * 9 / 10) << "a line was broken";
}

TEST_F(VersionBox, StaysAboveAllWindowsWhenTheMainWindowDoes) {
  Make(true, false);
  EXPECT_FALSE(dialog->HasFlag(wxSTAY_ON_TOP));
  Make(true, true);
  EXPECT_TRUE(dialog->HasFlag(wxSTAY_ON_TOP));
}

TEST_F(VersionBox, AClickOnTheAddressOpensIt) {
  Open();
  EXPECT_THAT(opened, IsEmpty());
  Click("txtURL");
  EXPECT_TRUE(SettleUntil([this] { return !opened.empty(); }));
  Settle();
  EXPECT_THAT(opened, ElementsAre(kProductUrl));
  EXPECT_TRUE(dialog->IsShown());
}

TEST_F(VersionBox, TheAddressIsReachedAndOpenedWithKeys) {
  Open();
  ASSERT_TRUE(HasFocus("cmdOK"));
  hand.Char(WXK_TAB);
  ASSERT_TRUE(HasFocus("txtURL"));
  hand.Char(WXK_RETURN);
  EXPECT_TRUE(SettleUntil([this] { return !opened.empty(); }));
  Settle();
  EXPECT_THAT(opened, ElementsAre(kProductUrl));
  EXPECT_TRUE(dialog->IsShown());
}

TEST_F(VersionBox, TheInformationCanBeSelectedWithKeys) {
  Open();
  Focus("txtInfo");
  hand.Char('A', wxMOD_CONTROL);
  EXPECT_TRUE(
      SettleUntil([this] { return FromWx(Get<wxTextCtrl>("txtInfo").GetStringSelection()) == InformationText(true); }));
}

TEST_F(VersionBox, EnterAndEscapeCloseIt) {
  for (const int key : {WXK_RETURN, WXK_ESCAPE}) {
    for (const char* focus : {"cmdOK", "txtInfo"}) {
      Make();
      EXPECT_TRUE(ClosesOn([&] {
        Focus(focus);
        hand.Char(key);
      })) << key
          << " in " << focus;
    }
  }
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(VersionBox, EscapeClosesItFromTheAddress) {
  Make();
  EXPECT_TRUE(ClosesOn([&] {
    Focus("txtURL");
    hand.Char(WXK_ESCAPE);
  }));
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(VersionBox, OkClosesIt) {
  Make();
  EXPECT_TRUE(ClosesOn([this] { Click("cmdOK"); }));
}

}  // namespace
}  // namespace quillon
