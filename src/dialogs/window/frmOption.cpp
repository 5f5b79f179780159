#include "dialogs/window/frmOption.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/radiobut.h>
#include <wx/textctrl.h>

#include <utility>

#include "controls/Pictures.h"
#include "controls/WxText.h"

namespace quillon {

frmOption::frmOption(wxWindow* parent, OptionForm& form, std::function<void(wxWindow&)> modifyOption,
                     std::function<void()> showHelp)
    : wxDialog(parent, wxID_ANY, ToWx("オプション")),
      form_(form),
      modifyOption_(std::move(modifyOption)),
      showHelp_(std::move(showHelp)) {
  SetName("frmOption");
  SetIcons(ProgramIcons());
  Build();
  ShowForm();
  BindEvents();
  CentreOnParent();
}

void frmOption::BindEvents() {
  Bind(wxEVT_CHECKBOX, &frmOption::OnClick, this);
  Bind(wxEVT_RADIOBUTTON, &frmOption::OnClick, this);
  Bind(wxEVT_TEXT, &frmOption::OnText, this);
  controls_.at("cmdModifyOption")->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { modifyOption_(*this); });
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_F1 && !event.HasAnyModifiers()) {
      showHelp_();
    } else {
      event.Skip();
    }
  });
  // Closing the dialog, by its frame's button or Esc, raises cmdCancel's event, too.
  for (const int button : {wxID_OK, wxID_CANCEL}) {
    Bind(
        wxEVT_BUTTON, [this, button](wxCommandEvent&) { End(button); }, button);
  }
}

void frmOption::OnClick(wxCommandEvent& event) {
  const auto* const control = dynamic_cast<wxWindow*>(event.GetEventObject());
  form_.Click(FromWx(control->GetName()), event.IsChecked() || event.GetEventType() == wxEVT_RADIOBUTTON,
              [this] { ShowForm(); });
}

void frmOption::OnText(wxCommandEvent& event) {
  const auto* const control = dynamic_cast<wxWindow*>(event.GetEventObject());
  form_.Type(FromWx(control->GetName()), FromWx(event.GetString()));
}

// The system draws a disabled text box in the colours of a button's face, an enabled one in those of a window.
void frmOption::ShowForm() {
  for (const auto& [name, control] : controls_) {
    if (auto* const box = dynamic_cast<wxCheckBox*>(control)) box->SetValue(form_.Checked(name));
    if (auto* const option = dynamic_cast<wxRadioButton*>(control)) option->SetValue(form_.Checked(name));
    if (auto* const text = dynamic_cast<wxTextCtrl*>(control); text && FromWx(text->GetValue()) != form_.Text(name)) {
      text->ChangeValue(ToWx(form_.Text(name)));
    }
    control->Enable(form_.Enabled(name));
  }
}

void frmOption::End(int answer) {
  if (answer == wxID_OK) {
    form_.cmdOK();
  } else {
    form_.cmdCancel();
  }
  EndModal(answer);
}

}  // namespace quillon
