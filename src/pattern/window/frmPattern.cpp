#include "pattern/window/frmPattern.h"

#include <wx/app.h>

#include <chrono>
#include <utility>

#include "base/Text.h"
#include "controls/Pictures.h"
#include "controls/WxText.h"
#include "platform/desktop/AccessibleName.h"

namespace quillon {
namespace {

constexpr int kAfterTypingMs = 100;
constexpr std::chrono::milliseconds kSlice(15);

}  // namespace

frmPattern::frmPattern(wxWindow* parent, OptionValues& options, const ApplyMode& mode, PatternPreview& preview,
                       std::function<void()> showHelp)
    : wxDialog(parent, wxID_ANY, ToWx("書式でリネーム"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      options_(options),
      mode_(mode),
      preview_(preview),
      showHelp_(std::move(showHelp)) {
  SetName("frmPattern");
  SetIcons(ProgramIcons());
  Build();
  ShowForm(ShownPatternForm(options_.extra));
  BindEvents();
  Restart();
  CentreOnParent();
  cboPattern_->SetFocus();
}

void frmPattern::BindEvents() {
  const auto changed = [this](wxCommandEvent& event) {
    Changed();
    event.Skip();
  };
  Bind(wxEVT_TEXT, changed);
  Bind(wxEVT_COMBOBOX, changed);
  Bind(wxEVT_CHOICE, changed);
  Bind(wxEVT_SPINCTRL, [this](wxSpinEvent&) { Changed(); });
  timRestart_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Restart(); });
  Bind(wxEVT_IDLE, &frmPattern::OnIdle, this);
  // The first focus selects the whole pattern, which a field's button would then replace.
  Bind(wxEVT_SHOW, [this](wxShowEvent& event) {
    event.Skip();
    if (event.IsShown()) CallAfter([this] { cboPattern_->SetInsertionPointEnd(); });
  });
  Bind(wxEVT_BUTTON, &frmPattern::OnOk, this, wxID_OK);
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_F1 && !event.HasAnyModifiers()) {
      showHelp_();
    } else {
      event.Skip();
    }
  });
}

void frmPattern::ShowForm(const PatternForm& form) {
  for (const std::string& pattern : options_.extra.patterns) {
    if (!pattern.empty()) cboPattern_->Append(ToWx(pattern));
  }
  cboPattern_->SetValue(ToWx(form.pattern));
  from_ = to_ = cboPattern_->GetLastPosition();
  spnStart_->SetValue(form.start);
  spnStep_->SetValue(form.step);
  spnDigits_->SetValue(form.digits);
  cboInvalid_->SetSelection(static_cast<int>(form.invalid));
  txtReplacement_->ChangeValue(ToWx(form.replacement));
}

PatternForm frmPattern::Form() const {
  return {.pattern = FromWx(cboPattern_->GetValue()),
          .start = spnStart_->GetValue(),
          .step = spnStep_->GetValue(),
          .digits = spnDigits_->GetValue(),
          .invalid = static_cast<PatternInvalid>(cboInvalid_->GetSelection()),
          .replacement = FromWx(txtReplacement_->GetValue())};
}

void frmPattern::Insert(const wxString& field) {
  const auto length = static_cast<long>(cboPattern_->GetValue().length());
  if (length - (to_ - from_) + static_cast<long>(field.length()) > kLongestPattern) {
    wxBell();
    return;
  }
  cboPattern_->Replace(from_, to_, field);
  from_ = to_ = from_ + static_cast<long>(field.length());
  // The focus would select the whole text.
  cboPattern_->SetFocus();
  cboPattern_->SetSelection(from_, to_);
  Changed();
}

void frmPattern::Changed() {
  txtReplacement_->Enable(Form().invalid == PatternInvalid::kReplaced);
  timRestart_.StartOnce(kAfterTypingMs);
}

void frmPattern::Restart() {
  const PatternForm form = Form();
  txtReplacement_->Enable(form.invalid == PatternInvalid::kReplaced);
  Result<PatternRules, PatternRefusal> rules = RulesOf(form, options_.rename, mode_.automatic);
  ShowError(rules ? std::string() : rules.Failure().reason);
  preview_.Restart(rules ? std::optional(std::move(*rules)) : std::nullopt);
  working_ = true;
  wxWakeUpIdle();
}

// Named with its error, so that this is read aloud with the box.
void frmPattern::ShowError(const std::string& text) {
  if (FromWx(lblError_->GetLabelText()) == text) return;
  lblError_->SetLabelText(ToWx(text));
  SetAccessibleName(cboPattern_->GetHandle(), text.empty() ? "書式" : "書式 " + text);
}

void frmPattern::OnIdle(wxIdleEvent& event) {
  event.Skip();
  if (FindFocus() == cboPattern_) cboPattern_->GetSelection(&from_, &to_);
  if (!working_) return;
  working_ = preview_.Work(kSlice);
  if (working_) event.RequestMore();
  if (working_ && !shown_.Due()) return;
  lvwPreview_->Refresh();
  lblSummary_->SetLabelText(ToWx(preview_.Summary()));
}

void frmPattern::OnOk(wxCommandEvent&) {
  const PatternForm form = Form();
  Result<PatternRules, PatternRefusal> rules = RulesOf(form, options_.rename, mode_.automatic);
  if (!rules) return Refuse(rules.Failure());
  rules_ = std::move(*rules);
  StorePatternForm(form, options_.extra);
  EndModal(wxID_OK);
}

void frmPattern::Refuse(const PatternRefusal& refusal) {
  ShowError(refusal.reason);
  const bool inPattern = refusal.box == PatternBox::kPattern;
  const std::string text = FromWx(inPattern ? cboPattern_->GetValue() : txtReplacement_->GetValue());
  // The toolkit counts its own units.
  const auto caret = static_cast<long>(ToWx(FirstCharacters(text, refusal.caret)).length());
  if (inPattern) {
    cboPattern_->SetFocus();
    cboPattern_->SetSelection(caret, caret);
  } else {
    txtReplacement_->SetFocus();
    txtReplacement_->SetSelection(caret, caret);
  }
}

}  // namespace quillon
