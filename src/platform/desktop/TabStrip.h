#pragma once

namespace quillon {

/// The width, in pixels, at which the system's tab strip shows all its tabs without scrolling. `tabStrip` is its native
/// widget or window handle.
[[nodiscard]] int WidthOfAllTabs(void* tabStrip);

}  // namespace quillon
