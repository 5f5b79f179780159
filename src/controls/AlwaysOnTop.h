#pragma once

#include <wx/window.h>

namespace quillon {

/// Keeps a top-level window above all others, or stops doing so.
void SetOnTop(wxWindow& window, bool front);

}  // namespace quillon
