#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/display.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/platinfo.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <algorithm>
#include <string>
#include <vector>

#include "controls/Twips.h"
#include "controls/WxText.h"
#include "gui/Settle.h"
#include "gui/SystemView.h"
#include "platform/desktop/NativeWindow.h"
#include "platform/multimedia/basMCIControl.h"
#include "player/MusicPlayer.h"
#include "player/PlayerRecorders.h"
#include "player/window/frmMoviePlayer.h"
#include "support/FakeDevice.h"
#include "support/MemoryFileSystem.h"
#include "support/Recorders.h"
#include "support/Replies.h"
#include "support/Rows.h"

namespace quillon {
namespace {

using test::Settle;
using test::SettleUntil;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using Texts = std::vector<std::string>;

constexpr std::int32_t kLength = 90000;
const wxSize kPicture = {320, 240};

/// The movie window of a player on a device without pictures.
class MovieOfAPlayer : public testing::Test, public MovieWindow {
 protected:
  void SetUp() override {
    ASSERT_DOUBLE_EQ(main->GetContentScaleFactor(), 1.0) << "sizes are those of an unscaled screen";
    main->SetSize(100, 100, 500, 400);
    edit->SetFocus();
    main->Show();
    ASSERT_TRUE(SettleUntil([this] { return main->IsActive() && edit->HasFocus(); }));
    menuKeys.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
      for (const int key : keysInMenu) hand.Char(key);
      if (whileMenuIsOpen) whileMenuIsOpen();
    });
    AddRow("clip.avi", "320 240");
  }

  void TearDown() override {
    player.Shutdown();
    main->Destroy();
    Settle();
  }

  // MovieWindow
  bool Show() override {
    window = new frmMoviePlayer({*main, player, ports.boxes, onTop});
    window->Bind(wxEVT_MENU_OPEN, [this](const wxMenuEvent& event) { OnMenuOpen(event); });
    if (window->Load()) return true;
    Close();
    return false;
  }
  void Close() override {
    if (window != nullptr) window->Leave();
    window = nullptr;
  }
  void SetButton(PlayButton button) override {
    if (window != nullptr) window->SetButton(button);
  }
  void SetPosition(std::int32_t position) override { window->SetPosition(position); }
  void SetTime(const std::string& text) override { window->SetTime(text); }

  void AddRow(const std::string& name, const std::string& picture) {
    const std::string path = Folder() + name;
    FileItem row = test::RowFor(path);
    row.type = "AVI";
    list.Add(row);
    files.AddFile(path, "x");
    device.AddFile(path, kLength, picture);
  }

  static std::string Folder() { return SystemPathStyle() == PathStyle::kWindows ? "C:\\m\\" : "/m/"; }

  /// Plays the last row, whose window then opens, and clears the record of what was sent.
  void Open() {
    list.SelectOnly(list.Count());
    player.Choose(list.Row(list.Count()).Location());
    player.cmdPlay();
    ASSERT_NE(window, nullptr);
    ASSERT_TRUE(SettleUntil([this] { return window->IsShownOnScreen(); }));
    Settle();
    opening = Sent();
  }

  void Activate() {
    window->Raise();
    window->SetFocus();
    ASSERT_TRUE(SettleUntil([this] { return window->IsActive(); }));
    Settle();
  }

  /// The commands about the picture since the last call.
  Texts Sent() {
    Texts sent;
    for (const std::string& command : device.TakeSent()) {
      if (command.starts_with("window ") || command.starts_with("where ") || command.starts_with("put ")) {
        sent.push_back(command);
      }
    }
    return sent;
  }

  static std::string Put(wxSize size) {
    return "put MCI destination at 0 0 " + std::to_string(size.x) + " " + std::to_string(size.y);
  }

  template <class Control = wxWindow>
  [[nodiscard]] Control& Get(const char* name) const {
    auto* const control = dynamic_cast<Control*>(wxWindow::FindWindowByName(name, window));
    if (control == nullptr) throw std::runtime_error(std::string("no such control: ") + name);
    return *control;
  }
  [[nodiscard]] wxSize Picture() const { return Get("picMovie").GetSize(); }
  [[nodiscard]] PositionSlider& Slider() const { return Get<PositionSlider>("sldPosition"); }
  [[nodiscard]] std::string Time() const { return FromWx(Get<wxStaticText>("lblTime").GetLabel()); }
  [[nodiscard]] std::string Mode() { return test::TextOf(device.Send("status mci mode", 16)); }

