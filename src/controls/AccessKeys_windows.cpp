#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/collpane.h>
#include <wx/control.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>
#include <cstddef>
#include <vector>

#include "controls/AccessKeys.h"
#include "platform/desktop/AltKey.h"

namespace quillon {
namespace {

// Returns the letter behind a single "&", in upper case; 0 when there is none.
wxChar AccessKeyOf(const wxString& label) {
  for (std::size_t i = 0; i + 1 < label.length(); ++i) {
    if (label[i] != '&') continue;
    if (label[i + 1] != '&') return static_cast<wxChar>(wxToupper(label[i + 1]));
    ++i;
  }
  return 0;
}

void FindControls(const wxWindow& parent, wxChar key, std::vector<wxControl*>& found) {
  for (wxWindow* const child : parent.GetChildren()) {
    auto* const control = dynamic_cast<wxControl*>(child);
    const bool usable = child->IsShownOnScreen() && child->IsEnabled();
    if (control != nullptr && usable && AccessKeyOf(control->GetLabel()) == key) {
      found.push_back(control);  // not its children: a part of it may repeat its label
    } else {
      FindControls(*child, key, found);
    }
  }
}

void Send(wxControl& control, wxEventType type, int value) {
  wxCommandEvent event(type, control.GetId());
  event.SetEventObject(&control);
  event.SetInt(value);
  control.ProcessWindowEvent(event);
}

// A label comes directly before the control that it names.
wxWindow* FocusOf(wxControl& control) {
  return dynamic_cast<wxStaticText*>(&control) != nullptr ? control.GetNextSibling() : &control;
}

void Use(wxControl& control) {
  if (wxWindow* const focus = FocusOf(control)) focus->SetFocus();
  if (auto* const box = dynamic_cast<wxCheckBox*>(&control)) {
    box->SetValue(!box->GetValue());
    Send(control, wxEVT_CHECKBOX, box->GetValue() ? 1 : 0);
  } else if (auto* const option = dynamic_cast<wxRadioButton*>(&control)) {
    option->SetValue(true);
    Send(control, wxEVT_RADIOBUTTON, 1);
  } else if (auto* const pane = dynamic_cast<wxCollapsiblePane*>(&control)) {
    pane->Collapse(!pane->IsCollapsed());
    pane->GetParent()->GetSizer()->SetSizeHints(pane->GetParent());
  } else if (dynamic_cast<wxButton*>(&control) != nullptr) {
    Send(control, wxEVT_BUTTON, 0);
  }
}

// When several controls share a key, it moves the focus from one to the next without activating any, as usual on
// Windows.
void GoOn(const std::vector<wxControl*>& controls) {
  const auto focused = std::find_if(controls.begin(), controls.end(),
                                    [](wxControl* control) { return FocusOf(*control) == wxWindow::FindFocus(); });
  const bool last = focused == controls.end() || focused + 1 == controls.end();
  if (wxWindow* const next = FocusOf(last ? *controls.front() : **(focused + 1))) next->SetFocus();
}

}  // namespace

void ReachByAccessKeys(wxWindow& window) {
  window.Bind(wxEVT_CHAR_HOOK, [&window](wxKeyEvent& event) {
    std::vector<wxControl*> controls;
    const int key = event.GetKeyCode();
    const bool letter = event.GetModifiers() == wxMOD_ALT && key >= '0' && key <= 'Z';
    if (letter) FindControls(window, static_cast<wxChar>(key), controls);
    if (controls.empty()) return event.Skip();
    UseAltKey(window.GetHandle());
    if (controls.size() == 1) {
      Use(*controls.front());
    } else {
      GoOn(controls);
    }
  });
}

}  // namespace quillon
