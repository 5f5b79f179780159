#include "platform/desktop/NativeWindow.h"

#include <gdk/gdkx.h>
#include <gtk/gtk.h>

namespace quillon {

std::uintptr_t MakeNumberedWindow(void* control) {
  auto* const widget = static_cast<GtkWidget*>(control);
  gtk_widget_realize(widget);
  GdkWindow* const window = gtk_widget_get_window(widget);
  if (window == nullptr || !GDK_IS_X11_WINDOW(window) || gdk_window_ensure_native(window) == FALSE) return 0;
  // The device uses a separate connection to the window system, on which the window must already exist.
  gdk_display_sync(gdk_window_get_display(window));
  return gdk_x11_window_get_xid(window);
}

}  // namespace quillon
