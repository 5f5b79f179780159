#include "platform/desktop/WindowFrame.h"

#include <gdk/gdkwayland.h>
#include <gtk/gtk.h>

#include <algorithm>

namespace quillon {
namespace {

constexpr int kUnsized = 2;  // wxWidgets' width for a window without a size

void OnAllocated(GtkWidget* window, GdkRectangle* place, gpointer contents) {
  if (place->width <= kUnsized) return;
  g_signal_handlers_disconnect_by_func(window, reinterpret_cast<gpointer>(OnAllocated), contents);
  auto* const inside = static_cast<GtkWidget*>(contents);
  gtk_widget_show(inside);
  gtk_widget_size_allocate(inside, place);  // before the window is drawn
}

}  // namespace

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

void LayOutWhenSized(void* window) {
  auto* const widget = static_cast<GtkWidget*>(window);
  GtkWidget* const contents = gtk_bin_get_child(GTK_BIN(widget));
  if (!WindowsHavePlaces() || contents == nullptr || gtk_window_get_titlebar(GTK_WINDOW(widget)) != nullptr) return;
  gtk_widget_hide(contents);
  g_signal_connect(widget, "size-allocate", G_CALLBACK(OnAllocated), contents);
}

}  // namespace quillon
