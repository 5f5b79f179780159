#include "filelist/window/frmFolderRef.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/utils.h>

#include <utility>

#include "controls/AlwaysOnTop.h"
#include "controls/ShortenedToFit.h"
#include "controls/WxText.h"

namespace quillon {
namespace {

constexpr int kShowAfterMs = 50;  // a quick search does not show the window
constexpr int kWidth = 440;
constexpr int kGap = 12;

}  // namespace

frmFolderRef::frmFolderRef(wxWindow* parent, std::function<void()> cancel)
    : wxDialog(parent, wxID_ANY, ToWx("フォルダ参照"), wxDefaultPosition, wxDefaultSize, wxCAPTION),
      cancel_(std::move(cancel)) {
  SetName("frmFolderRef");
  if (auto* const owner = dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(parent))) SetIcons(owner->GetIcons());
  auto* column = new wxBoxSizer(wxVERTICAL);
  lblStatus_ = new wxStaticText(this, wxID_ANY, ToWx("対象ファイルを探しています..."));
  lblTarget_ = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, FromDIP(wxSize(kWidth, -1)), wxST_NO_AUTORESIZE);
  lblFolder_ = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, FromDIP(wxSize(kWidth, -1)), wxST_NO_AUTORESIZE);
  lblStatus_->SetName("lblStatus");
  lblTarget_->SetName("lblTarget");
  lblFolder_->SetName("lblFolder");
  auto* cmdCancel = new wxButton(this, wxID_CANCEL, ToWx("中止"));
  cmdCancel->SetName("cmdCancel");
  const wxSizerFlags line = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(kGap));
  column->Add(lblStatus_, line);
  column->Add(lblTarget_, line);
  column->Add(lblFolder_, line);
  column->Add(cmdCancel, wxSizerFlags().Right().Border(wxALL, FromDIP(kGap)));
  SetSizerAndFit(column);
  SetEscapeId(wxID_CANCEL);
  cmdCancel->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { cancel_(); });
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { cancel_(); });
  // GTK shows a window again that was hidden before the window system had put it on the screen.
  Bind(wxEVT_SHOW, [this](wxShowEvent& event) {
    event.Skip();
    if (event.IsShown() && !wanted_) Hide();
  });
}

void frmFolderRef::SetTarget(const std::string& target) {
  lblTarget_->SetLabelText(ShortenedToFit(*lblTarget_, target, FromDIP(kWidth)));
}

void frmFolderRef::SetFolder(const std::string& folder) {
  lblFolder_->SetLabelText(ShortenedToFit(*lblFolder_, folder, FromDIP(kWidth)));
}

void frmFolderRef::Appear() {
  wanted_ = true;
  SetOnTop(*this, GetParent()->HasFlag(wxSTAY_ON_TOP));
  CentreOnParent();
  Show();
}

void frmFolderRef::Vanish() {
  wanted_ = false;
  Hide();
}

LongSearch::LongSearch(wxWindow& parent, std::function<void()> cancel) : parent_(parent), cancel_(std::move(cancel)) {
  timFolderRef_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnTimer(); });
}

void LongSearch::Begin(const std::string& /*status*/, const std::string& target) {
  wxBeginBusyCursor();
  target_ = target;
  folder_.clear();
  timFolderRef_.StartOnce(kShowAfterMs);
}

// A window that appears before its owner would lie below it.
void LongSearch::OnTimer() {
  if (!parent_.IsShown()) {
    timFolderRef_.StartOnce(kShowAfterMs);
    return;
  }
  Window().SetTarget(target_);
  window_->SetFolder(folder_);
  window_->Appear();
}

void LongSearch::ShowFolder(const std::string& folder) {
  folder_ = folder;
  if (window_ != nullptr && window_->IsShown()) window_->SetFolder(folder);
}

void LongSearch::End() {
  timFolderRef_.Stop();
  if (window_ != nullptr) window_->Vanish();
  if (wxIsBusy()) wxEndBusyCursor();
}

frmFolderRef& LongSearch::Window() {
  if (window_ == nullptr) window_ = new frmFolderRef(&parent_, cancel_);
  return *window_;
}

}  // namespace quillon
