#pragma once

#include <wx/frame.h>

#include <cstdint>
#include <optional>
#include <string>

#include "base/Ports.h"
#include "controls/PositionSlider.h"
#include "player/MovieGeometry.h"
#include "player/MusicPlayer.h"

class wxBitmapButton;
class wxPanel;
class wxStaticText;

namespace quillon {

/// cmdPlay's picture and what it is called: the next thing that it does.
void ShowPlayButton(wxBitmapButton& cmdPlay, PlayButton button);

/// The window that shows a playing file's picture, with a slider and a label that follow the main window's. Closed by
/// the user it tells the player, and deletes itself.
class frmMoviePlayer final : public wxFrame {
 public:
  struct Surroundings {
    wxFrame& owner;
    MusicPlayer& player;
    MessageBoxes& boxes;
    bool alwaysOnTop = false;
  };

  explicit frmMoviePlayer(const Surroundings& surroundings);

  /// Gives the device the picture box, takes the picture's size and shows the window; false when there is no picture.
  /// The keyboard stays where it is: the file may be one of a whole list that plays while the user types.
  [[nodiscard]] bool Load();

  void SetButton(PlayButton button);
  void SetPosition(std::int32_t position);
  void SetTime(const std::string& text);

  /// Goes from the screen at once, with its menu, and then for good.
  void Leave();

 private:
  void MakeControls();
  void MakeMenus();
  void BindEvents();
  void ShowTitle();
  void OnCharHook(wxKeyEvent& event);
  void OnClose();
  void OnResize();
  void LayOut();
  void SendDestination();
  void ShowPlayMenu();
  void SetFactor(int factor);
  [[nodiscard]] std::optional<wxSize> SizeOf(int factor) const;
  void ShowSizes();
  void SetWindowSize(TwipsSize size);
  void SetOpeningSize();
  void CorrectOpeningSize();
  [[nodiscard]] MovieSurround Surround() const;
  [[nodiscard]] double TwipsPerScreenPixel() const;

  Surroundings surroundings_;
  TwipsSize natural_;
  PictureSize destination_;  // as the device knows it
  PlayButton button_ = PlayButton::kPlay;
  bool loaded_ = false;
  bool menuOpen_ = false;
  bool left_ = false;
  std::optional<TwipsSize> openedWithin_;  // what the system took when the window got its first size
  // Owned by the window, like every wx child:
  wxPanel* panel_ = nullptr;
  wxWindow* picMovie_ = nullptr;
  wxPanel* fraPlayer_ = nullptr;
  wxBitmapButton* cmdPlay_ = nullptr;
  PositionSlider* sldPosition_ = nullptr;
  wxStaticText* lblTime_ = nullptr;
};

}  // namespace quillon
