#pragma once

#include <cstdint>

namespace quillon {

/// Call it before the window system is initialised: prefers the window system whose windows have numbers. Linux: X11,
/// even if Wayland is available. Windows: does nothing.
void PreferNumberedWindows();

/// Gives the control a native window, if needed, and returns its number, so that a device can put its own window into
/// it: an X11 window or an HWND; 0 if there is none. `control` is the native widget or window handle of a child window.
[[nodiscard]] std::uintptr_t MakeNumberedWindow(void* control);

}  // namespace quillon
