#pragma once

#include <wx/window.h>

namespace quillon {

/// Makes every access key (Alt and a letter) of the window's controls work wherever the focus is. The toolkit's own
/// search ends, on Windows, at the frame that the focused control stands in.
void ReachByAccessKeys(wxWindow& window);

}  // namespace quillon
