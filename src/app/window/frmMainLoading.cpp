#include "app/window/frmMainLoading.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>

#include <utility>

#include "controls/Pictures.h"
#include "controls/ShortenedToFit.h"
#include "controls/WxText.h"

namespace quillon {
namespace {

constexpr std::chrono::milliseconds kLate(50);
constexpr int kPicture = 48;  // DIP

}  // namespace

LoadingLabel::LoadingLabel(wxWindow& parent, const std::function<wxWindow&()>& list, std::function<void()> changed)
    : list_(list),
      changed_(std::move(changed)),
      lblNowloading_(new wxPanel(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_THEME)) {
  lblNowloading_->Hide();
  lblNowloading_->SetName("lblNowloading");
}

void LoadingLabel::MakeContents() {
  const wxColour ink = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
  auto* picNowLoding = new wxStaticBitmap(lblNowloading_, wxID_ANY, Picture("loading", kPicture, ink));
  picNowLoding->SetName("picNowLoding");
  const auto makeText = [this](const char* name) {
    auto* text = new wxStaticText(lblNowloading_, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                  wxALIGN_CENTRE_HORIZONTAL | wxST_NO_AUTORESIZE);
    text->SetName(name);
    return text;
  };
  lblPicNowLoding_ = makeText("lblPicNowLoding");
  lblLine_ = makeText("lblNowloadingLine");
  lblPercent_ = makeText("lblNowloadingPercent");
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->AddStretchSpacer();
  column->Add(picNowLoding, wxSizerFlags().Centre());
  for (wxStaticText* text : {lblPicNowLoding_, lblLine_, lblPercent_}) {
    column->Add(text, wxSizerFlags().Expand().Border(wxTOP, lblNowloading_->FromDIP(4)));
  }
  column->AddStretchSpacer();
  lblNowloading_->SetSizer(column);
}

void LoadingLabel::Begin(const std::string& headline, const std::string& line) {
  if (lblLine_ == nullptr) MakeContents();
  lblPicNowLoding_->SetLabelText(ToWx(headline));
  lblLine_->SetLabelText(ShortenedToFit(*lblLine_, line, list_().GetClientSize().x));
  lblPercent_->SetLabelText("");
  begun_ = Clock::now();
  active_ = true;
}

void LoadingLabel::Update(int /*percent*/, const std::string& text, const std::string& /*path*/) {
  lblPercent_->SetLabelText(ToWx(text));
}

void LoadingLabel::ShowIfLate() {
  if (!active_ || lblNowloading_->IsShown() || Clock::now() - begun_ < kLate) return;
  hadFocus_ = list_().HasFocus() || list_().IsDescendant(wxWindow::FindFocus());
  list_().Hide();
  lblNowloading_->Layout();
  lblNowloading_->Show();
  changed_();
}

void LoadingLabel::End() {
  active_ = false;
  if (!lblNowloading_->IsShown()) return;
  lblNowloading_->Hide();
  list_().Show();
  if (hadFocus_) list_().SetFocus();
  changed_();
}

void YieldingMessages::Process() {
  if (!throttle_.Due()) return;
  before_();
  if (wxEventLoopBase* loop = wxEventLoopBase::GetActive()) loop->YieldFor(wxEVT_CATEGORY_ALL);
}

}  // namespace quillon
