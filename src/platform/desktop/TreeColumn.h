#pragma once

namespace quillon {

/// The width of a column that was last set, by the program or by dragging the column's border. GTK shows the last
/// column wider where it would not reach the view's edge. `column` is 0-based. Only on systems with GTK.
[[nodiscard]] int SetWidthOfColumn(void* treeView, int column);

}  // namespace quillon
