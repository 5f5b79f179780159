#pragma once

#include <wx/frame.h>
#include <wx/statusbr.h>

namespace quillon {

/// Makes a status bar whose panels show their texts on one baseline. GTK's toolkit centres every text by its own
/// height, which is larger where characters of several fonts stand together.
[[nodiscard]] wxStatusBar* MakeStatusBarOnBaseline(wxFrame& frame, long style);

}  // namespace quillon
