#pragma once

#include <wx/bmpbuttn.h>
#include <wx/panel.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/tglbtn.h>

#include <array>
#include <optional>

#include "controls/PositionSlider.h"
#include "player/PlayerPorts.h"

namespace quillon {

/// The controls between tool bar and status bar. Owned by their parents.
struct frmMainControls {
  wxPanel* panel = nullptr;  ///< holds all others
  wxWindow* list = nullptr;
  wxWindow* lblNowloading = nullptr;  ///< covers the list while files are read

  wxPanel* fraFileInfo = nullptr;
  std::array<wxStaticText*, 5> labels{};
  wxTextCtrl* txtAlterTitle = nullptr;
  wxTextCtrl* txtTitle = nullptr;
  wxTextCtrl* txtFileName = nullptr;
  wxTextCtrl* txtFileInfo = nullptr;
  wxTextCtrl* txtFileDetail = nullptr;

  wxPanel* fraMusicPlayer = nullptr;
  PositionSlider* sldPosition = nullptr;
  wxStaticText* lblTime = nullptr;
  wxBitmapButton* cmdPlay = nullptr;
  wxBitmapButton* cmdStop = nullptr;
  wxBitmapToggleButton* chkRepeat = nullptr;
};

/// Makes fraFileInfo and fraMusicPlayer with what they hold.
void MakeFileInfo(frmMainControls& controls);
void MakeMusicPlayer(frmMainControls& controls, PositionSlider::Handlers slider);

/// The player's pictures in the theme's present ink.
void SetButtonPictures(const frmMainControls& controls, PlayButton play);

/// Heights of the bars around the controls, in pixels.
struct BarHeights {
  int toolBar = 0;
  int statusBar = 0;
};

/// Places the controls in the panel. Heights and widths are the window's own, in twips, bars included; where the
/// desktop's fonts or controls need more room below the list than that, they get it and the list is shorter.
void LayOut(const frmMainControls& controls, BarHeights bars);

/// The height inside the window, bars included, with which the list is as high as the window's design has it beside
/// controls that are taller than that takes them for; nullopt when they are not.
[[nodiscard]] std::optional<int> HeightForTallControls(const frmMainControls& controls, BarHeights bars);

/// Another text for lblTime: it has the room that it needs.
void ShowTime(const frmMainControls& controls, const wxString& text);

/// The smallest size of the window, in pixels.
[[nodiscard]] wxSize SmallestSize(const wxWindow& window);

}  // namespace quillon
