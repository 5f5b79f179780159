#include "rename/window/frmModify.h"

#include <wx/app.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "base/Finally.h"
#include "base/Text.h"
#include "controls/Pictures.h"
#include "controls/WxText.h"
#include "platform/desktop/AccessibleName.h"
#include "rename/RegexProblem.h"
#include "rename/window/frmModifyMenus.h"

namespace quillon {
namespace {

constexpr int kAfterTypingMs = 100;
constexpr std::chrono::milliseconds kSlice(15);

std::int16_t Flag(const wxCheckBox& box) {
  return box.GetValue() ? 1 : 0;
}

template <class Handle>
void ForEachDescendant(wxWindow& window, const Handle& handle) {
  for (wxWindow* child : window.GetChildren()) {
    handle(*child);
    ForEachDescendant(*child, handle);
  }
}

}  // namespace

frmModify::frmModify(wxWindow* parent, OptionValues& options, OpenedFor purpose, RegexEngine* regex,
                     MessageBoxes& boxes, RunRules run, const PresetUse& presets, ModifyPreview* preview)
    : wxDialog(parent, wxID_ANY, ToWx("リネーム名の編集"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      options_(options),
      purpose_(purpose),
      regex_(regex),
      boxes_(boxes),
      run_(std::move(run)),
      presets_(*this, presets, regex != nullptr, boxes, PresetForm()),
      preview_(preview) {
  SetName("frmModify");
  SetIcons(ProgramIcons());
  Build();
  ShowForm(ShownForm(options_.modify, regex_ != nullptr));
  chkRunOnce_->SetValue(options_.extra.runRulesOnce);
  UpdateEnabling();
  BindEvents();
  CentreOnParent();
  chkInjustice_->SetFocus();
}

void frmModify::BindEvents() {
  const auto changed = [this](wxCommandEvent& event) {
    event.Skip();
    UpdateEnabling();
    Changed();
  };
  Bind(wxEVT_CHECKBOX, changed);
  Bind(wxEVT_RADIOBUTTON, changed);
  Bind(wxEVT_TEXT, changed);
  timRestart_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Restart(); });
  Bind(wxEVT_IDLE, &frmModify::OnIdle, this);
  // The list of files may change while the dialog is hidden.
  Bind(wxEVT_SHOW, [this](wxShowEvent& event) {
    event.Skip();
    event.IsShown() ? Restart() : PausePreview();
  });
  ForEachDescendant(*this, [this](wxWindow& child) { child.Bind(wxEVT_SET_FOCUS, &frmModify::OnFocus, this); });
  mnuEdit_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OpenMenu(*mnuEdit_, *MakeEditMenu(editedBox_)); });
  mnuPreset_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OpenPresets(); });
  mnuHelp_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OpenMenu(*mnuHelp_, *MakeHelpMenu()); });
  for (const int entry : {kMnuUndo, kMnuCut, kMnuCopy, kMnuPaste, kMnuDelete}) {
    Bind(wxEVT_MENU, &frmModify::OnEdit, this, entry);
  }
  Bind(wxEVT_BUTTON, &frmModify::OnOk, this, wxID_OK);
}

void frmModify::ShowForm(const OptionValues::Modify& form) {
  chkInjustice_->SetValue(form.replaceInvalid);
  txtRevice_->ChangeValue(ToWx(form.invalidReplacement));
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) {
    ruleControls_[i].chkReplace->SetValue(form.rules[i].active);
    ruleControls_[i].txtObject->ChangeValue(ToWx(form.rules[i].find));
    ruleControls_[i].txtReplace->ChangeValue(ToWx(form.rules[i].replacement));
  }
  (form.method == FindMethod::kRegex ? optFindCtrl_S_ : optFindCtrl_No_)->SetValue(true);
  chkIgnoreCase_->SetValue(form.ignoreCase);
  chkNarrow_->SetValue(form.narrow);
  chkWide_->SetValue(form.wide);
  chkLower_->SetValue(form.lower);
  chkUpper_->SetValue(form.upper);
  chkProper_->SetValue(form.proper);
  chkNonUnload_->SetValue(form.keepDialogOpen);
}

