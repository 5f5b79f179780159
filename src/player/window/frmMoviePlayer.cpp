#include "player/window/frmMoviePlayer.h"

#include <wx/app.h>
#include <wx/bmpbuttn.h>
#include <wx/dcclient.h>
#include <wx/display.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/settings.h>
#include <wx/stattext.h>

#include <algorithm>
#include <array>
#include <utility>

#include "controls/Pictures.h"
#include "controls/Twips.h"
#include "controls/WxText.h"
#include "paths/basFileControl.h"
#include "platform/desktop/AccessibleName.h"
#include "platform/desktop/NativeWindow.h"
#include "platform/desktop/OpenMenu.h"

namespace quillon {
namespace {

constexpr std::int32_t kGap = 60;          // twips
constexpr std::int32_t kButtonSize = 345;  // twips, as in the main window
constexpr int kPlayPicture = 16;           // DIP
constexpr int kUnit = 1000;                // pixels: so many that rounding to twips hardly matters

enum MenuId : int { mnu1X = wxID_HIGHEST + 1, mnu2X, mnu4X, mnuPlay, mnuStop };

struct ScreenSize {
  MenuId id;
  int factor;
  const char* caption;
};
constexpr std::array<ScreenSize, 3> kScreenSizes = {
    {{mnu1X, 1, "等倍(&1)"}, {mnu2X, 2, "2 倍(&2)"}, {mnu4X, 4, "4 倍(&4)"}}};

/// Paints the box black; clipping leaves out the device's own window in it.
wxWindow* MakePictureBox(wxWindow* parent) {
  auto* const box = new wxWindow;
  box->SetBackgroundStyle(wxBG_STYLE_PAINT);
  box->Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxCLIP_CHILDREN | wxFULL_REPAINT_ON_RESIZE);
  box->Bind(wxEVT_PAINT, [box](wxPaintEvent&) {
    wxPaintDC dc(box);
    dc.SetBackground(*wxBLACK_BRUSH);
    dc.Clear();
  });
  return box;
}

long StyleOf(bool alwaysOnTop) {
  return wxDEFAULT_FRAME_STYLE | wxFRAME_FLOAT_ON_PARENT | (alwaysOnTop ? wxSTAY_ON_TOP : 0);
}

TwipsSize SizeInTwips(const wxWindow& window, wxSize pixels) {
  return {ToTwips(window, pixels.x), ToTwips(window, pixels.y)};
}

wxSize SizeInPixels(const wxWindow& window, TwipsSize size) {
  return {ToPixels(window, size.width), ToPixels(window, size.height)};
}

PixelRect ToPixelRect(const wxRect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

wxPoint ToPoint(const PixelRect& place) {
  return {place.x, place.y};
}

}  // namespace

void ShowPlayButton(wxBitmapButton& cmdPlay, PlayButton button) {
  const bool plays = button == PlayButton::kPlay;
  cmdPlay.SetBitmap(Picture(plays ? "play" : "pause", kPlayPicture, wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT)));
  const wxString label = ToWx(plays ? "再生" : "一時停止");
  cmdPlay.SetLabel(label);  // read by screen readers
  cmdPlay.SetToolTip(label);
}

frmMoviePlayer::frmMoviePlayer(const Surroundings& surroundings)
    : wxFrame(&surroundings.owner, wxID_ANY, wxTheApp->GetAppDisplayName(), wxDefaultPosition, wxDefaultSize,
              StyleOf(surroundings.alwaysOnTop)),
      surroundings_(surroundings) {
  SetName("frmMoviePlayer");
  SetExtraStyle(wxWS_EX_BLOCK_EVENTS);  // the owner must not handle this window's keys and menus
  SetIcons(ProgramIcons());
  MakeControls();
  MakeMenus();
  BindEvents();
}

void frmMoviePlayer::MakeControls() {
  panel_ = new wxPanel(this);
  picMovie_ = MakePictureBox(panel_);
  picMovie_->SetName("picMovie");
  fraPlayer_ = new wxPanel(panel_);
  fraPlayer_->SetName("fraPlayer");
  MusicPlayer& player = surroundings_.player;
  cmdPlay_ = new wxBitmapButton(fraPlayer_, wxID_ANY, wxBitmapBundle());
  cmdPlay_->SetName("cmdMoviePlay");
  SetButton(PlayButton::kPlay);
  sldPosition_ = new PositionSlider(fraPlayer_, {[&player] { player.SliderPressed(); },
                                                 [&player](std::int32_t value) { player.SliderReleased(value); },
                                                 [](std::int32_t value) { return MusicPlayer::SliderTip(value); }});
  sldPosition_->SetName("sldPosition");
  SetAccessibleName(sldPosition_->GetHandle(), "再生位置");
  lblTime_ = new wxStaticText(fraPlayer_, wxID_ANY, ToWx(std::string(" ") + kIdleTime));
  lblTime_->SetName("lblTime");
}

