#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "gui/PlayerWindow.h"
#include "gui/ScreenPixel.h"
#include "gui/Settle.h"
#include "gui/SystemView.h"
#include "player/window/frmMoviePlayer.h"
#include "support/MediaBuilders.h"

/// Films and songs of each kind, as scripts/media-samples.sh makes them: three seconds of colour bars and a tone.
namespace quillon::test {
namespace {

class FilmsInMainWindow : public PlayerOfMainWindow {
 protected:
  void SetUp() override {
    PlayerOfMainWindow::SetUp();
    if (IsSkipped()) return;
    const char* const samples = std::getenv("QUILLON_MEDIA_SAMPLES");
    if (samples == nullptr || !std::filesystem::exists(std::filesystem::path(samples) / "mpeg1.mpg")) {
      GTEST_SKIP() << "there are no samples: QUILLON_MEDIA_SAMPLES names no folder of scripts/media-samples.sh";
    }
    samples_ = samples;
  }

  void TakeSample(const std::string& name, const std::string& as) const {
    std::ifstream file(samples_ / name, std::ios::binary);
    ASSERT_TRUE(file) << name;
    folder.Write(as, std::string(std::istreambuf_iterator<char>(file), {}));
  }

  static frmMoviePlayer* Movie() {
    for (wxWindow* window : wxTopLevelWindows) {
      auto* const movie = dynamic_cast<frmMoviePlayer*>(window);
      if (movie != nullptr && movie->IsShown() && !movie->IsBeingDeleted()) return movie;
    }
    return nullptr;
  }

  /// The screen's colour in the middle of a colour bar.
  static wxColour BarColour(int bar) {
    const wxRect picture = wxWindow::FindWindowByName("picMovie", Movie())->GetScreenRect();
    return ScreenPixel({picture.x + (2 * bar + 1) * picture.width / 14, picture.y + picture.height / 3});
  }

  /// Which of red, green and blue are bright, as letters. A place outside the screen has no colour.
  static std::string Channels(const wxColour& colour) {
    if (!colour.IsOk()) return "none";
    constexpr int kBright = 100;
    std::string channels;
    if (colour.Red() > kBright) channels += 'R';
    if (colour.Green() > kBright) channels += 'G';
    if (colour.Blue() > kBright) channels += 'B';
    return channels;
  }

  static std::string Bars() {
    std::string bars;
    for (int bar = 0; bar < 7; ++bar) bars += (bar == 0 ? "" : " ") + Channels(BarColour(bar));
    return bars;
  }

  static constexpr const char* kColourBars = "RGB RG GB G RB R B";

