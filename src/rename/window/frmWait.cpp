#include "rename/window/frmWait.h"

#include <wx/app.h>
#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/evtloop.h>
#include <wx/gauge.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/timer.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <utility>

#include "controls/ShortenedToFit.h"
#include "controls/TopmostDialog.h"
#include "controls/WxText.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

constexpr int kTextWidth = 380;  // DIP
constexpr int kGap = 12;         // DIP
constexpr int kSmallGap = 4;     // DIP
constexpr int kPercents = 100;
constexpr int kLastingMs = 500;  // a quick run does not take the keyboard focus

long StyleOver(const wxWindow* parent) {
  const bool onTop = parent != nullptr && parent->HasFlag(wxSTAY_ON_TOP);
  return wxCAPTION | (onTop ? wxSTAY_ON_TOP : 0);
}

}  // namespace

class frmWait::Window final : public wxDialog {
 public:
  Window(wxWindow* parent, const std::string& headline, const std::string& line, std::function<void()> cancel);

  void ShowProgress(int percent, const std::string& text, const std::string& path);
  void PaintNow();

 private:
  wxStaticText* AddLabel(wxSizer& column, const char* name, long style);
  void AddButton(wxSizer& column);
  void TakeKeyboardWhenLasting();

  using Clock = std::chrono::steady_clock;

  std::function<void()> cancel_;
  Clock::time_point begun_ = Clock::now();
  bool hasKeyboard_ = false;
  wxTimer timLasting_;

  wxStaticText* lblHeadline_ = nullptr;
  wxStaticText* lblLine_ = nullptr;
  wxGauge* gauge_ = nullptr;
  wxStaticText* lblPercent_ = nullptr;
  wxStaticText* lblPath_ = nullptr;
  wxButton* cmdCancel_ = nullptr;
};

frmWait::Window::Window(wxWindow* parent, const std::string& headline, const std::string& line,
                        std::function<void()> cancel)
    : wxDialog(parent, wxID_ANY, wxTheApp->GetAppDisplayName(), wxDefaultPosition, wxDefaultSize, StyleOver(parent)),
      cancel_(std::move(cancel)) {
  SetName(kWaitWindow);
  auto* column = new wxBoxSizer(wxVERTICAL);
  lblHeadline_ = AddLabel(*column, "lblHeadline", 0);
  column->AddSpacer(FromDIP(kGap));
  lblLine_ = AddLabel(*column, "lblLine", 0);
  gauge_ = new wxGauge(this, wxID_ANY, kPercents);
  gauge_->SetName("gauge");
  column->Add(gauge_, wxSizerFlags().Expand().Border(wxTOP | wxBOTTOM, FromDIP(kSmallGap)));
  lblPercent_ = AddLabel(*column, "lblPercent", wxST_NO_AUTORESIZE);
  lblPath_ = AddLabel(*column, "lblPath", wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_MIDDLE);
  AddButton(*column);
  wxString lines = ToWx(headline);
  lines.Replace("\r\n", "\n");
  lblHeadline_->SetLabelText(lines);
  lblLine_->SetLabelText(ToWx(line));
  auto* border = new wxBoxSizer(wxVERTICAL);
  border->Add(column, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kGap)));
  column->SetMinSize(FromDIP(kTextWidth), -1);
  SetSizerAndFit(border);
  CentreOnParent();
  // Only End closes it.
  Bind(wxEVT_CLOSE_WINDOW, [](wxCloseEvent& event) { event.Veto(event.CanVeto()); });
  // A timer, because nothing is shown while one item takes long.
  timLasting_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { TakeKeyboardWhenLasting(); });
  timLasting_.StartOnce(kLastingMs);
}

void frmWait::Window::AddButton(wxSizer& column) {
  cmdCancel_ = new wxButton(this, wxID_CANCEL, ToWx("中止"));
  cmdCancel_->SetName("cmdCancel");
  SetEscapeId(wxID_CANCEL);
  cmdCancel_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
    cancel_();
    cmdCancel_->Disable();
  });
  column.Add(cmdCancel_, wxSizerFlags().Right().Border(wxTOP, FromDIP(kGap)));
}

// Does not take it from another program that the user has switched to.
void frmWait::Window::TakeKeyboardWhenLasting() {
  if (hasKeyboard_ || Clock::now() - begun_ < std::chrono::milliseconds(kLastingMs)) return;
  hasKeyboard_ = true;
  if (!wxTheApp->IsActive()) return;
  cmdCancel_->SetFocus();
  Raise();
}

wxStaticText* frmWait::Window::AddLabel(wxSizer& column, const char* name, long style) {
  // A blank gives the label the height of one line.
  auto* label = new wxStaticText(this, wxID_ANY, " ", wxDefaultPosition, wxDefaultSize, style);
  label->SetName(name);
  column.Add(label, wxSizerFlags().Expand());
  return label;
}

void frmWait::Window::ShowProgress(int percent, const std::string& text, const std::string& path) {
  gauge_->SetValue(std::clamp(percent, 0, kPercents));
  lblPercent_->SetLabelText(ToWx(text));
  lblPath_->SetLabelText(ShortenedToFit(*lblPath_, path, lblPath_->GetClientSize().x));
  TakeKeyboardWhenLasting();
  PaintNow();
}

/// Paints the window and handles its clicks, which a busy program does not do by itself. The caller keeps the other
/// windows from starting anything.
void frmWait::Window::PaintNow() {
  wxDialog::Update();
  if (wxEventLoopBase* const loop = wxEventLoopBase::GetActive()) {
    loop->YieldFor(wxEVT_CATEGORY_UI | wxEVT_CATEGORY_USER_INPUT);
  }
}

frmWait::Window* frmWait::Shown() const {
  return static_cast<Window*>(window_.get());
}

void frmWait::Begin(const std::string& headline, const std::string& line) {
  End();
  cancelled_ = false;
  auto* const window = new Window(TopmostDialog(parent_), headline, line, [this] { Cancel(); });
  window_ = window;
  window->ShowWithoutActivating();
  window->PaintNow();
}

void frmWait::Update(int percent, const std::string& text, const std::string& path) {
  if (Window* const window = Shown()) window->ShowProgress(percent, text, path);
}

void frmWait::End() {
  Window* const window = Shown();
  if (window == nullptr) return;
  // Gives the keyboard back to the window below. Windows itself would skip it while it is disabled, and activate
  // another program.
  if (window->IsActive()) window->GetParent()->Raise();
  // Deleted at once: GTK shows a window that is hidden before it has appeared, and Destroy would keep it until idle.
  delete window;
}

}  // namespace quillon
