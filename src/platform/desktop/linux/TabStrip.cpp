#include "platform/desktop/TabStrip.h"

#include <gtk/gtk.h>

namespace quillon {

int WidthOfAllTabs(void* tabStrip) {
  GtkNotebook* const notebook = GTK_NOTEBOOK(tabStrip);
  const gboolean scrolls = gtk_notebook_get_scrollable(notebook);
  gtk_notebook_set_scrollable(notebook, FALSE);
  int width = 0;
  gtk_widget_get_preferred_width(GTK_WIDGET(notebook), &width, nullptr);
  gtk_notebook_set_scrollable(notebook, scrolls);
  return width;
}

}  // namespace quillon
