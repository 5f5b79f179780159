#include <gdk/gdkwayland.h>
#include <gtk/gtk.h>
#include <wx/utils.h>
#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

#include "controls/Twips.h"
#include "dialogs/window/frmOption.h"
#include "gui/MainWindow.h"
#include "gui/Settle.h"
#include "platform/desktop/WindowFrame.h"
#include "player/window/frmMoviePlayer.h"
#include "settings/Settings.h"

/// The program as a client of a Wayland compositor. The compositor is a window of an X display, from which keys come
/// and on which its picture can be seen.
namespace quillon::test {
namespace {

using Pixels = std::vector<std::uint32_t>;

/// Presses keys as a person would, by their X names.
void Press(const std::string& keys) {
  ASSERT_EQ(wxExecute("xdotool key --delay 60 " + keys, wxEXEC_SYNC | wxEXEC_NOEVENTS), 0) << keys;
  Settle();
}

struct Screen {
  int width = 0;
  Pixels pixels;  // rows from the top; blue in the lowest byte

  [[nodiscard]] std::uint32_t At(int x, int y) const {
    return pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x));
  }
};

Screen SeenScreen() {
  const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> server(xcb_connect(nullptr, nullptr),
                                                                            &xcb_disconnect);
  const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(server.get())).data;
  const auto asked = xcb_get_image(server.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, screen->root, 0, 0, screen->width_in_pixels,
                                   screen->height_in_pixels, ~0U);
  const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> image(
      xcb_get_image_reply(server.get(), asked, nullptr), &std::free);
  if (image == nullptr) return {};
  const auto* const first = reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(image.get()));
  return {screen->width_in_pixels,
          Pixels(first, first + xcb_get_image_data_length(image.get()) / static_cast<int>(sizeof(*first)))};
}

/// One letter for a colour of the test picture; 0 for any other.
char Letter(std::uint32_t pixel) {
  constexpr std::array<char, 8> kLetters = {0, 'B', 'G', 'C', 'R', 'M', 'Y', 'W'};
  constexpr unsigned kBright = 200;
  constexpr unsigned kDark = 60;
  unsigned bits = 0;
  for (const unsigned shift : {16U, 8U, 0U}) {
    const unsigned part = pixel >> shift & 0xFFU;
    if (part > kDark && part < kBright) return 0;
    bits = bits << 1U | (part >= kBright ? 1U : 0U);
  }
  return kLetters.at(bits);
}

/// The bars that begin in a row of the screen: their letters, and where the second and the last one begin.
struct Bars {
  std::string letters;
  int second = 0;
  int last = 0;
};

Bars BarsInRow(const Screen& screen, int y) {
  const std::string whole = "WYCGMRB";
  constexpr int kLeast = 8;  // pixels of a bar
  Bars bars;
  char before = 0;
  int run = 0;
  for (int x = 0; x < screen.width && bars.letters != whole; ++x) {
    const char letter = Letter(screen.At(x, y));
    run = letter == before ? run + 1 : 1;
    before = letter;
    if (letter == 0 || run != kLeast) continue;
    if (letter == whole.front()) bars.letters.clear();
    if (letter != whole[bars.letters.size()]) continue;
    bars.letters += letter;
    if (bars.letters.size() == 2) bars.second = x;
    bars.last = x;
  }
  if (bars.letters != whole) bars.letters.clear();
  return bars;
}

/// The width of the seven colour bars, white to blue, where they are on the screen; 0 when they are not.
int WidthOfColourBars() {
  const Screen screen = SeenScreen();
  if (screen.width == 0) return 0;
  const int height = static_cast<int>(screen.pixels.size()) / screen.width;
  for (int y = 0; y < height; ++y) {
    const Bars bars = BarsInRow(screen, y);
    if (!bars.letters.empty()) return (bars.last - bars.second) * 7 / 5;  // white may go on beside the picture
  }
  return 0;
}

class Wayland : public MainWindowTest {
 protected:
  void SetUp() override { ASSERT_TRUE(GDK_IS_WAYLAND_DISPLAY(gdk_display_get_default())); }

  [[nodiscard]] OptionValues Saved() const {
    std::optional<OptionValues> options = LoadOptionValues(Paths().settings);
    EXPECT_TRUE(options);
    return options ? *std::move(options) : OptionValues();
  }

  static frmMoviePlayer* Movie() {
    for (wxWindow* window : wxTopLevelWindows) {
      auto* const movie = dynamic_cast<frmMoviePlayer*>(window);
      if (movie != nullptr && movie->IsShown() && !movie->IsBeingDeleted()) return movie;
    }
    return nullptr;
  }

  void TakeFilm() const {
    const char* const samples = std::getenv("QUILLON_MEDIA_SAMPLES");
    ASSERT_NE(samples, nullptr);
    std::ifstream file(std::filesystem::path(samples) / "mpeg1.mpg", std::ios::binary);
    ASSERT_TRUE(file);
    folder.Write("bars.mpg", std::string(std::istreambuf_iterator<char>(file), {}));
  }
};

