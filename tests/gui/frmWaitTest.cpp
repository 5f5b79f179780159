#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/frame.h>
#include <wx/gauge.h>
#include <wx/stattext.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <memory>
#include <string>

#include "controls/WxText.h"
#include "gui/Settle.h"
#include "paths/basFileControl.h"
#include "rename/window/frmWait.h"
#include "support/Wine.h"

namespace quillon {
namespace {

using test::Settle;
using test::SettleUntil;

class WaitWindow : public testing::Test {
 protected:
  void SetUp() override {
    main = new wxFrame(nullptr, wxID_ANY, "main");
    main->Show();
    SettleUntil([this] { return main->IsActive(); });
  }

  void TearDown() override {
    main->Destroy();
    Settle();
  }

  static wxDialog* Window() {
    for (wxWindow* window : wxTopLevelWindows) {
      if (window->GetName() == "frmWait" && window->IsShown()) return dynamic_cast<wxDialog*>(window);
    }
    return nullptr;
  }

  static std::string Label(const char* name) {
    const auto* const label = dynamic_cast<wxStaticText*>(wxWindow::FindWindowByName(name, Window()));
    return label == nullptr ? "no such label" : FromWx(label->GetLabelText());
  }

  static int Width(const std::string& text) {
    return wxWindow::FindWindowByName("lblPath", Window())->GetTextExtent(ToWx(text)).x;
  }

