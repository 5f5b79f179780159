#include "app/window/frmMainFindLine.h"

#include "app/CommandTable.h"
#include "controls/WxText.h"
#include "platform/desktop/AccessibleName.h"

namespace quillon {
namespace {

// DIP
constexpr int kGap = 4;
constexpr int kNarrowestBox = 60;

constexpr const char* kWidestUsualText = "見つかりません";

std::string TipOf(Command command) {
  return PlainCaption(command) + " (" + EntryOf(command).shortcut + ")";
}

}  // namespace

void FraFind::Make() {
  fraFind_ = new wxPanel(&parent_, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL);
  fraFind_->Hide();
  fraFind_->SetName("fraFind");
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  AddControls(*row);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(row, wxSizerFlags(1).Expand().Border(wxTOP | wxBOTTOM, fraFind_->FromDIP(kGap / 2)));
  fraFind_->SetSizer(column);
  fraFind_->MoveBeforeInTabOrder(&list_());
  txtFind_->Bind(wxEVT_TEXT, [this](wxCommandEvent& event) {
    event.Skip();
    handlers_.typed(FromWx(txtFind_->GetValue()));
  });
  txtFind_->Bind(wxEVT_CHAR, [this](wxKeyEvent& event) { OnBoxKey(event); });
  fraFind_->Bind(wxEVT_CHAR_HOOK, &FraFind::OnButtonKey, this);
}

void FraFind::AddControls(wxSizer& row) {
  auto* label = new wxStaticText(fraFind_, wxID_ANY, ToWx("検索"));
  label->SetName("lblFind");
  txtFind_ = new TextBox(fraFind_, wxID_ANY, wxTE_PROCESS_ENTER);
  txtFind_->SetName("txtFind");
  txtFind_->SetMinSize(wxSize(fraFind_->FromDIP(kNarrowestBox), -1));
  SetAccessibleName(txtFind_->GetHandle(), "検索する文字");
  wxButton* const previous = MakeButton("cmdFindPrevious", "前へ", TipOf(Command::mnuFindPrevious), handlers_.previous);
  wxButton* const next = MakeButton("cmdFindNext", "次へ", TipOf(Command::mnuFindNext), handlers_.next);
  lblFound_ = new wxStaticText(fraFind_, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE);
  lblFound_->SetName("lblFound");
  lblFound_->SetMinSize(wxSize(lblFound_->GetTextExtent(ToWx(kWidestUsualText)).x, -1));
  wxButton* const close = MakeButton("cmdFindClose", "閉じる", "Esc", handlers_.close);
  const wxSizerFlags after = wxSizerFlags().Centre().Border(wxLEFT, fraFind_->FromDIP(kGap));
  row.Add(label, after);
  row.Add(txtFind_, wxSizerFlags(after).Proportion(2));
  row.Add(previous, after);
  row.Add(next, after);
  row.Add(lblFound_, wxSizerFlags(after).Proportion(1));
  row.Add(close, after);
}

wxButton* FraFind::MakeButton(const char* name, const char* label, const std::string& tip,
                              const std::function<void()>& pressed) {
  auto* button = new wxButton(fraFind_, wxID_ANY, ToWx(label), wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT);
  button->SetName(name);
  button->SetMinSize(button->GetBestSize() + fraFind_->FromDIP(wxSize(4 * kGap, 0)));  // GTK's fit is very tight
  button->SetToolTip(ToWx(tip));
  button->Bind(wxEVT_BUTTON, [pressed](wxCommandEvent&) { pressed(); });
  return button;
}

// Key presses come here after an input method, which needs Enter and Esc itself while it composes.
void FraFind::OnBoxKey(wxKeyEvent& event) const {
  switch (event.GetKeyCode()) {
    case WXK_ESCAPE: return handlers_.close();
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER: return event.ShiftDown() ? handlers_.previous() : handlers_.next();
    default: event.Skip();
  }
}

void FraFind::OnButtonKey(wxKeyEvent& event) {
  if (event.GetKeyCode() == WXK_ESCAPE && !txtFind_->HasFocus()) {
    handlers_.close();
  } else {
    event.Skip();
  }
}

void FraFind::OpenFindLine() {
  if (fraFind_ == nullptr) Make();
  if (!fraFind_->IsShown()) {
    fraFind_->Show();
    handlers_.layOut();
  }
  txtFind_->SetFocus();
  txtFind_->SelectAll();
}

void FraFind::CloseFindLine() {
  if (!IsFindLineOpen()) return;
  list_().SetFocus();
  fraFind_->Hide();
  handlers_.layOut();
}

void FraFind::ShowFound(const std::string& text) {
  if (FromWx(lblFound_->GetLabelText()) == text) return;
  lblFound_->SetLabelText(ToWx(text));
  const int needed = lblFound_->GetTextExtent(ToWx(text)).x;
  if (needed <= lblFound_->GetMinSize().x) return;
  lblFound_->SetMinSize(wxSize(needed, -1));
  fraFind_->Layout();
}

void FraFind::SetInputEnabled(bool enabled) {
  if (txtFind_ != nullptr) txtFind_->SetEditable(enabled);
}

int FraFind::Height() const {
  return IsFindLineOpen() ? fraFind_->GetBestSize().y : 0;
}

void FraFind::Place(int left, int top, int width) {
  if (IsFindLineOpen()) fraFind_->SetSize(left, top, width, Height());
}

}  // namespace quillon
