#pragma once

#include <wx/window.h>

namespace quillon {

/// The open modal dialog, the last one opened if there are several; `otherwise` when there is none.
[[nodiscard]] wxWindow* TopmostDialog(wxWindow* otherwise);

}  // namespace quillon
