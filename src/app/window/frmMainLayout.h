#pragma once

#include <wx/bmpbuttn.h>
#include <wx/panel.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/tglbtn.h>

#include <array>
#include <optional>

#include "app/window/frmMainFindLine.h"
#include "app/window/frmMainListHint.h"
#include "app/window/frmMainTagsBar.h"
#include "controls/PositionSlider.h"
#include "player/PlayerPorts.h"

namespace quillon {

/// The controls between tool bar and status bar. Owned by their parents.
struct frmMainControls {
  wxPanel* panel = nullptr;        ///< holds all others
  MoreTagsBar* tagsBar = nullptr;  ///< above the list
  FraFind* findLine = nullptr;     ///< below it
  wxWindow* list = nullptr;
  ListHint* hint = nullptr;           ///< over the list
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

/// Makes fraFileInfo and fraMusicPlayer with their controls.
void MakeFileInfo(frmMainControls& controls);
void MakeMusicPlayer(frmMainControls& controls, PositionSlider::Handlers slider);

/// Draws the player's pictures in the theme's current text colour.
void SetButtonPictures(const frmMainControls& controls, PlayButton play);

/// Heights of the bars around the controls, in pixels.
struct BarHeights {
  int toolBar = 0;
  int statusBar = 0;
};

/// Places the controls in the panel. The design's measures are in twips, and its heights include the bars. When the
/// desktop's fonts or controls need more room below the list, the list is made shorter.
void LayOut(const frmMainControls& controls, BarHeights bars);

/// When the controls below the list are taller than designed: the inner height of the window, bars included, that
/// leaves the list the height designed for this case. Otherwise nullopt.
[[nodiscard]] std::optional<int> HeightForTallControls(const frmMainControls& controls, BarHeights bars);

/// Changes lblTime's text, and lays out the player again when the text's width has changed.
void ShowTime(const frmMainControls& controls, const wxString& text);

/// The smallest size of the window, in pixels.
[[nodiscard]] wxSize SmallestSize(const wxWindow& window);

}  // namespace quillon
