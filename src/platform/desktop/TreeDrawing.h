#pragma once

#include <functional>
#include <utility>

namespace quillon {

/// Calls `told` with true before a GTK tree view draws itself, and with false afterwards; in between it asks for the
/// cells that are seen, at other times for those that assistive technology reads. It is kept as long as the view
/// exists. Only on systems with GTK.
void OnTreeDrawing(void* treeView, std::function<void(bool drawing)> told);

/// The first and the last row that a GTK tree view shows, 0-based; {0, -1} when it shows none.
[[nodiscard]] std::pair<int, int> RowsInView(void* treeView);

}  // namespace quillon
