#include "controls/TopmostDialog.h"

#include <wx/dialog.h>

namespace quillon {

wxWindow* TopmostDialog(wxWindow* otherwise) {
  wxWindow* top = otherwise;
  for (wxWindow* window : wxTopLevelWindows) {
    const auto* dialog = dynamic_cast<wxDialog*>(window);
    if (dialog != nullptr && dialog->IsModal() && dialog->IsShown()) top = window;
  }
  return top;
}

}  // namespace quillon
