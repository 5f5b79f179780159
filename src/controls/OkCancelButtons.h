#pragma once

#include <wx/sizer.h>
#include <wx/window.h>

namespace quillon {

/// The buttons cmdOK, which is the default and has this caption, and cmdCancel, in the system's order. The dialog gets
/// their events with wxID_OK and wxID_CANCEL.
[[nodiscard]] wxSizer* OkCancelButtons(wxWindow& dialog, const char* ok = "OK");

}  // namespace quillon
