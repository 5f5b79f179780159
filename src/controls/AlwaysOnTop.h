#pragma once

#include <wx/window.h>

namespace quillon {

/// Puts a top-level window above all others, or among them again.
void SetOnTop(wxWindow& window, bool front);

}  // namespace quillon
