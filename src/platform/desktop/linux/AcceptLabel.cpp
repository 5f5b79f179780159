#include "platform/desktop/AcceptLabel.h"

#include <gtk/gtk.h>

namespace quillon {

void SetAcceptLabel(void* dialog, const std::string& label) {
  GtkWidget* const button = gtk_dialog_get_widget_for_response(GTK_DIALOG(dialog), GTK_RESPONSE_ACCEPT);
  // A stock button takes word and picture from the theme, whatever its label.
  g_object_set(button, "use-stock", FALSE, "label", label.c_str(), nullptr);
}

}  // namespace quillon
