#pragma once

#include <wx/window.h>

namespace quillon {

/// The name of the wait window, which is shown over its owner while a run lasts.
inline constexpr const char* kWaitWindow = "frmWait";

/// The open modal dialog, the last one opened if there are several; `otherwise` when there is none.
[[nodiscard]] wxWindow* TopmostDialog(wxWindow* otherwise);

}  // namespace quillon
