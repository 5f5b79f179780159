#include "platform/desktop/RowPress.h"

#include <gtk/gtk.h>

#include <memory>
#include <utility>

namespace quillon {
namespace {

using Pressed = std::function<void(int row, bool toggles)>;

constexpr guint kLeftButton = 1;

gboolean Tell(GtkTreeView* view, const GdkEventButton* event, const Pressed* pressed) {
  if (event->type != GDK_BUTTON_PRESS || event->button != kLeftButton) return FALSE;
  if (event->window != gtk_tree_view_get_bin_window(view)) return FALSE;  // the header
  GtkTreePath* path = nullptr;
  if (gtk_tree_view_get_path_at_pos(view, static_cast<int>(event->x), static_cast<int>(event->y), &path, nullptr,
                                    nullptr, nullptr) == FALSE) {
    return FALSE;
  }
  const int row = *gtk_tree_path_get_indices(path) + 1;
  gtk_tree_path_free(path);
  (*pressed)(row, (event->state & GDK_CONTROL_MASK) != 0);
  return FALSE;
}

void Forget(gpointer pressed, GClosure* /*closure*/) {
  const std::unique_ptr<Pressed> gone(static_cast<Pressed*>(pressed));
}

}  // namespace

void OnRowPress(void* treeView, std::function<void(int row, bool toggles)> pressed) {
  g_signal_connect_data(treeView, "button-press-event", G_CALLBACK(Tell),
                        std::make_unique<Pressed>(std::move(pressed)).release(), Forget, GConnectFlags{});
}

}  // namespace quillon
