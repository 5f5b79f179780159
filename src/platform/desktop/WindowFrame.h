#pragma once

namespace quillon {

/// Whether a program knows and chooses the places of its windows. On Wayland only the desktop does, and a window's
/// place is always reported as the screen's corner.
[[nodiscard]] bool WindowsHavePlaces();

/// The width of the shadow on both sides of a top-level window, in pixels, when it counts as part of the window: where
/// GTK itself draws the frame, as on Wayland. Above and below together it takes the same. 0 for a window that is not
/// shown or is maximised, and on other systems. `window` is the native widget or window handle.
[[nodiscard]] int ShadowAround(void* window);

/// Call it before the window is shown for the first time. On X11 its contents are laid out only when it has its size:
/// while the window manager is asked for the frame, GTK would lay them out within two pixels, with warnings, and again
/// afterwards. Elsewhere it does nothing. `window` is its native handle.
void LayOutWhenSized(void* window);

}  // namespace quillon
