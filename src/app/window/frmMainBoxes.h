#pragma once

#include <wx/textctrl.h>

#include <memory>

#include "app/InformationPanel.h"
#include "app/RenameEditing.h"

namespace quillon {

struct frmMainControls;

/// txtAlterTitle as logic sees it.
[[nodiscard]] std::unique_ptr<RenameBox> MakeRenameBox(wxTextCtrl& txtAlterTitle);

/// The boxes of fraFileInfo that only show.
[[nodiscard]] std::unique_ptr<InformationBoxes> MakeInformationBoxes(const frmMainControls& controls);

}  // namespace quillon
