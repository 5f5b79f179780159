#pragma once

namespace quillon {

/// The width in pixels that the system's tab strip needs to show all its tabs without scrolling. `tabStrip` is its
/// native widget or window handle.
[[nodiscard]] int WidthOfAllTabs(void* tabStrip);

}  // namespace quillon
