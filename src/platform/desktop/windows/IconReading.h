#pragma once

#include <windows.h>

#include <optional>

#include "platform/desktop/IconPixels.h"

namespace quillon {

/// Copies the icon's bitmaps; nullopt for an invalid handle. The caller keeps the ownership of the icon.
[[nodiscard]] std::optional<IconBitmaps> ReadIcon(HICON handle);

}  // namespace quillon
