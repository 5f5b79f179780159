#pragma once

#include <string>

namespace quillon {

/// What the confirming button of a GTK dialog says instead of its usual word. Only on systems with GTK.
void SetAcceptLabel(void* dialog, const std::string& label);

}  // namespace quillon
