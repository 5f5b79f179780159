#include "controls/PositionSlider.h"

#include <wx/popupwin.h>
#include <wx/settings.h>
#include <wx/stattext.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "controls/WxText.h"
#include "platform/desktop/SliderThumb.h"

namespace quillon {
namespace {

constexpr std::int32_t kSmallStep = 5000;
constexpr std::int32_t kLargeStep = 30000;
constexpr int kSmallStepsAtLeast = 20;
constexpr int kLargeStepsAtLeast = 5;
constexpr int kTipPadding = 3;  // DIP
constexpr int kTipGap = 2;      // DIP

bool MovesTheThumb(int key) {
  switch (key) {
    case WXK_LEFT:
    case WXK_RIGHT:
    case WXK_UP:
    case WXK_DOWN:
    case WXK_PAGEUP:
    case WXK_PAGEDOWN:
    case WXK_HOME:
    case WXK_END:
    case WXK_NUMPAD_LEFT:
    case WXK_NUMPAD_RIGHT:
    case WXK_NUMPAD_UP:
    case WXK_NUMPAD_DOWN:
    case WXK_NUMPAD_PAGEUP:
    case WXK_NUMPAD_PAGEDOWN:
    case WXK_NUMPAD_HOME:
    case WXK_NUMPAD_END: return true;
    default: return false;
  }
}

}  // namespace

PositionSlider::PositionSlider(wxWindow* parent, Handlers handlers)
    : wxSlider(parent, wxID_ANY, 0, 0, 1), handlers_(std::move(handlers)) {
  BindMouse();
  BindKeys();
  Bind(wxEVT_SLIDER, [this](wxCommandEvent&) { OnMoved(); });
}

void PositionSlider::BindMouse() {
  const auto pressed = [this](wxMouseEvent& event) {
    event.Skip();
    Press(Holder::kMouse);
    // With the thumb moved under the mouse, the system's slider lets the mouse drag it.
    if (const std::optional<double> place = PlaceOfPress(GetHandle(), event.GetX())) {
      SetValue(static_cast<int>(std::lround(*place * GetMax())));
      ShowTip();
    }
  };
  Bind(wxEVT_LEFT_DOWN, pressed);
  Bind(wxEVT_LEFT_DCLICK, pressed);
  Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
    event.Skip();
    if (holder_ == Holder::kMouse) Release();
  });
  Bind(wxEVT_MOUSE_CAPTURE_CHANGED, [this](wxMouseCaptureChangedEvent& event) {
    event.Skip();
    if (holder_ == Holder::kMouse) Release();
  });
}

void PositionSlider::BindKeys() {
  Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
    event.Skip();
    if (!MovesTheThumb(event.GetKeyCode()) || holder_ != Holder::kNobody) return;
    heldKey_ = event.GetKeyCode();
    Press(Holder::kKey);
  });
  Bind(wxEVT_KEY_UP, [this](wxKeyEvent& event) {
    event.Skip();
    if (holder_ == Holder::kKey && event.GetKeyCode() == heldKey_) Release();
  });
  Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
    event.Skip();
    Release();
  });
}

// The maximum is at least 1, because the thumb cannot move in an empty range.
void PositionSlider::SetLength(std::int32_t length) {
  const std::int32_t most = std::max(length, 1);
  SetMax(most);
  SetLineSize(std::max(std::min(kSmallStep, most / kSmallStepsAtLeast), 1));
  SetPageSize(std::max(std::min(kLargeStep, most / kLargeStepsAtLeast), 1));
}

void PositionSlider::SetPosition(std::int32_t position) {
  if (GetValue() == position) return;
  SetValue(position);
  PlaceThumb(GetHandle());
}

void PositionSlider::Press(Holder holder) {
  if (holder_ != Holder::kNobody) return;
  holder_ = holder;
  handlers_.pressed();
  ShowTip();
}

void PositionSlider::Release() {
  if (std::exchange(holder_, Holder::kNobody) == Holder::kNobody) return;
  if (tip_ != nullptr) tip_->Hide();
  // The system reports the last move once more after this.
  settled_ = false;
  CallAfter([this] { settled_ = true; });
  handlers_.released(GetValue());
}

void PositionSlider::OnMoved() {
  if (holder_ != Holder::kNobody) {
    ShowTip();
  } else if (settled_) {
    handlers_.pressed();
    handlers_.released(GetValue());
  }
}

void PositionSlider::ShowTip() {
  if (tip_ == nullptr) {
    tip_ = new wxPopupWindow(this);
    tip_->SetName("tip");
    tipText_ = new wxStaticText(tip_, wxID_ANY, "");
  }
  for (wxWindow* window : {static_cast<wxWindow*>(tip_), static_cast<wxWindow*>(tipText_)}) {
    window->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_INFOBK));
    window->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_INFOTEXT));
  }
  tipText_->SetLabelText(ToWx(handlers_.tip(GetValue())));
  // Postponed, because the press may still move the thumb.
  CallAfter(&PositionSlider::PlaceTip);
}

void PositionSlider::PlaceTip() {
  if (holder_ == Holder::kNobody) return;
  const int padding = FromDIP(kTipPadding);
  const wxSize text = tipText_->GetBestSize();
  tipText_->SetSize(padding, padding, text.x, text.y);
  tip_->SetClientSize(text.x + 2 * padding, text.y + 2 * padding);
  const ThumbSpan thumb = QueryThumb(GetHandle());
  const wxSize size = tip_->GetSize();
  const int left = (thumb.left + thumb.right - size.x) / 2;
  const int gap = FromDIP(kTipGap);
  wxPoint place = ClientToScreen(wxPoint(left, -size.y - gap));
  if (place.y < 0) place.y = ClientToScreen(wxPoint(0, GetSize().y + gap)).y;
  tip_->Move(place);
  tip_->Show();
}

}  // namespace quillon
