#include "controls/AlwaysOnTop.h"

#include <wx/toplevel.h>

namespace quillon {

void SetOnTop(wxWindow& window, bool front) {
  const long style = window.GetWindowStyleFlag();
  window.SetWindowStyleFlag(front ? style | wxSTAY_ON_TOP : style & ~wxSTAY_ON_TOP);
}

}  // namespace quillon
