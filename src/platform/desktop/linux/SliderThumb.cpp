#include "platform/desktop/SliderThumb.h"

#include <gtk/gtk.h>

#include <cmath>

namespace quillon {

// Computes where the thumb will be, because GTK only moves it at the next frame.
ThumbSpan QueryThumb(void* slider) {
  GtkRange* const range = GTK_RANGE(slider);
  GdkRectangle groove = {};
  gtk_range_get_range_rect(range, &groove);
  ThumbSpan old;
  gtk_range_get_slider_range(range, &old.left, &old.right);
  const int width = old.right - old.left;
  GtkAdjustment* const values = gtk_range_get_adjustment(range);
  const double least = gtk_adjustment_get_lower(values);
  const double most = gtk_adjustment_get_upper(values) - gtk_adjustment_get_page_size(values);
  const double share = most > least ? (gtk_adjustment_get_value(values) - least) / (most - least) : 0;
  const int left = groove.x + static_cast<int>(std::lround((groove.width - width) * share));
  return {left, left + width};
}

void PlaceThumb(void* slider) {
  auto* const widget = static_cast<GtkWidget*>(slider);
  GtkAllocation place = {};
  gtk_widget_get_allocation(widget, &place);
  gtk_widget_queue_allocate(widget);
  gtk_widget_size_allocate(widget, &place);
}

// GTK moves the thumb under the mouse by itself, unless the desktop is set to move by pages.
std::optional<double> PlaceOfPress(void* /*slider*/, int /*x*/) {
  return std::nullopt;
}

}  // namespace quillon
