#include "platform/desktop/FileIcon.h"

#include <gtk/gtk.h>

#include "platform/desktop/linux/PixbufPixels.h"
#include "platform/linux/SystemError.h"

namespace quillon {
namespace {

GdkPixbuf* Load(GtkIconTheme* theme, GIcon* icon, int size) {
  GtkIconInfo* const info = gtk_icon_theme_lookup_by_gicon(theme, icon, size, GTK_ICON_LOOKUP_FORCE_SIZE);
  if (info == nullptr) return nullptr;
  GdkPixbuf* const pixbuf = gtk_icon_info_load_icon(info, nullptr);
  g_object_unref(info);
  return pixbuf;
}

/// The icon for the type that the name indicates; the file is not read.
GIcon* IconOfName(const std::string& path) {
  char* const type = g_content_type_guess(path.c_str(), nullptr, 0, nullptr);
  GIcon* const icon = g_content_type_get_icon(type);
  g_free(type);
  return icon;
}

}  // namespace

std::optional<Pixels> SmallFileIcon(const std::string& path, int size) {
  GdkScreen* const screen = gdk_screen_get_default();
  if (screen == nullptr || size <= 0 || HoldsNul(path)) return std::nullopt;
  GIcon* const icon = IconOfName(path);
  GdkPixbuf* const pixbuf = Load(gtk_icon_theme_get_for_screen(screen), icon, size);
  g_object_unref(icon);
  if (pixbuf == nullptr) return std::nullopt;
  Pixels pixels = PixelsOfPixbuf(pixbuf);
  g_object_unref(pixbuf);
  return pixels;
}

}  // namespace quillon
