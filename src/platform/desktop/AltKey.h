#pragma once

namespace quillon {

/// Tells the system that a key was pressed together with Alt though no window got it: otherwise the release of Alt
/// activates the menu bar. `window` is a native window handle. Only on Windows.
void UseAltKey(void* window);

}  // namespace quillon
