#include "platform/desktop/TreeDrawing.h"

#include <gtk/gtk.h>

#include <memory>
#include <utility>

namespace quillon {
namespace {

using Told = std::function<void(bool drawing)>;

gboolean Begin(GtkWidget* /*view*/, cairo_t* /*context*/, const Told* told) {
  (*told)(true);
  return FALSE;
}

gboolean End(GtkWidget* /*view*/, cairo_t* /*context*/, const Told* told) {
  (*told)(false);
  return FALSE;
}

void Forget(gpointer told, GClosure* /*closure*/) {
  const std::unique_ptr<Told> gone(static_cast<Told*>(told));
}

}  // namespace

void OnTreeDrawing(void* treeView, std::function<void(bool drawing)> told) {
  const auto connect = [treeView](GCallback handler, Told given, GConnectFlags when) {
    g_signal_connect_data(treeView, "draw", handler, std::make_unique<Told>(std::move(given)).release(), Forget, when);
  };
  connect(G_CALLBACK(Begin), told, GConnectFlags{});
  connect(G_CALLBACK(End), std::move(told), G_CONNECT_AFTER);
}

std::pair<int, int> RowsInView(void* treeView) {
  GtkTreePath* first = nullptr;
  GtkTreePath* last = nullptr;
  if (gtk_tree_view_get_visible_range(GTK_TREE_VIEW(treeView), &first, &last) == FALSE) return {0, -1};
  const std::pair<int, int> rows(*gtk_tree_path_get_indices(first), *gtk_tree_path_get_indices(last));
  gtk_tree_path_free(first);
  gtk_tree_path_free(last);
  return rows;
}

}  // namespace quillon
