#pragma once

#include <cstdint>
#include <memory>

#include "platform/PictureCanvas.h"

namespace quillon {

/// Gives the control a native window, if needed, and returns its number, so that a device can put its own window into
/// it: an X11 window or an HWND; 0 if there is none, as on Wayland. `control` is the native widget or window handle of
/// a child window.
[[nodiscard]] std::uintptr_t MakeNumberedWindow(void* control);

/// For a control whose window has no number: draws the pictures that it receives over the whole control, stretched.
/// After the control is destroyed they are ignored. Returns null on Windows, where every window has a number.
[[nodiscard]] std::shared_ptr<PictureCanvas> MakePictureCanvas(void* control);

}  // namespace quillon
