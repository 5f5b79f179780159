#include "platform/desktop/DesktopStyle.h"

#include <gtk/gtk.h>

namespace quillon {
namespace {

/// "widget" is the plain area on which wxWidgets places a window's controls, so GTK's own dialogs, tool bars and lists
/// keep the theme's look. Heights are relative to the font size. Transitions are disabled because a window measures its
/// controls before they are shown and would get an intermediate size.
///
/// wxWidgets measures a text box too low, by half a line minus its padding. With this minimum height the text still
/// fits: down to 23 pixels at 10 points, the text box only loses empty space.
/// GTK draws a disabled tool's picture like an enabled one unless the picture is one of the theme's icons.
constexpr const char* kStyle = R"(
widget > entry, widget > combobox entry, widget > spinbutton {
  min-height: 1.5em; padding: 0.15em 5px; transition: none;
}
widget > spinbutton > entry { min-height: 0; }
widget > spinbutton > button { min-height: 0; padding: 0 2px; }
toolbar button:disabled image { opacity: 0.35; }
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

// Making the font map starts the thread that fontconfig reads its settings and caches on.
void BeginReadingFonts() {
  (void)pango_cairo_font_map_get_default();
}

bool ReadsRightToLeft() {
  return gtk_widget_get_default_direction() == GTK_TEXT_DIR_RTL;
}

}  // namespace quillon
