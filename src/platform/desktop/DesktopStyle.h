#pragma once

namespace quillon {

/// Called once when the window system is there, before the first window. GTK: text boxes and buttons keep close to
/// their text, so that the main window's fixed rows hold them; whole themes for touch screens are twice as tall.
/// Windows: nothing.
void ApplyDesktopStyle();

}  // namespace quillon
