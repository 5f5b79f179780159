#include "platform/desktop/AcceptLabel.h"

#include <gtk/gtk.h>

namespace quillon {

void SetAcceptLabel(void* dialog, const std::string& label) {
  GtkWidget* const button = gtk_dialog_get_widget_for_response(GTK_DIALOG(dialog), GTK_RESPONSE_ACCEPT);
  // A stock button ignores its label and takes text and icon from the theme.
  g_object_set(button, "use-stock", FALSE, "label", label.c_str(), nullptr);
}

}  // namespace quillon
