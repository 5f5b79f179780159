#include "platform/desktop/ToolBarArrows.h"

#include <gtk/gtk.h>

namespace quillon {
namespace {

// The icon theme's triangle.
constexpr int kSize = 16;
constexpr double kHalfWidth = 6;
constexpr double kHeight = 6;

gboolean OnDraw(GtkWidget* image, cairo_t* context, gpointer /*data*/) {
  GtkStyleContext* const style = gtk_widget_get_style_context(image);
  GdkRGBA ink;
  gtk_style_context_get_color(style, gtk_style_context_get_state(style), &ink);
  gdk_cairo_set_source_rgba(context, &ink);
  const double middle = gtk_widget_get_allocated_width(image) / 2.0;
  const double top = (gtk_widget_get_allocated_height(image) - kHeight) / 2;
  cairo_move_to(context, middle - kHalfWidth, top);
  cairo_line_to(context, middle + kHalfWidth, top);
  cairo_line_to(context, middle, top + kHeight);
  cairo_fill(context);
  return TRUE;
}

void DrawArrows(GtkWidget* part, gpointer /*data*/) {
  GtkWidget* const inside = GTK_IS_BIN(part) ? gtk_bin_get_child(GTK_BIN(part)) : nullptr;
  if (GTK_IS_TOGGLE_BUTTON(part) && inside != nullptr && GTK_IS_IMAGE(inside)) {
    gtk_image_clear(GTK_IMAGE(inside));
    gtk_widget_set_size_request(inside, kSize, kSize);
    g_signal_connect(inside, "draw", G_CALLBACK(OnDraw), nullptr);
  } else if (GTK_IS_CONTAINER(part)) {
    gtk_container_forall(GTK_CONTAINER(part), DrawArrows, nullptr);
  }
}

}  // namespace

void DrawToolBarArrows(void* toolBar) {
  DrawArrows(static_cast<GtkWidget*>(toolBar), nullptr);
}

}  // namespace quillon
