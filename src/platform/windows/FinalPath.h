#pragma once

#include <string>

#include "platform/windows/Handle.h"

namespace quillon {

/// The path of an open file or folder with all links resolved, as the system writes it, with its prefix for literal
/// paths; empty where the volume cannot tell.
[[nodiscard]] std::wstring FinalPath(const Handle& file);

}  // namespace quillon