OptionValues::Modify frmModify::Form() const {
  OptionValues::Modify form;
  form.replaceInvalid = Flag(*chkInjustice_);
  form.invalidReplacement = FromWx(txtRevice_->GetValue());
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) {
    form.rules[i].active = Flag(*ruleControls_[i].chkReplace);
    form.rules[i].find = FromWx(ruleControls_[i].txtObject->GetValue());
    form.rules[i].replacement = FromWx(ruleControls_[i].txtReplace->GetValue());
  }
  form.method = optFindCtrl_S_->GetValue() ? FindMethod::kRegex : FindMethod::kText;
  form.ignoreCase = Flag(*chkIgnoreCase_);
  form.narrow = Flag(*chkNarrow_);
  form.wide = Flag(*chkWide_);
  form.lower = Flag(*chkLower_);
  form.upper = Flag(*chkUpper_);
  form.proper = Flag(*chkProper_);
  form.keepDialogOpen = Flag(*chkNonUnload_);
  return form;
}

// The system draws a disabled text box in the colours of a button's face, an enabled one in those of a window.
void frmModify::UpdateEnabling() {
  const ModifyEnabling enabling = EnabledBoxes(Form(), regex_ != nullptr);
  txtRevice_->Enable(enabling.invalidReplacement);
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) {
    ruleControls_[i].txtObject->Enable(enabling.ruleTexts[i]);
    ruleControls_[i].txtReplace->Enable(enabling.ruleTexts[i]);
  }
  optFindCtrl_S_->Enable(enabling.regularExpressions);
}

void frmModify::OnFocus(wxFocusEvent& event) {
  event.Skip();
  auto* const control = dynamic_cast<wxWindow*>(event.GetEventObject());
  if (control == focused_) return;
  focused_ = control;
  if (control == mnuEdit_ || control == mnuPreset_ || control == mnuHelp_) return;
  editedBox_ = dynamic_cast<wxTextCtrl*>(control);
  if (editedBox_ == nullptr || editedBox_ == txtRevice_) return;
  // A click sets its caret after this event, so the selection is postponed.
  CallAfter([this, box = editedBox_] {
    if (focused_ == box) box->SelectAll();
  });
}

/// Sets the focus but keeps the caret and the selection, as when the dialog becomes the active window again.
void frmModify::FocusKeepingSelection(wxWindow* control) {
  focused_ = control;
  editedBox_ = dynamic_cast<wxTextCtrl*>(control);
  if (editedBox_ == nullptr) {
    control->SetFocus();
    return;
  }
  // GTK itself selects the text of a box that is given the focus.
  long from = 0;
  long to = 0;
  editedBox_->GetSelection(&from, &to);
  editedBox_->SetFocus();
  editedBox_->SetSelection(from, to);
}

void frmModify::OnEdit(wxCommandEvent& event) {
  if (editedBox_ != nullptr && editedBox_->IsEnabled()) EditText(*editedBox_, event.GetId());
}

void frmModify::OpenMenu(wxButton& button, wxMenu& menu) {
  const wxPoint below = ScreenToClient(button.ClientToScreen(wxPoint(0, button.GetSize().y)));
  PopupMenu(&menu, below);
  if (editedBox_ != nullptr) FocusKeepingSelection(editedBox_);
}

frmModifyPresets::Form frmModify::PresetForm() {
  return {.rules = [this] { return Form(); },
          .checkedRules = [this]() -> std::optional<OptionValues::Modify> {
            OptionValues::Modify form = Form();
            const std::optional<ModifyRefusal> refusal = CheckModifyForm(form);
            if (!refusal) return form;
            Refuse(*refusal);
            return std::nullopt;
          },
          .show =
              [this](const OptionValues::Modify& rules) {
                OptionValues::Modify form = rules;
                form.keepDialogOpen = chkNonUnload_->GetValue();
                ShowForm(form);
                UpdateEnabling();
                Changed();
              }};
}

void frmModify::OpenPresets() {
  mnuPreset_->SetFocus();  // Windows gives the focus of a box that is disabled to the next control
  presets_.Open(*mnuPreset_);
  if (editedBox_ == nullptr) return;
  // The rules that were loaded may have disabled the box.
  FocusKeepingSelection(editedBox_->IsEnabled() ? static_cast<wxWindow*>(editedBox_) : mnuPreset_);
}

void frmModify::Refuse(const ModifyRefusal& refusal) {
  const RuleControls& rule = ruleControls_.at(refusal.rule);
  if (refusal.box == ModifyBox::kFind) {
    boxes_.Show(refusal.message);
    FocusKeepingSelection(rule.txtObject);
    return;
  }
  const std::string text = FromWx(rule.txtReplace->GetValue());
  rule.txtReplace->SetInsertionPoint(static_cast<long>(ToWx(FirstCharacters(text, refusal.caret)).length()));
  // A disabled box cannot have the focus; its check box gets it, with which the user can enable the box.
  wxWindow* const target =
      rule.txtReplace->IsEnabled() ? static_cast<wxWindow*>(rule.txtReplace) : static_cast<wxWindow*>(rule.chkReplace);
  FocusKeepingSelection(target);
  boxes_.Show(refusal.message);
}

