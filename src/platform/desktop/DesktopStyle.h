#pragma once

namespace quillon {

/// Call it once after the window system is initialised, before the first window is made. GTK: makes text boxes and
/// buttons low enough for the main window's fixed rows; in themes for touch screens they would be twice as tall.
/// Disabled tools look disabled. Windows: does nothing.
void ApplyDesktopStyle();

/// Starts reading the system's fonts on a thread of the toolkit's, before anything needs them. Windows: does nothing.
void BeginReadingFonts();

/// True where the user's language is written from right to left. Call it after the window system is initialised.
[[nodiscard]] bool ReadsRightToLeft();

}  // namespace quillon
