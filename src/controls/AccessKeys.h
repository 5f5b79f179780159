#pragma once

#include <wx/dialog.h>

namespace quillon {

/// Makes every access key (Alt and a letter) of the dialog work wherever the focus is. The toolkit's own search ends,
/// on Windows, at the frame that the focused control stands in.
void ReachByAccessKeys(wxDialog& dialog);

}  // namespace quillon
