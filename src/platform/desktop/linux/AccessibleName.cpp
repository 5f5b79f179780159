#include "platform/desktop/AccessibleName.h"

#include <gtk/gtk.h>

namespace quillon {
namespace {

// Calls `see` for the widget and all its descendants, in order.
template <class See>
void Walk(GtkWidget* widget, const See& see) {
  see(widget);
  if (!GTK_IS_CONTAINER(widget)) return;
  GList* const children = gtk_container_get_children(GTK_CONTAINER(widget));
  for (const GList* child = children; child != nullptr; child = child->next) Walk(GTK_WIDGET(child->data), see);
  g_list_free(children);
}

void Name(GtkWidget* widget, const std::string& name) {
  atk_object_set_name(gtk_widget_get_accessible(widget), name.c_str());
}

}  // namespace

void SetAccessibleName(void* control, const std::string& name) {
  GtkWidget* widget = static_cast<GtkWidget*>(control);
  // A scrolled window is only the frame around the actual control.
  if (GTK_IS_SCROLLED_WINDOW(widget)) {
    if (GtkWidget* const inside = gtk_bin_get_child(GTK_BIN(widget))) widget = inside;
  }
  Name(widget, name);
}

void SetAccessibleStatus(void* bar, const std::string& text) {
  auto* const widget = static_cast<GtkWidget*>(bar);
  atk_object_set_role(gtk_widget_get_accessible(widget), ATK_ROLE_STATUSBAR);
  Name(widget, text);
}

void SetAccessibleAlert(void* window) {
  atk_object_set_role(gtk_widget_get_accessible(static_cast<GtkWidget*>(window)), ATK_ROLE_ALERT);
}

void SetAccessibleArrows(void* toolBar, const std::vector<std::string>& names) {
  auto name = names.begin();
  Walk(static_cast<GtkWidget*>(toolBar), [&](GtkWidget* part) {
    if (GTK_IS_TOGGLE_BUTTON(part) && name != names.end()) Name(part, *name++);
  });
}

void SetAccessibleHeaders(void* list, const std::vector<std::string>& names) {
  Walk(static_cast<GtkWidget*>(list), [&](GtkWidget* part) {
    if (!GTK_IS_TREE_VIEW(part)) return;
    for (std::size_t i = 0; i < names.size(); ++i) {
      GtkTreeViewColumn* const column = gtk_tree_view_get_column(GTK_TREE_VIEW(part), static_cast<int>(i));
      if (column != nullptr) Name(gtk_tree_view_column_get_button(column), names[i]);
    }
  });
}

}  // namespace quillon
