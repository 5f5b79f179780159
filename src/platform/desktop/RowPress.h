#pragma once

#include <functional>

namespace quillon {

/// Calls `pressed` for each press of the left button on a row of a GTK tree view, which does not report these presses.
/// It gets the 1-based row, before the view handles the press, and is kept as long as the view exists. Only on systems
/// with GTK.
void OnRowPress(void* treeView, std::function<void(int row)> pressed);

}  // namespace quillon