TEST_F(Wayland, LoadsAndRenamesByKeys) {
  WriteMidi("a.mid", "First");
  WriteMidi("b.mid", "Second");
  OptionValues options = Options();
  options.system.suppressConfirmations = true;
  OpenFolder(options);
  FocusList();
  Press("Home Down");
  EXPECT_EQ(SelectedRows(), std::vector<int>{2});
  EXPECT_EQ(Text("txtTitle"), "Second");
  Press("F2");
  ASSERT_TRUE(Until([this] { return Frame().List().IsEditing(); }));
  Press("ctrl+a n e w Return");
  ASSERT_TRUE(Until([this] { return Names().at(1) == "new"; }));
  dialogs.Answer();  // the box that tells the outcome
  Press("ctrl+shift+s");
  EXPECT_TRUE(Until([this] { return folder.Exists("new.mid"); }));
  EXPECT_FALSE(folder.Exists("b.mid"));
}

TEST_F(Wayland, DialogsOpenAndClose) {
  Open(Options());
  bool shown = false;
  dialogs.Use([&shown](wxDialog& dialog) {
    shown = dynamic_cast<frmOption*>(&dialog) != nullptr && dialog.IsShownOnScreen();
    dialog.EndModal(wxID_CANCEL);
  });
  Run(Command::mnuOption);
  EXPECT_TRUE(shown);
}

TEST_F(Wayland, TheWindowKeepsItsSizeAndStoresNoPlace) {
  OptionValues options = Options();
  options.window.width = 12000;
  options.window.height = 9000;
  options.window.left = 300;
  Open(options);
  const int shadow = ShadowAround(Frame().GetHandle());
  EXPECT_GT(shadow, 0) << "this compositor leaves the frame to GTK";
  EXPECT_EQ(Frame().GetSize(), wxSize(ToPixels(Frame(), 12000) + shadow, ToPixels(Frame(), 9000) + shadow));
  CloseWindow();
  EXPECT_EQ(Saved().window.width, 12000);
  EXPECT_EQ(Saved().window.height, 9000);
  EXPECT_EQ(Saved().window.left, 300) << "as it was";
  EXPECT_EQ(Saved().window.top, std::nullopt);
  EXPECT_EQ(Saved().window.columnWidths, OptionValues().window.columnWidths);
}

TEST_F(Wayland, TheMaximisedWindowComesBackMaximised) {
  OptionValues options = Options();
  options.extra.maximized = true;
  options.window.width = 12000;
  options.window.height = 9000;
  Open(options);
  ASSERT_TRUE(Until([this] { return Frame().IsMaximized() && Frame().GetSize().x > 1200; }));
  Settle();
  Frame().Maximize(false);
  EXPECT_TRUE(Until([this] {
    const int shadow = ShadowAround(Frame().GetHandle());
    return Frame().GetSize() == wxSize(ToPixels(Frame(), 12000) + shadow, ToPixels(Frame(), 9000) + shadow);
  })) << Frame().GetSize().x
      << " x " << Frame().GetSize().y;
  CloseWindow();
  EXPECT_FALSE(Saved().extra.maximized);
  EXPECT_EQ(Saved().window.width, 12000);
}

TEST_F(Wayland, WhatTheCompositorForbidsIsPassedOver) {
  Open(Options());
  Run(Command::mnuFront);
  EXPECT_TRUE(App().Options().system.alwaysOnTop);
  Frame().ComeForward();
  Settle();
  EXPECT_TRUE(Frame().IsShownOnScreen());
}

TEST_F(Wayland, AFilmIsShownInItsWindowAndFollowsItsSize) {
  ASSERT_EQ(WidthOfColourBars(), 0);
  TakeFilm();
  OptionValues options = Options();
  options.player.repeat = true;
  OpenFolder(options);
  FocusList();
  Press("Home Return");
  ASSERT_TRUE(Until([] { return Movie() != nullptr; }));
  ASSERT_TRUE(Until([] { return WidthOfColourBars() > 0; }));
  const wxWindow& picture = *wxWindow::FindWindowByName("picMovie", Movie());
  EXPECT_NEAR(WidthOfColourBars(), picture.GetSize().x, 14);
  Movie()->SetSize(620, 470);
  EXPECT_TRUE(Until([&] { return picture.GetSize().x > 400 && WidthOfColourBars() > 400; }));
  EXPECT_NEAR(WidthOfColourBars(), picture.GetSize().x, 14) << "stretched";
  App().Player().cmdPlay();  // pause
  Settle();
  Movie()->SetSize(420, 370);
  EXPECT_TRUE(Until([&] { return picture.GetSize().x < 400 && WidthOfColourBars() > 300; })) << "while it is paused";
  App().Player().cmdStop();
  ASSERT_TRUE(Until([] { return Movie() == nullptr; }));
  EXPECT_TRUE(Until([] { return WidthOfColourBars() == 0; }));
}

}  // namespace
}  // namespace quillon::test
