#pragma once

namespace quillon {

/// Call it once after the window system is initialised, before the first window is made. GTK: makes text boxes and
/// buttons low enough for the main window's fixed rows; in themes for touch screens they would be twice as tall.
/// Disabled tools look disabled. Windows: does nothing.
void ApplyDesktopStyle();

}  // namespace quillon