  wxFrame* main = nullptr;
};

TEST_F(WaitWindow, ShowsTheProgressUntilTheEnd) {
  frmWait wait(main);
  EXPECT_EQ(Window(), nullptr);
  wait.Begin("リネーム名を編集中です...\r\nしばらくお待ちください", "  ファイル名を編集中...");
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(Label("lblHeadline"), "リネーム名を編集中です...\nしばらくお待ちください");
  EXPECT_EQ(Label("lblLine"), "  ファイル名を編集中...");
  wait.Update(37, "37% 完了しました", "/music/a & b.mid");
  EXPECT_EQ(Label("lblPercent"), "37% 完了しました");
  EXPECT_EQ(Label("lblPath"), "/music/a & b.mid");
  EXPECT_EQ(dynamic_cast<wxGauge*>(wxWindow::FindWindowByName("gauge", Window()))->GetValue(), 37);
  wait.Update(100, "全部 12", "");
  EXPECT_EQ(Label("lblPath"), "");
  EXPECT_EQ(dynamic_cast<wxGauge*>(wxWindow::FindWindowByName("gauge", Window()))->GetValue(), 100)
      << "whatever the text says";
  wait.End();
  EXPECT_EQ(Window(), nullptr);
  wait.Update(1, "1% 完了しました", "late");
  wait.End();
  EXPECT_EQ(Window(), nullptr);
}

TEST_F(WaitWindow, ShortensPathsToItsWidth) {
  frmWait wait(main);
  wait.Begin("a\r\nb", "c");
  const std::string separator(1, PathSeparator());
  std::string path;
  for (int i = 0; i < 30; ++i) path += separator + "フォルダ" + std::to_string(i);
  path += separator + "last.mid";
  wait.Update(5, "5% 完了しました", path);
  const std::string shown = Label("lblPath");
  EXPECT_NE(shown.find("..."), std::string::npos) << shown;
  EXPECT_TRUE(shown.ends_with(separator + "last.mid")) << shown;
  const int available = wxWindow::FindWindowByName("lblPath", Window())->GetClientSize().x;
  EXPECT_LE(Width(shown), available);
  EXPECT_GT(Width(shown), available / 2) << "no more is left out than needed: " << shown;
}

TEST_F(WaitWindow, KeepsItsSizeWhateverItShows) {
  frmWait wait(main);
  wait.Begin("a\r\nb", "c");
  Settle();  // the window manager reports the frame's size
  const wxSize before = Window()->GetSize();
  wait.Update(5, "5% 完了しました", "/" + std::string(3000, 'x') + ".mid");
  Settle();
  EXPECT_EQ(Window()->GetSize(), before);
}

TEST_F(WaitWindow, TheUserCannotCloseItAndCanGoOnWithTheMainWindow) {
  frmWait wait(main);
  wait.Begin("a\r\nb", "c");
  Settle();
  EXPECT_FALSE(Window()->IsModal());
  EXPECT_TRUE(main->IsEnabled());
  EXPECT_FALSE(Window()->Close());
  EXPECT_NE(Window(), nullptr);
}

TEST_F(WaitWindow, TheButtonCancels) {
  frmWait wait(main);
  EXPECT_FALSE(wait.Cancelled());
  wait.Begin("a\r\nb", "c");
  Settle();
  wxWindow& button = *wxWindow::FindWindowByName("cmdCancel", Window());
  EXPECT_EQ(FromWx(button.GetLabel()), "中止");
  wxUIActionSimulator mouse;
  mouse.MouseMove(button.GetScreenPosition() + wxPoint(button.GetSize().x / 2, button.GetSize().y / 2));
  wait.Update(1, "1% 完了しました", "/a");
  mouse.MouseClick();
  // During a running command, messages are only processed by the window's own updates.
  for (int i = 0; i < 500 && !wait.Cancelled(); ++i) {
    wxMilliSleep(10);
    wait.Update(1, "1% 完了しました", "/a");
  }
  EXPECT_TRUE(wait.Cancelled());
  EXPECT_FALSE(button.IsEnabled());
  EXPECT_NE(Window(), nullptr) << "it stays until the run has ended";
  wait.End();
  EXPECT_TRUE(wait.Cancelled());
  EXPECT_TRUE(SettleUntil([this] { return main->IsActive(); }));
  wait.Begin("a\r\nb", "c");
  EXPECT_FALSE(wait.Cancelled());
}

TEST_F(WaitWindow, EscCancelsALongRun) {
  frmWait wait(main);
  wait.Begin("a\r\nb", "c");
  // Wine leaves it to the window manager which window becomes active.
  EXPECT_TRUE(main->IsActive() || test::RunsUnderWine()) << "a quick run leaves the keyboard where it is";
  ASSERT_TRUE(SettleUntil([] { return Window()->IsActive(); }));
  wxUIActionSimulator().Char(WXK_ESCAPE);
  EXPECT_TRUE(SettleUntil([&] { return wait.Cancelled(); }));
  wait.End();
  EXPECT_TRUE(SettleUntil([this] { return main->IsActive(); }));
}

TEST_F(WaitWindow, IsAnsweredWhileAllOtherWindowsAreDisabled) {
  frmWait wait(main);
  auto* const other = new wxFrame(main, wxID_ANY, "other");
  other->Show();
  Settle();
  auto disabled = std::make_unique<wxWindowDisabler>();
  wait.Begin("a\r\nb", "c");
  EXPECT_FALSE(main->IsEnabled());
  EXPECT_FALSE(other->IsEnabled());
  EXPECT_TRUE(Window()->IsEnabled());
  for (int i = 0; i < 500 && !Window()->IsActive(); ++i) {
    wxMilliSleep(10);
    wait.Update(1, "1% 完了しました", "/a");
  }
  wxUIActionSimulator().Char(WXK_ESCAPE);
  for (int i = 0; i < 500 && !wait.Cancelled(); ++i) {
    wxMilliSleep(10);
    wait.Update(1, "1% 完了しました", "/a");
  }
  EXPECT_TRUE(wait.Cancelled());
  disabled.reset();
  wait.End();
  EXPECT_TRUE(SettleUntil([this] { return main->IsActive(); }));
}

TEST_F(WaitWindow, GivesTheKeyboardBackToADisabledDialog) {
  frmWait wait(main);
  wxDialog dialog(main, wxID_ANY, "dialog");
  auto* const button = new wxButton(&dialog, wxID_ANY, "button");
  bool hadKeyboard = false;
  bool cancelled = false;
  bool gaveItBack = false;
  dialog.CallAfter([&] {
    SettleUntil([&] { return dialog.IsActive(); });
    dialog.Disable();
    wait.Begin("a\r\nb", "c");
    hadKeyboard = SettleUntil([] { return Window()->IsActive(); });
    wxUIActionSimulator().Char(WXK_ESCAPE);
    cancelled = SettleUntil([&] { return wait.Cancelled(); });
    wait.End();
    dialog.Enable();
    button->SetFocus();
    gaveItBack = SettleUntil([&] { return dialog.IsActive(); });
    dialog.EndModal(wxID_CANCEL);
  });
  dialog.ShowModal();
  EXPECT_TRUE(hadKeyboard);
  EXPECT_TRUE(cancelled);
  EXPECT_TRUE(gaveItBack);
}

TEST_F(WaitWindow, IsOnTopWhenItsParentIs) {
  frmWait wait(main);
  wait.Begin("a\r\nb", "c");
  EXPECT_FALSE(Window()->HasFlag(wxSTAY_ON_TOP));
  main->SetWindowStyleFlag(main->GetWindowStyleFlag() | wxSTAY_ON_TOP);
  wait.Begin("a\r\nb", "c");
  EXPECT_TRUE(Window()->HasFlag(wxSTAY_ON_TOP));
}

TEST_F(WaitWindow, OpensOverTheDialogThatIsOpen) {
  frmWait wait(main);
  wxDialog dialog(main, wxID_ANY, "dialog");
  const wxWindow* parent = nullptr;
  dialog.CallAfter([&] {
    wait.Begin("a\r\nb", "c");
    parent = Window()->GetParent();
    wait.End();
    dialog.EndModal(wxID_CANCEL);
  });
  dialog.ShowModal();
  EXPECT_EQ(parent, &dialog);
}

TEST_F(WaitWindow, IsDestroyedWithItsParent) {
  frmWait wait(main);
  wait.Begin("a\r\nb", "c");
  main->Destroy();
  Settle();
  wait.Update(50, "50% 完了しました", "/a");
  wait.End();
  EXPECT_EQ(Window(), nullptr);
  main = new wxFrame(nullptr, wxID_ANY, "another");
}

}  // namespace
}  // namespace quillon
