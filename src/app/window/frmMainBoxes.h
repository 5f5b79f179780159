#pragma once

#include <wx/textctrl.h>

#include <memory>

#include "app/InformationPanel.h"
#include "app/RenameEditing.h"

namespace quillon {

struct frmMainControls;

/// The port of txtAlterTitle.
[[nodiscard]] std::unique_ptr<RenameBox> MakeRenameBox(wxTextCtrl& txtAlterTitle);

/// The port of fraFileInfo's read-only boxes.
[[nodiscard]] std::unique_ptr<InformationBoxes> MakeInformationBoxes(const frmMainControls& controls);

}  // namespace quillon
