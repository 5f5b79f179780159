#pragma once

#include <windows.h>

#include <optional>

#include "platform/desktop/IconPixels.h"

namespace quillon {

/// A copy of the icon's bitmaps; nullopt for a handle that is none. The icon stays the caller's.
[[nodiscard]] std::optional<IconBitmaps> ReadIcon(HICON handle);

}  // namespace quillon
