#pragma once

#include <wx/window.h>

namespace quillon {

/// Makes every access key (Alt and a letter) of the window's controls work wherever the focus is. On Windows the
/// toolkit only searches the frame that contains the focused control.
void ReachByAccessKeys(wxWindow& window);

}  // namespace quillon
