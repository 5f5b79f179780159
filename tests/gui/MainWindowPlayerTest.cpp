#include <wx/bmpbuttn.h>
#include <wx/image.h>
#include <wx/tglbtn.h>

#include "controls/WxText.h"
#include "gui/MenuKeys.h"
#include "gui/PlayerWindow.h"
#include "gui/ScreenPixel.h"
#include "gui/Settle.h"

/// The player in the main window: what its controls show is tested, what can be heard is not.
namespace quillon::test {
namespace {

constexpr const char* kIdleLabel = "00:00 / 00:00";

/// The action that cmdPlay offers.
std::string PlayLabel() {
  return FromWx(wxWindow::FindWindowByName("cmdPlay")->GetLabel());
}

/// Every point of cmdPlay's picture.
std::string PlayPicture() {
  const auto& button = dynamic_cast<const wxBitmapButton&>(*wxWindow::FindWindowByName("cmdPlay"));
  const wxImage image = button.GetBitmap().ConvertToImage();
  const auto points = static_cast<std::size_t>(image.GetWidth()) * static_cast<std::size_t>(image.GetHeight());
  const auto text = [](const unsigned char* data, std::size_t size) { return std::string(data, data + size); };
  return text(image.GetData(), points * 3) + (image.HasAlpha() ? text(image.GetAlpha(), points) : "");
}

TEST_F(PlayerOfMainWindow, ADoubleClickPlaysAndTheControlsFollow) {
  WriteWave("曲 a.wav", 4000);
  OpenFolder();
  EXPECT_EQ(Time(), kIdleLabel);
  DoubleClickRow(1);
  EXPECT_TRUE(Shows("再生中： 曲 a.wav")) << Status(kSelectionPanel);
  EXPECT_NEAR(Length(), 4000, 50);
  EXPECT_TRUE(PositionPasses(1200));
  EXPECT_TRUE(Time() == "00:01 / 00:04" || Time() == "00:02 / 00:04") << Time();
}

TEST_F(PlayerOfMainWindow, TheButtonsPauseGoOnAndStop) {
  WriteWave("a.wav", 6000);
  OpenFolder();
  EXPECT_EQ(PlayLabel(), "再生");
  ClickOn("cmdPlay");
  EXPECT_TRUE(Shows("再生中： a.wav"));
  EXPECT_EQ(PlayLabel(), "一時停止");
  EXPECT_TRUE(PositionPasses(400));
  ClickOn("cmdPlay");
  EXPECT_TRUE(Shows("一時停止： a.wav"));
  EXPECT_EQ(PlayLabel(), "再生");
  const int paused = Position();
  Wait(600);
  EXPECT_EQ(Position(), paused);
  ClickOn("cmdPlay");
  EXPECT_TRUE(Shows("再生中： a.wav"));
  EXPECT_TRUE(PositionPasses(paused));
  ClickOn("cmdStop");
  EXPECT_TRUE(Shows("停止： a.wav"));
  EXPECT_EQ(Position(), 0);
  EXPECT_EQ(Time(), kIdleLabel);
}

TEST_F(PlayerOfMainWindow, ThePlayButtonShowsWhatItWouldDo) {
  WriteWave("a.wav", 6000);
  OpenFolder();
  const std::string idle = PlayPicture();
  ClickOn("cmdPlay");
  EXPECT_TRUE(Shows("再生中： a.wav"));
  const std::string playing = PlayPicture();
  EXPECT_NE(playing, idle);
  ClickOn("cmdPlay");
  EXPECT_TRUE(Shows("一時停止： a.wav"));
  EXPECT_EQ(PlayPicture(), idle);
  ClickOn("cmdPlay");
  EXPECT_TRUE(Shows("再生中： a.wav"));
  EXPECT_EQ(PlayPicture(), playing);
  ClickOn("cmdStop");
  EXPECT_TRUE(Shows("停止： a.wav"));
  EXPECT_EQ(PlayPicture(), idle);
}

TEST_F(PlayerOfMainWindow, KeysPauseGoOnStopAndRepeat) {
  WriteWave("a.wav", 6000);
  OpenFolder();
  DoubleClickRow(1);
  EXPECT_TRUE(PositionPasses(200));
  wxUIActionSimulator keys;
  keys.Char(WXK_F7);
  EXPECT_TRUE(Shows("一時停止： a.wav")) << Status(kSelectionPanel);
  keys.Char(WXK_F7);
  EXPECT_TRUE(Shows("再生中： a.wav"));
  keys.Char(WXK_F8);
  EXPECT_TRUE(Shows("停止： a.wav"));
  auto& repeat = Get<wxToggleButton>("chkRepeat");
  const wxMenuItem& item = *Frame().GetMenuBar()->FindItem(frmMain::IdOf(Command::mnuRepeat));
  for (const bool on : {true, false}) {
    keys.Char(WXK_F9);
    EXPECT_TRUE(SettleUntil([&] { return repeat.GetValue() == on; })) << on;
    EXPECT_EQ(item.IsChecked(), on);
  }
  ClickOn("chkRepeat");
  EXPECT_TRUE(SettleUntil([&] { return item.IsChecked(); }));
}

TEST_F(PlayerOfMainWindow, TheSliderSeeksByTheMouse) {
  WriteWave("a.wav", 20000);
  OpenFolder();
  ClickOn("cmdPlay");
  EXPECT_TRUE(PositionPasses(200));
  wxUIActionSimulator mouse;
  mouse.MouseMove(SliderPoint(Position() / 20000.0));
  wxYield();
  mouse.MouseDown();
  Settle();
  EXPECT_TRUE(App().Player().SliderSeeking());
  for (const double share : {0.2, 0.4, 0.6}) {
    mouse.MouseMove(SliderPoint(share));
    Settle();
  }
  const int held = Position();
  EXPECT_EQ(FromWx(wxWindow::FindWindowByName("tip")->GetChildren().front()->GetLabel()), MusicPlayer::SliderTip(held));
  EXPECT_NEAR(held, 12000, 1500);
  Wait(300);
  EXPECT_EQ(Position(), held) << "the slider is the user's";
  mouse.MouseUp();
  EXPECT_TRUE(Until([&] { return !App().Player().SliderSeeking(); }));
  EXPECT_TRUE(PositionPasses(held));
  EXPECT_LT(Position(), held + 2000);
  EXPECT_TRUE(Shows("再生中： a.wav"));
}

TEST_F(PlayerOfMainWindow, TheSliderSeeksByKeys) {
  WriteWave("a.wav", 60000);
  OpenFolder();
  ClickOn("cmdPlay");
  EXPECT_TRUE(PositionPasses(200));
  Get<wxWindow>("sldPosition").SetFocus();
  Key(WXK_PAGEDOWN);
  EXPECT_TRUE(Until([&] { return !App().Player().SliderSeeking(); }));
  Wait(200);
  EXPECT_GT(Position(), 9000) << "a large step";
  Key(WXK_HOME);
  Wait(200);
  EXPECT_LT(Position(), 5000);
}

TEST_F(PlayerOfMainWindow, AShortFileStopsAtItsEnd) {
  WriteWave("a.wav", 500);
  OpenFolder();
  DoubleClickRow(1);
  EXPECT_TRUE(Shows("停止： a.wav")) << Status(kSelectionPanel);
  EXPECT_EQ(Position(), 0);
}

TEST_F(PlayerOfMainWindow, AShortFileIsRepeated) {
  WriteWave("a.wav", 1500);
  OpenFolder();
  ClickOn("chkRepeat");
  EXPECT_TRUE(Get<wxToggleButton>("chkRepeat").GetValue());
  DoubleClickRow(1);
  EXPECT_TRUE(Shows("再生中： a.wav"));
  int rewound = 0;
  for (int last = 0, waited = 0; waited < 100 && rewound < 2; ++waited) {
    Wait(50);
    if (Position() < last) ++rewound;
    last = Position();
  }
  EXPECT_EQ(rewound, 2);
  EXPECT_EQ(Status(kSelectionPanel), "再生中： a.wav");
  ClickOn("cmdStop");
  EXPECT_TRUE(Shows("停止： a.wav"));
}

TEST_F(PlayerOfMainWindow, ContinuousPlayGoesThroughTheListAndStartsOver) {
  for (const char* name : {"a.wav", "b.txt", "c.wav"}) WriteWave(name, 500);
  OptionValues options = Options();
  options.player.continuous = true;
  OpenFolder(options);
  DoubleClickRow(1);
  EXPECT_TRUE(Shows("再生中： c.wav")) << "past the text file";
  EXPECT_TRUE(Shows("再生中： a.wav")) << "behind the last comes the first";
  EXPECT_EQ(SelectedRows(), std::vector<int>{1}) << "the selection stays";
}

TEST_F(PlayerOfMainWindow, AClickOnTheSelectedRowBringsThePlayerBackToIt) {
  WriteWave("a.wav", 500);
  WriteWave("b.wav", 60000);
  OptionValues options = Options();
  options.player.continuous = true;
  OpenFolder(options);
  for (const bool menu : {false, true}) {
    DoubleClickRow(1);
    EXPECT_TRUE(Shows("再生中： b.wav"));
    ASSERT_EQ(SelectedRows(), std::vector<int>{1});
    Wait(1000);  // otherwise the next click could be the double click's third
    App().Options().player.continuous = false;
    if (menu) {
      FocusList();
      const MenuKeys keys({WXK_DOWN, WXK_RETURN});
      Key(WXK_F10, wxMOD_SHIFT);
      EXPECT_TRUE(Until([&] { return !keys.IsRunning(); }));
    } else {
      ClickRow(1);
      ClickOn("cmdStop");
      ClickOn("cmdPlay");
    }
    EXPECT_TRUE(Shows("停止： a.wav")) << Status(kSelectionPanel);
    App().Options().player.continuous = true;
  }
}

TEST_F(PlayerOfMainWindow, ContinuousPlayGoesPastABrokenFile) {
  WriteWave("a.wav", 500);
  folder.Write("b.wav", "This is no sound at all, whatever its name says.");
  WriteWave("c.wav", 500);
  OptionValues options = Options();
  options.player.continuous = true;
  OpenFolder(options);
  DoubleClickRow(1);
  EXPECT_TRUE(Shows("再生できません： b.wav")) << Status(kSelectionPanel);
  EXPECT_EQ(PlayLabel(), "再生");
  EXPECT_TRUE(Shows("再生中： c.wav")) << Status(kSelectionPanel);
  EXPECT_TRUE(PositionPasses(200));
}

TEST_F(PlayerOfMainWindow, ThePlayingRowIsRenamed) {
  WriteWave("a.wav", 5000);
  OpenFolder();
  DoubleClickRow(1);
  EXPECT_TRUE(PositionPasses(200));
  FocusBox();
  Box().SelectAll();
  Key('x');
  dialogs.Answer();
  Run(Command::mnuThisUpdate);
  EXPECT_TRUE(folder.Exists("x.wav"));
  EXPECT_FALSE(folder.Exists("a.wav"));
  EXPECT_EQ(Time(), kIdleLabel);
  ClickOn("cmdPlay");
  EXPECT_TRUE(Shows("再生中： x.wav"));
  EXPECT_TRUE(PositionPasses(200));
}

TEST_F(PlayerOfMainWindow, TheThumbGoesBackWhenTheFileIsReleased) {
  WriteWave("a.wav", 4000);
  OptionValues options = Options();
  options.update.automatic = true;
  OpenFolder(options);
  DoubleClickRow(1);
  EXPECT_TRUE(PositionPasses(1500));
  FocusBox();
  Box().SelectAll();
  Key('x');
  EXPECT_TRUE(folder.Exists("x.wav"));
  EXPECT_EQ(Position(), 0);
  Wait(300);
  EXPECT_EQ(ScreenPixel(SliderPoint(0.2)), ScreenPixel(SliderPoint(0.9))) << "what has been played is painted still";
}

TEST_F(PlayerOfMainWindow, ThePlayingRowIsDeleted) {
  WriteWave("a.wav", 5000);
  OpenFolder();
  DoubleClickRow(1);
  EXPECT_TRUE(PositionPasses(200));
  dialogs.Answer();
  Run(Command::mnuThisDel);
  EXPECT_FALSE(folder.Exists("a.wav"));
  EXPECT_EQ(List().Count(), 0);
  EXPECT_TRUE(Shows("プレイヤー待機中..."));
}

TEST_F(PlayerOfMainWindow, ThePlayingRowIsMoved) {
  WriteWave("a.wav", 5000);
  OpenFolder();
  DoubleClickRow(1);
  EXPECT_TRUE(PositionPasses(200));
  const std::string target = home.MakeFolder("target");
  dialogs.ChooseFolder(target);
  dialogs.Answer();
  Run(Command::mnuThisMove);
  EXPECT_TRUE(home.Exists("target/a.wav"));
  EXPECT_FALSE(folder.Exists("a.wav"));
  ClickOn("cmdPlay");
  EXPECT_TRUE(PositionPasses(200));
}

TEST_F(PlayerOfMainWindow, TheWindowClosesWhileAFilePlays) {
  WriteWave("a.wav", 5000);
  OpenFolder();
  DoubleClickRow(1);
  EXPECT_TRUE(PositionPasses(200));
  CloseWindow();
  EXPECT_FALSE(IsOpen());
}

TEST_F(PlayerOfMainWindow, ClosingTheWindowClosesTheFileAtOnce) {
  WriteWave("a.wav", 5000);
  OpenFolder();
  DoubleClickRow(1);
  EXPECT_TRUE(PositionPasses(200));
  Frame().Close();
  ASSERT_TRUE(IsOpen()) << "it goes with the messages that are pending";
  EXPECT_EQ(App().Player().Device().Mode(), MediaMode::kNone);
  EXPECT_TRUE(Until([this] { return !IsOpen(); }));
}

TEST_F(PlayerOfMainWindow, PlayingWithoutAFileShowsAMessage) {
  Open(Options());
  dialogs.Answer();
  ClickOn("cmdPlay");
  EXPECT_EQ(dialogs.TakeShown(),
            std::vector<Message>({{"プレイヤー", "再生するファイルを指定してください", MessageIcon::kExclamation}}));
}

TEST_F(PlayerOfMainWindow, TheInformationShowsThePlayingTimeWhenTheSettingSaysSo) {
  WriteWave("a.wav", 65000);
  OptionValues options = Options();
  options.system.readPlayTimes = true;
  OpenFolder(options);
  EXPECT_TRUE(Text("txtFileInfo").ends_with(" / 演奏時間： 1:05")) << Text("txtFileInfo");
}

}  // namespace
}  // namespace quillon::test
