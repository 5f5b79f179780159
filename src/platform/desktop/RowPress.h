#pragma once

#include <functional>

namespace quillon {

/// Hears of the left button's presses on the rows of a GTK tree view, which keeps them to itself. `pressed` lives as
/// long as the view; it gets the row, from 1, before the view has looked at the press. Only on systems with GTK.
void OnRowPress(void* treeView, std::function<void(int row)> pressed);

}  // namespace quillon
