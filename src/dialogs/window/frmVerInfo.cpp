#include "dialogs/window/frmVerInfo.h"

#include <wx/button.h>
#include <wx/dcclient.h>
#include <wx/display.h>
#include <wx/hyperlink.h>
#include <wx/panel.h>
#include <wx/settings.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include <algorithm>
#include <utility>

#include "base/Product.h"
#include "controls/Pictures.h"
#include "controls/WrappedToFit.h"
#include "controls/WxText.h"
#include "dialogs/VersionText.h"
#include "platform/desktop/AccessibleName.h"

namespace quillon {
namespace {

constexpr int kMargin = 16;          // DIP
constexpr int kGap = 12;             // DIP
constexpr int kSmallGap = 4;         // DIP
constexpr int kPadding = 8;          // DIP
constexpr int kIcon = 48;            // DIP
constexpr int kDescent = 4;          // DIP
constexpr float kNameScale = 1.75F;  // of the usual font

/// Lets Enter call `act` while the control has the focus.
void OnEnter(wxWindow& control, const std::function<void()>& act) {
  control.Bind(wxEVT_CHAR_HOOK, [act](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER) {
      act();
    } else {
      event.Skip();
    }
  });
}

}  // namespace

frmVerInfo::frmVerInfo(wxWindow* parent, bool regexAvailable, bool front, std::function<void(const std::string&)> open)
    : wxDialog(parent, wxID_ANY, ToWx("バージョン情報"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | (front ? wxSTAY_ON_TOP : 0)),
      open_(std::move(open)) {
  SetName("frmVerInfo");
  SetIcons(ProgramIcons());
  Build(regexAvailable);
  CentreOnParent();
}

void frmVerInfo::Build(bool regexAvailable) {
  auto* const column = new wxBoxSizer(wxVERTICAL);
  AddIcon(*column);
  AddLabel(*column, "lblAppName", kProductName, kNameScale);
  AddLabel(*column, "lblVer", VersionText());
  AddAddress(*column);
  AddLabel(*column, "txtCopyright", kProductCopyright);
  column->AddSpacer(FromDIP(kGap));
  column->Add(MakeInformation(InformationText(regexAvailable)), wxSizerFlags(1).Expand());
  auto* const ok = new wxButton(this, wxID_OK, "OK");
  ok->SetName("cmdOK");
  ok->SetDefault();
  ok->SetFocus();
  column->Add(ok, wxSizerFlags().CenterHorizontal().Border(wxTOP, FromDIP(kGap)));
  auto* const border = new wxBoxSizer(wxVERTICAL);
  border->Add(column, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kMargin)));
  SetSizerAndFit(border);
}

void frmVerInfo::AddIcon(wxSizer& column) {
  auto* const icon = new wxStaticBitmap(this, wxID_ANY, Picture("quillon", kIcon, *wxBLACK));
  icon->SetName("picIcon");
  SetAccessibleName(icon->GetHandle(), std::string(kProductName) + "のアイコン");
  column.Add(icon, wxSizerFlags().CenterHorizontal().Border(wxBOTTOM, FromDIP(kSmallGap)));
}

void frmVerInfo::AddLabel(wxSizer& column, const char* name, const std::string& text, float scale) {
  auto* const label = new wxStaticText(this, wxID_ANY, "");
  label->SetName(name);
  if (scale > 1) label->SetFont(label->GetFont().Scaled(scale).Bold());
  label->SetLabelText(ToWx(text));
  column.Add(label, wxSizerFlags().CenterHorizontal().Border(wxTOP, FromDIP(kSmallGap)));
}

void frmVerInfo::AddAddress(wxSizer& column) {
  const wxString address = ToWx(kProductUrl);
  auto* const link = new wxHyperlinkCtrl(this, wxID_ANY, address, address, wxDefaultPosition, wxDefaultSize,
                                         wxHL_ALIGN_CENTRE | wxBORDER_NONE);
  link->SetName("txtURL");
  link->SetMinSize(link->GetBestSize() + wxSize(0, FromDIP(kDescent)));  // Windows cuts off its letters' descenders
  // Handled here, so that wx does not start a browser of its own choice.
  link->Bind(wxEVT_HYPERLINK, [this](wxHyperlinkEvent& event) { open_(FromWx(event.GetURL())); });
  OnEnter(*link, [this] { open_(kProductUrl); });  // Windows would press the default button
  column.Add(link, wxSizerFlags().CenterHorizontal().Border(wxTOP, FromDIP(kSmallGap)));
}

/// A text box in a frame with padding, which the text box itself cannot have on every system.
wxWindow* frmVerInfo::MakeInformation(const std::string& text) {
  auto* const frame = new wxPanel(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_THEME | wxTAB_TRAVERSAL);
  auto* const box = new wxTextCtrl(frame, wxID_ANY, ToWx(text), wxDefaultPosition, wxDefaultSize,
                                   wxTE_MULTILINE | wxTE_READONLY | wxTE_NO_VSCROLL | wxBORDER_NONE);
  box->SetName("txtInfo");
  SetAccessibleName(box->GetHandle(), "プログラムの説明と状態");
  for (wxWindow* window : {static_cast<wxWindow*>(frame), static_cast<wxWindow*>(box)}) {
    window->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
    window->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
  }
  box->SetMinSize(SizeToRead(*box, text));
  OnEnter(*box, [this] { EndModal(wxID_OK); });  // a multi-line box would swallow the key
  auto* const room = new wxBoxSizer(wxVERTICAL);
  room->Add(box, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kPadding)));
  frame->SetSizer(room);
  return frame;
}

/// As wide as the longest line. On a narrower screen the box wraps its lines and is higher.
wxSize frmVerInfo::SizeToRead(wxTextCtrl& box, const std::string& text) const {
  wxClientDC dc(&box);
  dc.SetFont(box.GetFont());
  const int screen = wxDisplay(GetParent()).GetClientArea().width;
  const int around = FromDIP(4 * kMargin);
  const int spare = dc.GetCharHeight();  // the box may measure its text differently
  const int width = std::min(dc.GetMultiLineTextExtent(ToWx(text)).x + spare, screen - around);
  const wxString lines = WrappedToFit(box, text, width - spare);
  return box.GetSizeFromTextSize(width, dc.GetMultiLineTextExtent(lines).y);
}

}  // namespace quillon
