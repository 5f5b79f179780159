#include "platform/desktop/WindowFrame.h"

#include <gdk/gdkwayland.h>
#include <gtk/gtk.h>

#include <algorithm>

namespace quillon {

bool WindowsHavePlaces() {
  GdkDisplay* const display = gdk_display_get_default();
  return display == nullptr || !GDK_IS_WAYLAND_DISPLAY(display);
}

int ShadowAround(void* window) {
  auto* const widget = static_cast<GtkWidget*>(window);
  if (WindowsHavePlaces() || gtk_widget_get_mapped(widget) == FALSE) return 0;
  int inside = 0;
  gtk_window_get_size(GTK_WINDOW(widget), &inside, nullptr);
  return std::max(gtk_widget_get_allocated_width(widget) - inside, 0);
}

}  // namespace quillon
