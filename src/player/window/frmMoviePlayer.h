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

/// Sets cmdPlay's picture and label to the action that it does next.
void ShowPlayButton(wxBitmapButton& cmdPlay, PlayButton button);

/// The window that shows a playing file's picture, with a slider and a label that follow the main window's. When the
/// user closes it, it notifies the player and deletes itself.
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
  /// The window does not take the keyboard focus: the file may be one of a whole list that plays while the user types.
  [[nodiscard]] bool Load();

  void SetButton(PlayButton button);
  void SetPosition(std::int32_t position);
  void SetTime(const std::string& text);

  /// Hides the window and closes its menu at once, then deletes it.
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
  PictureSize destination_;  // the last one sent to the device
  PlayButton button_ = PlayButton::kPlay;
  bool loaded_ = false;
  bool menuOpen_ = false;
  bool left_ = false;
  std::optional<TwipsSize> openedWithin_;  // the system's share of the window when it got its first size
  // Owned by the window, like every wx child:
  wxPanel* panel_ = nullptr;
  wxWindow* picMovie_ = nullptr;
  wxPanel* fraPlayer_ = nullptr;
  wxBitmapButton* cmdPlay_ = nullptr;
  PositionSlider* sldPosition_ = nullptr;
  wxStaticText* lblTime_ = nullptr;
};

}  // namespace quillon
