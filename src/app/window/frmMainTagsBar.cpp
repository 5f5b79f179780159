#include "app/window/frmMainTagsBar.h"

#include "controls/WxText.h"

namespace quillon {

void MoreTagsBar::Make() {
  bar_ = new wxInfoBar(&parent_);
  bar_->SetName("barMoreTags");
  bar_->SetShowHideEffects(wxSHOW_EFFECT_NONE, wxSHOW_EFFECT_NONE);
  bar_->AddButton(wxID_OPEN, ToWx("読み取る"));
  bar_->AddButton(wxID_CLOSE, ToWx("閉じる"));
  // Handled here, so that the bar does not disappear before the command has run.
  bar_->Bind(
      wxEVT_BUTTON, [this](wxCommandEvent&) { parent_.CallAfter(handlers_.read); }, wxID_OPEN);
  bar_->Bind(
      wxEVT_BUTTON, [this](wxCommandEvent&) { parent_.CallAfter(handlers_.close); }, wxID_CLOSE);
  bar_->MoveBeforeInTabOrder(parent_.GetChildren().front());
}

void MoreTagsBar::ShowTagsOffer(const std::string& text) {
  if (bar_ == nullptr) Make();
  bar_->ShowMessage(ToWx(text), wxICON_INFORMATION);
  handlers_.layOut();
}

void MoreTagsBar::HideTagsOffer() {
  if (bar_ == nullptr || !bar_->IsShown()) return;
  bar_->Dismiss();
  handlers_.layOut();
}

int MoreTagsBar::Height() const {
  return bar_ != nullptr && bar_->IsShown() ? bar_->GetBestSize().y : 0;
}

void MoreTagsBar::Place(int left, int width) {
  if (const int height = Height(); height > 0) bar_->SetSize(left, 0, width, height);
}

}  // namespace quillon
