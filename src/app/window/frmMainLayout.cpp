#include "app/window/frmMainLayout.h"

#include <wx/settings.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "controls/Pictures.h"
#include "controls/TextBox.h"
#include "controls/Twips.h"
#include "controls/WxText.h"
#include "player/window/frmMoviePlayer.h"

namespace quillon {
namespace {

// All in twips.
constexpr int kSmallestHeight = 5580;
constexpr int kSmallestWidth = 6870;
constexpr int kSideGap = 60;      // the list's and the frames' widths are the inner width less this
constexpr int kBelowList = 3570;  // the list's height is the inner height less this
constexpr int kListBesideTallControls = 2400;
constexpr int kPlayerFromBottom = 1125;
constexpr int kBoxesLeft = 1560;
constexpr int kBoxesRight = 240;
constexpr int kPlayFromRight = 1335;
constexpr int kStopFromRight = 975;
constexpr int kRepeatFromRight = 615;
constexpr int kButtonSize = 345;
constexpr int kSliderShorter = 3100;
constexpr int kSliderLeft = 120;
constexpr int kNowloadingShorter = 24;
constexpr int kSmallGap = 45;
constexpr int kPicture = 16;  // DIP

wxTextCtrl* MakeBox(wxWindow* parent, const char* name, long style) {
  auto* box = new TextBox(parent, wxID_ANY, style);
  box->SetName(name);
  return box;
}

wxBitmapBundle ButtonPicture(std::string_view name) {
  return Picture(name, kPicture, wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT));
}

template <class Button>
Button* MakeButton(wxWindow* parent, const char* name, const char* label, std::string_view picture) {
  auto* button = new Button(parent, wxID_ANY, ButtonPicture(picture));
  button->SetName(name);
  button->SetLabel(ToWx(label));  // read by screen readers
  button->SetToolTip(ToWx(label));
  return button;
}

// The labels are centred, so a resized frame must be repainted whole.
wxPanel* MakeFrame(wxWindow* parent, const char* name) {
  auto* frame =
      new wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxFULL_REPAINT_ON_RESIZE);
  frame->SetName(name);
  return frame;
}

/// The text boxes of fraFileInfo from the top.
std::array<wxTextCtrl*, 5> Boxes(const frmMainControls& controls) {
  return {controls.txtAlterTitle, controls.txtTitle, controls.txtFileName, controls.txtFileInfo,
          controls.txtFileDetail};
}

struct InfoHeights {
  int row;  // the least height of a row
  int gap;
  [[nodiscard]] int All() const { return 5 * row + 8 * gap; }
};

InfoHeights MeasureInfo(const frmMainControls& controls) {
  const int row = std::max(controls.txtAlterTitle->GetBestSize().y, controls.labels[0]->GetBestSize().y);
  return {row, ToPixels(*controls.panel, kSmallGap) / 2};
}

int PlayerHeight(const frmMainControls& controls) {
  return std::max({controls.cmdPlay->GetBestSize().y, controls.sldPosition->GetBestSize().y,
                   ToPixels(*controls.panel, kButtonSize)}) +
         2 * ToPixels(*controls.panel, kSmallGap);
}

int PlayerAndStatusHeight(const frmMainControls& controls, BarHeights bars) {
  return std::max(ToPixels(*controls.panel, kPlayerFromBottom), PlayerHeight(controls) + bars.statusBar);
}

int HeightBelowList(const frmMainControls& controls, BarHeights bars) {
  return std::max(ToPixels(*controls.panel, kBelowList),
                  bars.toolBar + MeasureInfo(controls).All() + PlayerAndStatusHeight(controls, bars));
}

void LayOutInfo(const frmMainControls& controls) {
  const wxWindow& window = *controls.panel;
  const wxSize size = controls.fraFileInfo->GetClientSize();
  int widestLabel = 0;
  for (const wxStaticText* label : controls.labels) widestLabel = std::max(widestLabel, label->GetBestSize().x);
  const int labelsLeft = ToPixels(window, kSliderLeft);
  const int left = std::max(ToPixels(window, kBoxesLeft), labelsLeft + widestLabel + ToPixels(window, kSideGap));
  const int width = size.x - left - ToPixels(window, kBoxesRight);
  const wxWindow::ChildrenRepositioningGuard atOnce(controls.fraFileInfo);
  const InfoHeights heights = MeasureInfo(controls);
  const int firstTop = 3 * heights.gap;  // distance from the list
  const int step = (size.y - firstTop) / 5;
  const std::array<wxTextCtrl*, 5> boxes = Boxes(controls);
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    const int height = std::min(step - 1, heights.row);
    const int top = firstTop + static_cast<int>(i) * step;
    boxes[i]->SetSize(left, top, width, height);
    const wxSize label = controls.labels[i]->GetBestSize();
    controls.labels[i]->SetSize(labelsLeft, top + (height - label.y) / 2, label.x, label.y);
  }
}

void PlaceCentred(wxWindow& control, int left, int width, int height, int areaHeight) {
  control.SetSize(left, (areaHeight - height) / 2, width, height);
}

