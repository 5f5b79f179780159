#pragma once

#include <cstdint>

namespace quillon {

/// Called before the window system is started: of the window systems that are there, the one whose windows have numbers
/// comes first. Linux: X11, also on a desktop that has Wayland too. Windows: nothing.
void PreferNumberedWindows();

/// The number by which a device finds the control's window and puts a window of its own into it: an X11 window or an
/// HWND; 0 where there is none. `control` is the native widget or window handle of a child window.
[[nodiscard]] std::uintptr_t MakeNumberedWindow(void* control);

}  // namespace quillon
