#pragma once

#include <string>

namespace quillon {

/// The name under which assistive technology knows a control that shows no caption of its own. `control` is its native
/// window or widget handle.
void SetAccessibleName(void* control, const std::string& name);

}  // namespace quillon