void frmModify::OnOk(wxCommandEvent&) {
  const OptionValues::Modify form = Form();
  if (const std::optional<ModifyRefusal> refusal = CheckModifyForm(form)) {
    Refuse(*refusal);
    return;
  }
  options_.modify = StoredForm(form, options_.modify, regex_ != nullptr);
  options_.extra.runRulesOnce = chkRunOnce_->GetValue();
  const bool execute = purpose_ == OpenedFor::kExecute;
  if (!form.keepDialogOpen) {
    runWhenClosed_ = execute;
    EndModal(wxID_OK);
  } else if (execute) {
    RunWithDialogOpen();
  }
}

int frmModify::ShowModal() {
  runWhenClosed_ = false;
  const int answer = wxDialog::ShowModal();
  if (std::exchange(runWhenClosed_, false)) run_(ShownForm(options_.modify, regex_ != nullptr));
  return answer;
}

/// Disables the dialog meanwhile: the run processes messages, and another one must not be started.
void frmModify::RunWithDialogOpen() {
  wxWindow* const focused = focused_;
  PausePreview();
  Disable();
  const Finally usable([&] {
    Enable();
    if (focused != nullptr) FocusKeepingSelection(focused);
    Changed();
  });
  run_(ShownForm(options_.modify, regex_ != nullptr));
}

void frmModify::Changed() {
  timRestart_.StartOnce(kAfterTypingMs);
}

void frmModify::Restart() {
  const OptionValues::Modify form = Form();
  ShowProblems(form);
  if (preview_ == nullptr) return;
  preview_->Restart(form, chkRunOnce_->GetValue() ? Repetition::kOnce : Repetition::kPerRow);
  // At once, so that short lists never look empty in between.
  working_ = preview_->Work(kSlice);
  ShowPreview();
  wxWakeUpIdle();
}

void frmModify::PausePreview() {
  timRestart_.Stop();
  working_ = false;
}

void frmModify::OnIdle(wxIdleEvent& event) {
  event.Skip();
  if (!working_) return;
  working_ = preview_->Work(kSlice);
  if (working_) event.RequestMore();
  if (!working_ || shown_.Due()) ShowPreview();
}

void frmModify::ShowPreview() {
  lvwPreview_->SetCount(preview_->ShownCount());
  lvwPreview_->Refresh();
  lblSummary_->SetLabelText(ToWx(preview_->Summary()));
  ShowGrowth(preview_->GrowthNote());
}

void frmModify::ShowProblems(const OptionValues::Modify& form) {
  std::string problems;
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) {
    const ReplaceRule& rule = form.rules[i];
    const bool checked = regex_ != nullptr && form.method == FindMethod::kRegex && rule.active && !rule.find.empty();
    const std::string problem =
        checked ? RegexProblem(rule.find, rule.replacement, form.ignoreCase, *regex_).value_or("") : "";
    ShowProblem(i, problem);
    if (problem.empty()) continue;
    problems += (problems.empty() ? "規則 " : " / 規則 ") + std::to_string(i + 1) + ": " + problem;
  }
  if (FromWx(lblProblem_->GetLabelText()) != problems) lblProblem_->SetLabelText(ToWx(problems));
}

// Boxes are named with what is shown elsewhere about them, so that it is read aloud.
void frmModify::ShowProblem(std::size_t rule, const std::string& problem) {
  RuleControls& controls = ruleControls_.at(rule);
  if (std::exchange(controls.problem, problem) == problem) return;
  controls.txtObject->SetToolTip(ToWx(problem));
  const std::string name = "検索する文字列 " + std::to_string(rule + 1);
  SetAccessibleName(controls.txtObject->GetHandle(), problem.empty() ? name : name + " " + problem);
}

void frmModify::ShowGrowth(const std::string& note) {
  if (FromWx(lblGrowth_->GetLabelText()) == note) return;
  lblGrowth_->SetLabelText(ToWx(note));
  const std::string name = "一度だけ実行する";
  SetAccessibleName(chkRunOnce_->GetHandle(), note.empty() ? name : name + " " + note);
}

}  // namespace quillon
