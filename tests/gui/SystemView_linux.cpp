#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "gui/SystemView.h"

namespace quillon::test {
namespace {

using Server = std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)>;
template <class Reply>
using Answer = std::unique_ptr<Reply, decltype(&std::free)>;

GdkWindow* NativeWindow(const wxWindow& window) {
  return gtk_widget_get_window(static_cast<GtkWidget*>(window.GetHandle()));
}

xcb_atom_t Atom(const Server& server, const std::string& name) {
  const auto asked = xcb_intern_atom(server.get(), 0, static_cast<std::uint16_t>(name.size()), name.c_str());
  const Answer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server.get(), asked, nullptr), &std::free);
  return reply == nullptr ? xcb_atom_t{XCB_ATOM_NONE} : reply->atom;
}

GtkToolbar* ToolBarIn(GtkWidget* widget) {
  if (GTK_IS_TOOLBAR(widget)) return GTK_TOOLBAR(widget);
  if (!GTK_IS_CONTAINER(widget)) return nullptr;
  const std::unique_ptr<GList, decltype(&g_list_free)> children(gtk_container_get_children(GTK_CONTAINER(widget)),
                                                                &g_list_free);
  for (const GList* child = children.get(); child != nullptr; child = child->next) {
    if (GtkToolbar* const found = ToolBarIn(static_cast<GtkWidget*>(child->data))) return found;
  }
  return nullptr;
}

void TellEnabling(GtkWidget* widget, GParamSpec*, gpointer told) {
  (*static_cast<std::function<void(bool)>*>(told))(gtk_widget_get_sensitive(widget) != FALSE);
}

}  // namespace

bool IsAboveOthers(const wxWindow& window) {
  const Server server(xcb_connect(nullptr, nullptr), &xcb_disconnect);
  const xcb_atom_t above = Atom(server, "_NET_WM_STATE_ABOVE");
  const auto id = static_cast<xcb_window_t>(GDK_WINDOW_XID(NativeWindow(window)));
  const auto asked =
      xcb_get_property(server.get(), 0, id, Atom(server, "_NET_WM_STATE"), XCB_ATOM_ATOM, 0, UINT32_MAX / 4);
  const Answer<xcb_get_property_reply_t> reply(xcb_get_property_reply(server.get(), asked, nullptr), &std::free);
  if (reply == nullptr) return false;
  const auto* const states = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
  return std::find(states, states + reply->value_len, above) != states + reply->value_len;
}

bool ShowsPointer(const wxWindow& window, wxStockCursor pointer) {
  GdkCursor* const shown = gdk_window_get_cursor(NativeWindow(window));
  return shown != nullptr &&
         gdk_cursor_get_cursor_type(shown) == gdk_cursor_get_cursor_type(wxCursor(pointer).GetCursor());
}

std::string AccessibleName(const wxWindow& control) {
  const char* const name = atk_object_get_name(gtk_widget_get_accessible(static_cast<GtkWidget*>(control.GetHandle())));
  return name == nullptr ? std::string() : name;
}

EnablingWatch::EnablingWatch(wxWindow& window, std::function<void(bool enabled)> told)
    : window_(window), told_(std::move(told)) {
  g_signal_connect(window_.GetHandle(), "notify::sensitive", G_CALLBACK(TellEnabling), &told_);
}

EnablingWatch::~EnablingWatch() {
  g_signal_handlers_disconnect_by_data(window_.GetHandle(), &told_);
}

wxRect NativeToolRect(const wxToolBar& bar, int id) {
  GtkToolItem* const item =
      gtk_toolbar_get_nth_item(ToolBarIn(static_cast<GtkWidget*>(bar.GetHandle())), bar.GetToolPos(id));
  GtkAllocation place = {};
  gtk_widget_get_allocation(GTK_WIDGET(item), &place);
  int x = 0;
  int y = 0;
  gdk_window_get_origin(gtk_widget_get_window(GTK_WIDGET(item)), &x, &y);
  return {x + place.x, y + place.y, place.width, place.height};
}

}  // namespace quillon::test
