#include "platform/desktop/TreeColumn.h"

#include <gtk/gtk.h>

namespace quillon {

int SetWidthOfColumn(void* treeView, int column) {
  return gtk_tree_view_column_get_fixed_width(gtk_tree_view_get_column(GTK_TREE_VIEW(treeView), column));
}

}  // namespace quillon