  /// Chooses the item of the size menu.
  void ChooseSize(std::size_t item) const {
    wxMenu* const menu = window->GetMenuBar()->GetMenu(0);
    wxCommandEvent event(wxEVT_MENU, menu->FindItemByPosition(item)->GetId());
    window->ProcessWindowEvent(event);
    Settle();
  }

  /// The captions of the menu that a right-button press on the picture opens; the keys are pressed in it.
  Texts PopUp(const std::vector<int>& keys = {WXK_ESCAPE}) {
    keysInMenu = keys;
    captions.clear();
    wxWindow& picture = Get("picMovie");
    hand.MouseMove(picture.ClientToScreen(wxPoint(40, 40)));
    Settle();
    hand.MouseDown(wxMOUSE_BTN_RIGHT);
    hand.MouseUp(wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(SettleUntil([this] { return !captions.empty() && !menuKeys.IsRunning(); }));
    Settle();
    return captions;
  }

  void OnMenuOpen(const wxMenuEvent& event) {
    if (event.GetMenu() == nullptr) return;
    for (const wxMenuItem* item : event.GetMenu()->GetMenuItems()) captions.push_back(FromWx(item->GetItemLabel()));
    menuKeys.StartOnce(300);
  }

  bool onTop = false;
  Texts opening;
  wxWeakRef<frmMoviePlayer> window;
  wxFrame* main = new wxFrame(nullptr, wxID_ANY, "main");
  wxTextCtrl* edit = new wxTextCtrl(new wxPanel(main), wxID_ANY);
  wxUIActionSimulator hand;
  Texts captions;
  wxTimer menuKeys;
  std::vector<int> keysInMenu;
  std::function<void()> whileMenuIsOpen;
  FileList list;
  OptionValues options;
  test::FakeDevice device;
  test::MemoryFileSystem files;
  basMCIControl mci{device, files};
  test::Recorders ports;
  test::PanelControls panel;
  MusicPlayer player{
      list, options, {mci, panel, *this, ports.panels, ports.boxes, ports.window, [](const std::string&) {
                        return 42;
                      }}};
};

TEST_F(MovieOfAPlayer, GivesTheDeviceItsPictureBox) {
  Open();
  ASSERT_EQ(opening.size(), 4U) << testing::PrintToString(opening);
  EXPECT_EQ(opening[0], "where MCI source");
  const std::uintptr_t handle = MakeNumberedWindow(Get("picMovie").GetHandle());
  EXPECT_NE(handle, 0U);
  EXPECT_EQ(opening[1], "window MCI handle " + std::to_string(handle));
  EXPECT_EQ(opening[2], "where MCI source");
  EXPECT_EQ(opening[3], Put(kPicture));
  EXPECT_EQ(Picture(), kPicture) << "its natural size";
}

TEST_F(MovieOfAPlayer, OpensTheSameWayASecondTime) {
  Open();
  const wxSize size = window->GetSize();
  player.cmdStop();
  Settle();
  EXPECT_EQ(window, nullptr);
  Open();
  EXPECT_EQ(window->GetSize(), size);
  EXPECT_EQ(opening.back(), Put(kPicture));
}

TEST_F(MovieOfAPlayer, IsNamedAfterItsFile) {
  Open();
  EXPECT_EQ(FromWx(window->GetTitle()), "clip.avi - " + FromWx(wxTheApp->GetAppDisplayName()));
}

TEST_F(MovieOfAPlayer, LeavesTheKeyboardWhereItIs) {
  if ((wxPlatformInfo::Get().GetOperatingSystemId() & wxOS_WINDOWS) != 0) {
    GTEST_SKIP() << "under Wine the display's window manager activates every new window";
  }
  Open();
  EXPECT_TRUE(main->IsActive());
  EXPECT_TRUE(edit->HasFocus());
}

TEST_F(MovieOfAPlayer, IsOnTopWhenItIsToldTo) {
  Open();
  EXPECT_FALSE(test::IsAboveOthers(*window));
  EXPECT_TRUE(window->HasFlag(wxFRAME_FLOAT_ON_PARENT));
  player.cmdStop();
  Settle();
  onTop = true;
  Open();
  EXPECT_TRUE(SettleUntil([this] { return test::IsAboveOthers(*window); }));
}

TEST_F(MovieOfAPlayer, ShowsTheTimeOfTheMainWindow) {
  Open();
  EXPECT_EQ(Slider().GetMax(), kLength);
  EXPECT_EQ(Time(), std::string(" ") + kIdleTime);
  device.Pass(30000);
  player.timMCIChecker();
  EXPECT_EQ(Slider().GetValue(), 30000);
  EXPECT_EQ(Time(), " 00:30 / 01:30");
}

TEST_F(MovieOfAPlayer, DoesNotOpenForAFileWithoutAPicture) {
  device.scripted["where mci source"] = "0 0 0 0";
  list.SelectOnly(1);
  player.Choose(list.Row(1).Location());
  player.cmdPlay();
  EXPECT_EQ(window, nullptr);
  ASSERT_EQ(ports.boxes.Shown().size(), 1U);
  EXPECT_EQ(ports.boxes.Shown()[0].icon, MessageIcon::kStop);
}

TEST_F(MovieOfAPlayer, StretchesThePictureWithTheWindow) {
  Open();
  window->SetSize(window->GetSize() + wxSize(77, 55));
  EXPECT_TRUE(SettleUntil([this] { return Picture() == kPicture + wxSize(77, 55); }));
  EXPECT_EQ(Sent().back(), Put(kPicture + wxSize(77, 55)));
  const wxRect frame = Get("fraPlayer").GetRect();
  EXPECT_EQ(frame.y, Picture().y + 1);
  EXPECT_LE(frame.GetRight(), window->GetClientSize().x);
  EXPECT_LE(frame.GetBottom(), window->GetClientSize().y);
}

TEST_F(MovieOfAPlayer, SnapsBackToItsLeastHeight) {
  Open();
  const int least = ToPixels(*window, 1950);
  window->SetSize(-1, least - 50);
  EXPECT_TRUE(SettleUntil([&] { return window->GetSize().y == least; })) << window->GetSize().y;
  EXPECT_EQ(window->GetMinSize().y, least);
  EXPECT_GT(Picture().y, 20);
  EXPECT_EQ(Sent().back(), Put(Picture()));
}

TEST_F(MovieOfAPlayer, HasRoomForTheTimeHoweverSmallItIs) {
  Open();
  for (const char* time : {" 00:30 / 01:30", " 35791:23 / 35791:23"}) {
    window->SetSize(window->GetMinSize());
    Settle();
    window->SetTime(time);
    Settle();
    const wxRect label = Get("lblTime").GetRect();
    EXPECT_GE(label.width, Get("lblTime").GetBestSize().x);
    EXPECT_LE(label.GetRight(), Get("fraPlayer").GetSize().x);
    EXPECT_LE(label.GetBottom(), Get("fraPlayer").GetSize().y);
    EXPECT_GT(label.x, Slider().GetRect().GetRight()) << time;
    EXPECT_GE(Slider().GetRect().width, ToPixels(*window, 590)) << time;
    EXPECT_LE(Slider().GetRect().GetBottom(), Get("fraPlayer").GetSize().y);
  }
}

TEST_F(MovieOfAPlayer, KeepsItsSizeWhileItIsMinimised) {
  Open();
  window->Iconize();
  Settle();
  EXPECT_THAT(Sent(), IsEmpty());
  window->Restore();
  EXPECT_TRUE(SettleUntil([this] { return !window->IsIconized(); }));
  Settle();
  EXPECT_EQ(Picture(), kPicture);
}

TEST_F(MovieOfAPlayer, TakesTheSizesOfItsMenu) {
  Open();
  const wxMenuBar& bar = *window->GetMenuBar();
  EXPECT_THAT(FromWx(bar.GetMenuLabel(0)), StartsWith("画面サイズ"));
  ChooseSize(1);
  EXPECT_EQ(Picture(), kPicture * 2);
  EXPECT_EQ(Sent().back(), Put(kPicture * 2));
  ChooseSize(0);
  EXPECT_EQ(Picture(), kPicture);
  EXPECT_EQ(Sent().back(), Put(kPicture));
}

TEST_F(MovieOfAPlayer, OpensBesideTheMainWindow) {
  const wxRect place(100, 100, 500, 400);
  main->SetSize(place);
  ASSERT_TRUE(SettleUntil([&] { return main->GetRect() == place; })) << "the system has given it its size";
  Open();
  const wxRect owner = main->GetRect();
  EXPECT_GE(window->GetRect().x, owner.x + owner.width);
  EXPECT_FALSE(owner.Intersects(window->GetRect()));
  EXPECT_TRUE(wxDisplay(main).GetGeometry().Contains(window->GetRect()));
}

TEST_F(MovieOfAPlayer, ChecksItsSizeInTheMenuAndDisablesThoseLargerThanTheScreen) {
  Open();
  const auto items = [this] {
    std::string text;
    for (const wxMenuItem* item : window->GetMenuBar()->GetMenu(0)->GetMenuItems()) {
      text += item->IsChecked() ? '*' : item->IsEnabled() ? '+' : '-';
    }
    return text;
  };
  EXPECT_EQ(items(), "*+-") << "four times is 1280 and its frame";
  ChooseSize(1);
  EXPECT_TRUE(SettleUntil([&] { return items() == "+*-"; })) << items();
  ChooseSize(1);
  EXPECT_EQ(items(), "+*-") << "the same once more";
  window->SetSize(window->GetSize() + wxSize(10, 0));
  EXPECT_TRUE(SettleUntil([&] { return items() == "++-"; })) << items();
}

TEST_F(MovieOfAPlayer, HasAButtonThatPausesAndGoesOn) {
  Open();
  auto& button = Get<wxButton>("cmdMoviePlay");
  EXPECT_EQ(FromWx(button.GetLabel()), "一時停止");
  for (const char* const mode : {"paused", "playing"}) {
    hand.MouseMove(button.ClientToScreen(wxPoint(button.GetSize().x / 2, button.GetSize().y / 2)));
    Settle();
    hand.MouseClick();
    EXPECT_TRUE(SettleUntil([&] { return Mode() == mode; })) << Mode();
    EXPECT_EQ(FromWx(button.GetLabel()), std::string(mode) == "paused" ? "再生" : "一時停止");
  }
  EXPECT_FALSE(button.GetRect().Intersects(Slider().GetRect()));
  EXPECT_LE(button.GetRect().GetBottom(), Get("fraPlayer").GetSize().y);
}

TEST_F(MovieOfAPlayer, CanBeLargerThanTheScreen) {
  Open();
  ChooseSize(2);
  const wxSize screen = wxDisplay(window.get()).GetGeometry().GetSize();
  EXPECT_GE(Picture().x, std::min(kPicture.x * 4, screen.x - 20));
  EXPECT_GE(Picture().y, std::min(kPicture.y * 4, screen.y - 150));
  EXPECT_EQ(Sent().back(), Put(Picture()));
}

TEST_F(MovieOfAPlayer, SaysWhenASizeIsTooLarge) {
  AddRow("large.avi", "640 480");
  Open();
  const wxSize before = window->GetSize();
  ChooseSize(2);  // 38,400 twips wide
  ASSERT_EQ(ports.boxes.Shown().size(), 1U);
  EXPECT_EQ(ports.boxes.Shown()[0].icon, MessageIcon::kExclamation);
  EXPECT_EQ(window->GetSize(), before);
  EXPECT_THAT(Sent(), IsEmpty());
  ChooseSize(1);
  EXPECT_EQ(Picture(),
            wxSize(1280, 960).x > wxDisplay(window.get()).GetGeometry().width ? Picture() : wxSize(1280, 960))
      << "the window is usable";
}

TEST_F(MovieOfAPlayer, ShowsALargePictureAsLargeAsTheScreenAllows) {
  AddRow("huge.avi", "3840 2160");
  Open();
  const wxRect screen = wxDisplay(main).GetClientArea();
  EXPECT_LE(window->GetSize().x, screen.width);
  EXPECT_LE(window->GetSize().y, screen.height);
  EXPECT_GT(Picture().x, screen.width * 3 / 4);
  EXPECT_NEAR(Picture().x / 16.0, Picture().y / 9.0, 1.0);
  EXPECT_TRUE(screen.Contains(window->GetRect().GetTopLeft()));
}

TEST_F(MovieOfAPlayer, ShowsATinyPictureInItsShape) {
  AddRow("tiny.avi", "40 30");
  Open();
  EXPECT_GT(Picture().x, 100);
  EXPECT_NEAR(Picture().x / 4.0, Picture().y / 3.0, 1.0);
}

TEST_F(MovieOfAPlayer, PausesAndStopsFromItsMenu) {
  Open();
  EXPECT_THAT(PopUp({WXK_DOWN, WXK_RETURN}), ElementsAre("一時停止(&P)", "停止(&S)"));
  EXPECT_TRUE(SettleUntil([this] { return Mode() == "paused"; })) << Mode();
  EXPECT_THAT(PopUp({WXK_DOWN, WXK_RETURN}), ElementsAre("再生(&P)", "停止(&S)"));
  EXPECT_TRUE(SettleUntil([this] { return Mode() == "playing"; })) << Mode();
  EXPECT_THAT(PopUp(), ElementsAre("一時停止(&P)", "停止(&S)"));
  EXPECT_EQ(Mode(), "playing") << "left with Esc";
  PopUp({WXK_DOWN, WXK_DOWN, WXK_RETURN});
  EXPECT_TRUE(SettleUntil([this] { return window == nullptr; }));
  EXPECT_EQ(device.OpenFile("mci"), "");
}

TEST_F(MovieOfAPlayer, ClosesWithItsMenuOpenWhenTheFilmEnds) {
  Open();
  const wxWeakRef<frmMoviePlayer> movie(window.get());
  whileMenuIsOpen = [this] { player.cmdStop(); };
  EXPECT_THAT(PopUp({}), ElementsAre("一時停止(&P)", "停止(&S)"));
  EXPECT_TRUE(SettleUntil([&] { return movie == nullptr; })) << "the menu's own loop has ended";
  EXPECT_EQ(device.OpenFile("mci"), "");
}

TEST_F(MovieOfAPlayer, StopsWhatPlaysWhenItIsClosed) {
  Open();
  window->Close();
  Settle();
  EXPECT_EQ(window, nullptr);
  EXPECT_EQ(device.OpenFile("mci"), "");
  EXPECT_EQ(panel.button, PlayButton::kPlay);
  EXPECT_EQ(panel.interval, 0);
  EXPECT_EQ(panel.time, kIdleTime);
  EXPECT_TRUE(ports.log.Has("panel player: 停止： clip.avi"));
  EXPECT_THAT(player.Paths().playingFilePath, IsEmpty());
}

TEST_F(MovieOfAPlayer, StopsWhatIsPausedWhenItIsClosed) {
  Open();
  player.cmdPlay();
  ASSERT_EQ(Mode(), "paused");
  window->Close();
  Settle();
  EXPECT_EQ(window, nullptr);
  EXPECT_EQ(device.OpenFile("mci"), "");
}

TEST_F(MovieOfAPlayer, IsUsedByKeys) {
  Open();
  Activate();
  hand.Char(WXK_SPACE);
  EXPECT_TRUE(SettleUntil([this] { return Mode() == "paused"; }));
  hand.Char(WXK_SPACE);
  EXPECT_TRUE(SettleUntil([this] { return Mode() == "playing"; }));
  hand.Char(WXK_ESCAPE);
  EXPECT_TRUE(SettleUntil([this] { return window == nullptr; }));
  EXPECT_EQ(device.OpenFile("mci"), "");
}

TEST_F(MovieOfAPlayer, KeepsItsKeysFromTheMainWindow) {
  int heard = 0;
  main->Bind(wxEVT_CHAR_HOOK, [&heard](wxKeyEvent& event) {
    ++heard;
    event.Skip();
  });
  hand.Char('A');
  ASSERT_TRUE(SettleUntil([&heard] { return heard == 1; }));
  Open();
  Activate();
  hand.Char(WXK_RIGHT);
  hand.Char('A');
  Settle();
  EXPECT_EQ(heard, 1);
}

TEST_F(MovieOfAPlayer, SeeksWithItsSlider) {
  Open();
  Activate();
  const wxSize size = Slider().GetSize();
  hand.MouseMove(Slider().ClientToScreen(wxPoint(size.x / 2, size.y / 2)));
  Settle();
  device.TakeSent();
  hand.MouseDown();
  Settle();
  EXPECT_TRUE(player.SliderSeeking());
  const int held = Slider().GetValue();
  EXPECT_NEAR(held, kLength / 2, kLength / 20);
  EXPECT_EQ(FromWx(Get("tip").GetChildren().front()->GetLabel()), MusicPlayer::SliderTip(held));
  device.Pass(1000);
  player.timMCIChecker();
  EXPECT_EQ(Slider().GetValue(), held) << "it is the user's";
  hand.MouseUp();
  Settle();
  EXPECT_FALSE(player.SliderSeeking());
  EXPECT_THAT(device.TakeSent(), testing::Contains("seek MCI to " + std::to_string(held)).Times(1));
  EXPECT_EQ(Mode(), "playing");
  EXPECT_EQ(Slider().GetValue(), held);
  EXPECT_EQ(panel.position, held);
}

}  // namespace
}  // namespace quillon
