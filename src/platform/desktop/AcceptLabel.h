#pragma once

#include <string>

namespace quillon {

/// Sets the label of a GTK dialog's confirming button. Only on systems with GTK.
void SetAcceptLabel(void* dialog, const std::string& label);

}  // namespace quillon
