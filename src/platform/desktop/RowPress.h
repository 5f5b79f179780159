#pragma once

#include <functional>

namespace quillon {

/// Calls `pressed` for each press of the left button on a row of a GTK tree view, which does not report these presses.
/// It gets the 1-based row, and whether Ctrl is down, with which the view adds the row to the selection or takes it
/// out, before the view handles the press. It is kept as long as the view exists. Only on systems with GTK.
void OnRowPress(void* treeView, std::function<void(int row, bool toggles)> pressed);

}  // namespace quillon
