#include "platform/desktop/DesktopStyle.h"

#include <gtk/gtk.h>

namespace quillon {
namespace {

/// "widget" is the plain area that wxWidgets puts a window's controls on: what GTK has in its own dialogs, tool bars
/// and lists keeps the theme's look. Heights are in the font's size, so that they grow with it. Nothing moves to its
/// size slowly: a window measures its controls before they are shown and would get some size in between.
///
/// A text box is measured too low by wxWidgets, by half a line less its padding. With this minimum height its text
/// still fits; made lower than it asks for, down to 23 pixels at 10 points, it loses empty space only.
constexpr const char* kStyle = R"(
widget > entry, widget > combobox entry, widget > spinbutton {
  min-height: 1.5em; padding: 0.15em 5px; transition: none;
}
widget > spinbutton > entry { min-height: 0; }
widget > spinbutton > button { min-height: 0; padding: 0 2px; }
widget > button, widget > combobox button { min-height: 1.5em; padding: 1px 6px; transition: none; }
)";

}  // namespace

void ApplyDesktopStyle() {
  GdkScreen* const screen = gdk_screen_get_default();
  if (screen == nullptr) return;
  GtkCssProvider* const provider = gtk_css_provider_new();
  gtk_css_provider_load_from_data(provider, kStyle, -1, nullptr);
  gtk_style_context_add_provider_for_screen(screen, GTK_STYLE_PROVIDER(provider),
                                            GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  g_object_unref(provider);
}

}  // namespace quillon
