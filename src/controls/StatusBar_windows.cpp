#include "controls/StatusBar.h"

namespace quillon {

wxStatusBar* MakeStatusBarOnBaseline(wxFrame& frame, long style) {
  return new wxStatusBar(&frame, wxID_ANY, style);
}

}  // namespace quillon