 private:
  std::filesystem::path samples_;
};

struct Kind {
  const char* sample;
  const char* file;
  bool picture;
};

class EachKind : public FilmsInMainWindow, public testing::WithParamInterface<Kind> {};

TEST_P(EachKind, PlaysByDoubleClickPausesSeeksAndEnds) {
  const Kind& kind = GetParam();
  TakeSample(kind.sample, kind.file);
  OpenFolder();
  DoubleClickRow(1);
  EXPECT_TRUE(Shows(std::string("再生中： ") + kind.file)) << Status(kSelectionPanel);
  EXPECT_NEAR(Length(), 3000, 50);
  EXPECT_EQ(Movie() != nullptr, kind.picture);
  EXPECT_TRUE(PositionPasses(400));
  App().Player().cmdPlay();
  EXPECT_TRUE(Shows(std::string("一時停止： ") + kind.file));
  const int paused = Position();
  Wait(300);
  EXPECT_EQ(Position(), paused);
  Click(SliderPoint(0.6));
  EXPECT_NEAR(Position(), 1800, 250);
  const int chosen = Position();
  App().Player().cmdPlay();
  EXPECT_TRUE(PositionPasses(chosen));
  EXPECT_TRUE(Shows(std::string("停止： ") + kind.file)) << "at its end";
  EXPECT_EQ(Movie(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Playing, EachKind,
                         testing::Values(Kind{"tone.wav", "曲.wav", false}, Kind{"tone.mp3", "曲.mp3", false},
                                         Kind{"mpeg1.mpg", "動画 1.mpg", true}, Kind{"mpeg4.avi", "動画 4.avi", true},
                                         Kind{"mjpeg.avi", "j.avi", true}),
                         [](const auto& kind) {
                           std::string name = kind.param.sample;
                           name.erase(name.find('.'), 1);
                           return name;
                         });

TEST_F(FilmsInMainWindow, ThePictureIsShownAndFollowsItsWindow) {
  TakeSample("mpeg1.mpg", "bars.mpg");
  OptionValues options = Options();
  options.player.repeat = true;
  OpenFolder(options);
  DoubleClickRow(1);
  ASSERT_TRUE(Until([] { return Movie() != nullptr; }));
  const wxWindow& picture = *wxWindow::FindWindowByName("picMovie", Movie());
  EXPECT_TRUE(Until([] { return Bars() == kColourBars; })) << Bars();
  EXPECT_EQ(picture.GetSize(), wxSize(160, 120)) << "its natural size";
  Movie()->SetSize(wxRect(wxPoint(50, 50), Movie()->GetSize() + wxSize(300, 200)));
  EXPECT_TRUE(Until([&] { return picture.GetSize() == wxSize(460, 320); })) << picture.GetSize().y;
  EXPECT_TRUE(Until([] { return Bars() == kColourBars; })) << Bars();
}

TEST_F(FilmsInMainWindow, TheirWindowIsOnTopWithTheMainWindow) {
  TakeSample("mpeg1.mpg", "bars.mpg");
  for (const bool front : {false, true}) {
    OptionValues options = Options();
    options.system.alwaysOnTop = front;
    options.player.repeat = true;
    OpenFolder(options);
    DoubleClickRow(1);
    ASSERT_TRUE(Until([] { return Movie() != nullptr; }));
    EXPECT_TRUE(Until([&] { return Movie() != nullptr && IsAboveOthers(*Movie()) == front; })) << front;
    CloseWindow();
  }
}

TEST_F(FilmsInMainWindow, ClosingTheWindowStopsTheFilm) {
  TakeSample("mpeg1.mpg", "bars.mpg");
  OpenFolder();
  for (const bool paused : {false, true}) {
    DoubleClickRow(1);
    ASSERT_TRUE(Until([] { return Movie() != nullptr; }));
    EXPECT_TRUE(PositionPasses(100));
    if (paused) App().Player().cmdPlay();
    Movie()->Close();
    EXPECT_TRUE(Shows("停止： bars.mpg"));
    EXPECT_EQ(Time(), "00:00 / 00:00");
    EXPECT_TRUE(Until([] { return Movie() == nullptr; }));
  }
}

TEST_F(FilmsInMainWindow, RenamingThePlayingFilmClosesItsWindow) {
  TakeSample("mpeg1.mpg", "bars.mpg");
  OpenFolder();
  DoubleClickRow(1);
  ASSERT_TRUE(Until([] { return Movie() != nullptr; }));
  List().SetRenameName(1, "new");
  dialogs.Answer();
  Run(Command::mnuThisUpdate);
  EXPECT_TRUE(folder.Exists("new.mpg"));
  EXPECT_TRUE(Until([] { return Movie() == nullptr; }));
}

TEST_F(FilmsInMainWindow, TheMainWindowClosesWithTheMovieWindowOpen) {
  TakeSample("mpeg1.mpg", "bars.mpg");
  OpenFolder();
  DoubleClickRow(1);
  ASSERT_TRUE(Until([] { return Movie() != nullptr; }));
  CloseWindow();
  EXPECT_TRUE(Until([] { return Movie() == nullptr; }));
}

TEST_F(PlayerOfMainWindow, AMidiFilePlays) {
  folder.Write("a.mid", SimpleMidiFile("", "", 8));
  if (DeviceMayStandStill() && !DevicePlays(folder.At("a.mid"))) {
    GTEST_SKIP() << "the system's device stands still: it needs a sequencer";
  }
  OpenFolder();
  DoubleClickRow(1);
  EXPECT_TRUE(Shows("再生中： a.mid"));
  EXPECT_NEAR(Length(), 4000, 50);
  EXPECT_TRUE(PositionPasses(500));
}

}  // namespace
}  // namespace quillon::test
