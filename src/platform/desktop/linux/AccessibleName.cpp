#include "platform/desktop/AccessibleName.h"

#include <gtk/gtk.h>

namespace quillon {

void SetAccessibleName(void* control, const std::string& name) {
  GtkWidget* widget = static_cast<GtkWidget*>(control);
  // What scrolls is the frame of the control that is meant.
  if (GTK_IS_SCROLLED_WINDOW(widget)) {
    if (GtkWidget* const inside = gtk_bin_get_child(GTK_BIN(widget))) widget = inside;
  }
  atk_object_set_name(gtk_widget_get_accessible(widget), name.c_str());
}

}  // namespace quillon
