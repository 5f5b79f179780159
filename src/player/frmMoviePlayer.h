#pragma once

#include <wx/frame.h>

#include <cstdint>
#include <functional>
#include <string>

#include "base/Ports.h"
#include "player/MusicPlayer.h"

namespace quillon {

/// The window that shows a playing file's picture, with a slider and a label that follow the main window's.
class frmMoviePlayer final : public wxFrame {
 public:
  struct Surroundings {
    wxFrame& owner;
    MusicPlayer& player;
    MessageBoxes& boxes;
    bool alwaysOnTop = false;
    std::function<void()> closed;  ///< the user has closed the window, which deletes itself then
  };

  explicit frmMoviePlayer(Surroundings surroundings);

  /// Gives the device the picture box, takes the picture's size and shows the window; false when there is no picture.
  [[nodiscard]] bool Load();

  void SetPosition(std::int32_t position);
  void SetTime(const std::string& text);

 private:
  Surroundings surroundings_;
};

}  // namespace quillon