void LayOutPlayer(const frmMainControls& controls) {
  const wxWindow& window = *controls.panel;
  const wxSize size = controls.fraMusicPlayer->GetClientSize();
  const wxWindow::ChildrenRepositioningGuard atOnce(controls.fraMusicPlayer);
  const int button = ToPixels(window, kButtonSize);
  const auto place = [&](wxWindow& control, int fromRight) {
    PlaceCentred(control, size.x - ToPixels(window, fromRight), button, button, size.y);
  };
  place(*controls.cmdPlay, kPlayFromRight);
  place(*controls.cmdStop, kStopFromRight);
  place(*controls.chkRepeat, kRepeatFromRight);
  const int sliderLeft = ToPixels(window, kSliderLeft);
  const wxSize label = controls.lblTime->GetBestSize();
  const int gap = ToPixels(window, kSliderLeft);
  const int timeRight = size.x - ToPixels(window, kPlayFromRight);
  const int sliderWidth =
      std::max(std::min(size.x - ToPixels(window, kSliderShorter), timeRight - label.x - 2 * gap - sliderLeft), button);
  PlaceCentred(*controls.sldPosition, sliderLeft, sliderWidth, controls.sldPosition->GetBestSize().y, size.y);
  const int between = timeRight - sliderLeft - sliderWidth;
  PlaceCentred(*controls.lblTime, sliderLeft + sliderWidth + (between - label.x) / 2, label.x, label.y, size.y);
}

}  // namespace

void MakeFileInfo(frmMainControls& controls) {
  auto* frame = MakeFrame(controls.panel, "fraFileInfo");
  controls.fraFileInfo = frame;
  constexpr std::array<const char*, 5> kLabels = {"リネーム名(&N)", "タイトル", "ファイル名", "ファイル情報", "詳細"};
  const auto label = [&](std::size_t i) {
    controls.labels[i] = new wxStaticText(frame, wxID_ANY, ToWx(kLabels.at(i)));
  };
  // A label comes directly before its box, so that its access key leads there and a screen reader names the box by it.
  label(0);
  controls.txtAlterTitle = MakeBox(frame, "txtAlterTitle", wxTE_PROCESS_ENTER);
  label(1);
  controls.txtTitle = MakeBox(frame, "txtTitle", wxTE_READONLY);
  label(2);
  controls.txtFileName = MakeBox(frame, "txtFileName", wxTE_READONLY);
  label(3);
  controls.txtFileInfo = MakeBox(frame, "txtFileInfo", wxTE_READONLY);
  label(4);
  controls.txtFileDetail = MakeBox(frame, "txtFileDetail", wxTE_READONLY);
}

void MakeMusicPlayer(frmMainControls& controls, PositionSlider::Handlers slider) {
  auto* frame = MakeFrame(controls.panel, "fraMusicPlayer");
  controls.fraMusicPlayer = frame;
  controls.sldPosition = new PositionSlider(frame, std::move(slider));
  controls.sldPosition->SetName("sldPosition");
  controls.lblTime = new wxStaticText(frame, wxID_ANY, kIdleTime);
  controls.lblTime->SetName("lblTime");
  controls.cmdPlay = MakeButton<wxBitmapButton>(frame, "cmdPlay", "再生", "play");
  controls.cmdStop = MakeButton<wxBitmapButton>(frame, "cmdStop", "停止", "stop");
  controls.chkRepeat = MakeButton<wxBitmapToggleButton>(frame, "chkRepeat", "リピート", "repeat");
}

void SetButtonPictures(const frmMainControls& controls, PlayButton play) {
  ShowPlayButton(*controls.cmdPlay, play);
  controls.cmdStop->SetBitmap(ButtonPicture("stop"));
  controls.chkRepeat->SetBitmap(ButtonPicture("repeat"));
}

void LayOut(const frmMainControls& controls, BarHeights bars) {
  const wxWindow& window = *controls.panel;
  const wxSize client = window.GetClientSize();
  const int innerHeight = client.y + bars.toolBar + bars.statusBar;
  const int width = client.x - ToPixels(window, kSideGap);
  const int left = ToPixels(window, kSideGap) / 2;
  const int playerAndStatus = PlayerAndStatusHeight(controls, bars);
  const int listHeight = std::max(innerHeight - HeightBelowList(controls, bars), 1);
  const int playerTop = innerHeight - playerAndStatus - bars.toolBar;
  const int findTop = controls.tagsBar->Height();
  const wxPoint before = controls.list->GetPosition();
  const int listTop = std::min(findTop + controls.findLine->Height(), listHeight - 1);
  {
    // Moves all controls at once; moved one by one, overlapping controls would leave traces.
    const wxWindow::ChildrenRepositioningGuard atOnce(controls.panel);
    controls.tagsBar->Place(left, width);
    controls.findLine->Place(left, findTop, width);
    controls.list->SetSize(left, listTop, width, listHeight - listTop);
    controls.lblNowloading->SetSize(left, listTop, width, listHeight - listTop - ToPixels(window, kNowloadingShorter));
    controls.fraFileInfo->SetSize(left, listHeight, width, playerTop - listHeight);
    controls.fraMusicPlayer->SetSize(left, playerTop, width, innerHeight - bars.toolBar - bars.statusBar - playerTop);
  }
  // Windows copies the pixels of a control that moves, also those that another one has just drawn there.
  if (controls.list->GetPosition() != before) controls.panel->Refresh();
  controls.hint->Place(controls.list->GetRect());
  LayOutInfo(controls);
  LayOutPlayer(controls);
}

std::optional<int> HeightForTallControls(const frmMainControls& controls, BarHeights bars) {
  const int belowList = HeightBelowList(controls, bars);
  if (belowList <= ToPixels(*controls.panel, kBelowList)) return std::nullopt;
  return belowList + ToPixels(*controls.panel, kListBesideTallControls);
}

void ShowTime(const frmMainControls& controls, const wxString& text) {
  if (controls.lblTime->GetLabel() == text) return;
  const int width = controls.lblTime->GetBestSize().x;
  controls.lblTime->SetLabel(text);
  if (controls.lblTime->GetBestSize().x != width) LayOutPlayer(controls);
}

wxSize SmallestSize(const wxWindow& window) {
  return {ToPixels(window, kSmallestWidth), ToPixels(window, kSmallestHeight)};
}

}  // namespace quillon
