#include "platform/desktop/OpenMenu.h"

#include <gtk/gtk.h>

namespace quillon {

void CloseOpenMenu() {
  GtkWidget* const holder = gtk_grab_get_current();
  if (holder != nullptr && GTK_IS_MENU_SHELL(holder)) gtk_menu_shell_cancel(GTK_MENU_SHELL(holder));
}

}  // namespace quillon
