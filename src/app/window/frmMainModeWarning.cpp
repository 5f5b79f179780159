#include "app/window/frmMainModeWarning.h"

#include <wx/sizer.h>
#include <wx/statbmp.h>

#include <utility>

#include "controls/Pictures.h"

namespace quillon {
namespace {

constexpr int kSign = 14;  // DIP
constexpr int kGap = 3;    // DIP

const wxColour& Background() {
  static const wxColour colour(0xFF, 0xC1, 0x07);
  return colour;
}

}  // namespace

ModeWarning::ModeWarning(wxStatusBar& bar, int panel, std::function<void()> clicked)
    : bar_(bar), panel_(panel), clicked_(std::move(clicked)) {
  bar.Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    bar_.CallAfter([this] { Place(); });
  });
}

void ModeWarning::Make() {
  cover_ = new wxPanel(&bar_, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE);
  cover_->SetName("fraModeWarning");
  cover_->SetBackgroundColour(Background());
  auto* sign = new wxStaticBitmap(cover_, wxID_ANY, Picture("warning", kSign, *wxBLACK));
  text_ = new wxStaticText(cover_, wxID_ANY, "");
  text_->SetForegroundColour(*wxBLACK);
  text_->SetBackgroundColour(Background());
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->AddSpacer(bar_.FromDIP(kGap));
  row->Add(sign, wxSizerFlags().CenterVertical());
  row->AddSpacer(bar_.FromDIP(kGap));
  row->Add(text_, wxSizerFlags().CenterVertical());
  cover_->SetSizer(row);
  const auto click = [this](wxMouseEvent&) { clicked_(); };
  for (wxWindow* window :
       {static_cast<wxWindow*>(cover_), static_cast<wxWindow*>(sign), static_cast<wxWindow*>(text_)}) {
    window->Bind(wxEVT_LEFT_DOWN, click);
    window->SetToolTip(bar_.GetToolTipText());
  }
}

void ModeWarning::Show(const wxString& text) {
  if (cover_ == nullptr && text.empty()) return;
  if (cover_ == nullptr) Make();
  cover_->Show(!text.empty());
  text_->SetLabelText(text);
  Place();
}

int ModeWarning::WidthFor(const wxString& text) const {
  return bar_.GetTextExtent(text).x + bar_.FromDIP(kSign + 4 * kGap);
}

void ModeWarning::Place() {
  wxRect field;
  if (cover_ == nullptr || !cover_->IsShown() || !bar_.GetFieldRect(panel_, field)) return;
  cover_->SetSize(field);
  cover_->Layout();
}

}  // namespace quillon