void frmMoviePlayer::MakeMenus() {
  auto* const mnuScreen = new wxMenu;
  for (const ScreenSize& size : kScreenSizes) mnuScreen->AppendCheckItem(size.id, ToWx(size.caption));
  auto* const bar = new wxMenuBar;
  bar->Append(mnuScreen, ToWx("画面サイズ(&S)"));
  SetMenuBar(bar);
}

void frmMoviePlayer::BindEvents() {
  const auto onMenu = [this](MenuId id, const std::function<void()>& act) {
    Bind(
        wxEVT_MENU, [act](wxCommandEvent&) { act(); }, id);
  };
  for (const ScreenSize& size : kScreenSizes) {
    onMenu(size.id, [this, factor = size.factor] { SetFactor(factor); });
  }
  onMenu(mnuPlay, [this] { surroundings_.player.PauseOrGoOn(); });
  onMenu(mnuStop, [this] { Close(); });
  cmdPlay_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { surroundings_.player.PauseOrGoOn(); });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    SetButton(button_);
    event.Skip();
  });
  Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent& event) {
    ShowSizes();  // the window may be on another screen now
    event.Skip();
  });
  Bind(wxEVT_CHAR_HOOK, &frmMoviePlayer::OnCharHook, this);
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { OnClose(); });
  picMovie_->Bind(wxEVT_RIGHT_DOWN, [this](wxMouseEvent&) { ShowPlayMenu(); });
  panel_->Bind(wxEVT_SIZE, [this](wxSizeEvent&) { OnResize(); });
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    CallAfter(&frmMoviePlayer::CorrectOpeningSize);
  });
}

bool frmMoviePlayer::Load() {
  MusicPlayer& player = surroundings_.player;
  if (const std::uintptr_t window = MakeNumberedWindow(picMovie_->GetHandle())) {
    player.Device().SetWindow(window);
  } else {
    player.Device().SetCanvas(MakePictureCanvas(picMovie_->GetHandle()));
  }
  const std::optional<PictureSize> picture = player.Device().Picture();
  if (!picture || picture->width <= 0 || picture->height <= 0) return false;
  natural_ = NaturalSize(*picture, TwipsPerScreenPixel());
  ShowTitle();
  sldPosition_->SetLength(player.Length());
  SetPosition(player.Position());
  SetTime(" " + player.Time());
  loaded_ = true;
  SetOpeningSize();
  openedWithin_ = Surround().system;
  ShowWithoutActivating();
  return true;
}

void frmMoviePlayer::ShowTitle() {
  const std::string name(FileName(surroundings_.player.Paths().playingFilePath));
  SetTitle(ToWx(name) + " - " + wxTheApp->GetAppDisplayName());
}

void frmMoviePlayer::SetButton(PlayButton button) {
  button_ = button;
  ShowPlayButton(*cmdPlay_, button);
  SetAccessibleName(cmdPlay_->GetHandle(), FromWx(cmdPlay_->GetLabel()));
}

void frmMoviePlayer::SetPosition(std::int32_t position) {
  sldPosition_->SetPosition(position);
}

void frmMoviePlayer::SetTime(const std::string& text) {
  const wxString label = ToWx(text);
  if (lblTime_->GetLabel() == label) return;
  const int width = lblTime_->GetBestSize().x;
  lblTime_->SetLabel(label);
  if (lblTime_->GetBestSize().x == width || !loaded_) return;
  SetMinSize(SizeInPixels(*this, SmallestMovieWindow(Surround())));
  SetSize(std::max(GetSize().x, GetMinSize().x), -1);
  LayOut();
}

void frmMoviePlayer::OnCharHook(wxKeyEvent& event) {
  switch (event.GetKeyCode()) {
    case WXK_ESCAPE: Close(); break;
    case WXK_SPACE: surroundings_.player.PauseOrGoOn(); break;
    default: event.Skip();
  }
}

void frmMoviePlayer::OnClose() {
  surroundings_.player.MovieClosed();
  Leave();
}

// An open menu still needs the window, because its loop would never end without it: ShowPlayMenu then destroys it.
void frmMoviePlayer::Leave() {
  if (std::exchange(left_, true)) return;
  Hide();
  if (menuOpen_) {
    CloseOpenMenu();
  } else {
    Destroy();
  }
}

void frmMoviePlayer::OnResize() {
  if (!loaded_ || IsIconized()) return;
  const int smallest = ToPixels(*this, kSmallestMovieHeight);
  if (GetSize().y < smallest) SetSize(-1, smallest);
  LayOut();
  SendDestination();
}

