#pragma once

#include <wx/window.h>

namespace quillon {

/// The modal dialog that is open, the last one where several are; `otherwise` when there is none.
[[nodiscard]] wxWindow* TopmostDialog(wxWindow* otherwise);

}  // namespace quillon
