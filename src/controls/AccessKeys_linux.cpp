#include <wx/dataview.h>
#include <wx/stattext.h>

#include "controls/AccessKeys.h"

namespace quillon {
namespace {

// A label comes directly before the list that it names.
wxWindow* ListNamedBy(const wxWindow& label, wxChar key) {
  if (dynamic_cast<const wxStaticText*>(&label) == nullptr) return nullptr;
  wxString text;
  const int place = wxControl::FindAccelIndex(label.GetLabel(), &text);
  if (place == wxNOT_FOUND || wxToupper(text[static_cast<std::size_t>(place)]) != key) return nullptr;
  return dynamic_cast<wxDataViewCtrl*>(label.GetNextSibling());
}

}  // namespace

// GTK's access keys do so already, but would focus a part of a list that the keyboard does not move in.
void ReachByAccessKeys(wxWindow& window) {
  window.Bind(wxEVT_CHAR_HOOK, [&window](wxKeyEvent& event) {
    if (event.GetModifiers() == wxMOD_ALT) {
      for (const wxWindow* const child : window.GetChildren()) {
        if (wxWindow* const list = ListNamedBy(*child, static_cast<wxChar>(event.GetKeyCode()))) {
          list->SetFocus();
          return;
        }
      }
    }
    event.Skip();
  });
}

}  // namespace quillon