void frmMoviePlayer::LayOut() {
  const MovieLayout layout = LayOutMovie(SizeInTwips(*this, GetSize()), Surround());
  const auto pixels = [this](std::int32_t twips) { return ToPixels(*this, twips); };
  picMovie_->SetSize(pixels(layout.pictureLeft), 0, pixels(layout.picture.width), pixels(layout.picture.height));
  const wxSize player = SizeInPixels(*this, layout.player);
  fraPlayer_->SetSize(pixels(layout.playerLeft), pixels(layout.playerTop), player.x, player.y);
  const int button = pixels(kButtonSize);
  cmdPlay_->SetSize(0, (player.y - button) / 2, button, button);
  const int slider = sldPosition_->GetBestSize().y;
  sldPosition_->SetSize(button, (player.y - slider) / 2, pixels(layout.sliderWidth), slider);
  const wxSize time = lblTime_->GetBestSize();
  lblTime_->SetSize(player.x - time.x, (player.y - time.y) / 2, time.x, time.y);
  ShowSizes();
}

void frmMoviePlayer::SendDestination() {
  const wxSize box = picMovie_->GetSize();
  const PictureSize destination = DestinationPixels({box.x, box.y}, GetContentScaleFactor());
  if (std::exchange(destination_, destination) == destination) return;
  surroundings_.player.Device().PutPicture(destination);
}

void frmMoviePlayer::ShowPlayMenu() {
  wxMenu mnuMoviePlayerRClkMenu;
  mnuMoviePlayerRClkMenu.Append(mnuPlay, ToWx(surroundings_.player.IsPlaying() ? "一時停止(&P)" : "再生(&P)"));
  mnuMoviePlayerRClkMenu.Append(mnuStop, ToWx("停止(&S)"));
  menuOpen_ = true;
  PopupMenu(&mnuMoviePlayerRClkMenu);
  menuOpen_ = false;
  if (left_) Destroy();
}

// Returns nullopt for a size that is too large; see MovieWindowSize.
std::optional<wxSize> frmMoviePlayer::SizeOf(int factor) const {
  const std::optional<TwipsSize> size = MovieWindowSize(natural_, factor, AllowanceOf(Surround()));
  if (!size) return std::nullopt;
  return SizeInPixels(*this, *size);
}

// Checks the window's present size, and disables the sizes that do not fit on the screen.
void frmMoviePlayer::ShowSizes() {
  const wxSize screen = wxDisplay(this).GetClientArea().GetSize();
  for (const ScreenSize& entry : kScreenSizes) {
    const std::optional<wxSize> size = SizeOf(entry.factor);
    const bool present = size && !IsMaximized() && *size == GetSize();
    GetMenuBar()->Check(entry.id, present);
    GetMenuBar()->Enable(entry.id, present || !size || (size->x <= screen.x && size->y <= screen.y));
  }
}

void frmMoviePlayer::SetFactor(int factor) {
  const std::optional<TwipsSize> size = MovieWindowSize(natural_, factor, AllowanceOf(Surround()));
  if (!size) {
    ShowSizes();  // the click has already toggled the menu's mark
    surroundings_.boxes.Show(
        {"画面サイズ", "映像が大きすぎるため、このサイズでは表示できません", MessageIcon::kExclamation});
    return;
  }
  openedWithin_.reset();
  if (IsMaximized()) Maximize(false);
  SetWindowSize(*size);
  Move(ToPoint(OnScreen(ToPixelRect(GetRect()), ToPixelRect(wxDisplay(this).GetClientArea()))));
}

void frmMoviePlayer::SetWindowSize(TwipsSize size) {
  SetMinSize(SizeInPixels(*this, SmallestMovieWindow(Surround())));
  SetSize(SizeInPixels(*this, size));
  LayOut();
  SendDestination();
}

void frmMoviePlayer::SetOpeningSize() {
  const wxRect screen = wxDisplay(&surroundings_.owner).GetClientArea();
  const MovieSurround surround = Surround();
  SetWindowSize(OpeningWindowSize(natural_, AllowanceOf(surround), SmallestMovieWindow(surround),
                                  SizeInTwips(*this, screen.GetSize())));
  Move(ToPoint(
      OpeningPlace(ToPixelRect(surroundings_.owner.GetRect()), {GetSize().x, GetSize().y}, ToPixelRect(screen))));
}

// A window manager may report the size of its frame only once the window is shown.
void frmMoviePlayer::CorrectOpeningSize() {
  if (!openedWithin_ || Surround().system == *openedWithin_) return;
  openedWithin_.reset();
  if (!IsMaximized() && !IsIconized()) SetOpeningSize();
}

MovieSurround frmMoviePlayer::Surround() const {
  const int button = ToPixels(*this, kButtonSize);
  const int playerHeight = std::max({button, sldPosition_->GetBestSize().y, lblTime_->GetBestSize().y});
  return {SizeInTwips(*this, GetSize() - GetClientSize()), ToTwips(*this, playerHeight),
          ToTwips(*this, button + lblTime_->GetBestSize().x) + kGap};
}

double frmMoviePlayer::TwipsPerScreenPixel() const {
  return ToTwips(*this, kUnit) / (kUnit * GetContentScaleFactor());
}

}  // namespace quillon
