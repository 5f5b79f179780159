#include "platform/desktop/linux/StartupId.h"

#include <gdk/gdk.h>
#include <gdk/gdkwayland.h>
#include <gdk/gdkx.h>

namespace quillon {

void UseStartupId(const std::string& id) {
  GdkDisplay* const display = gdk_display_get_default();
  if (id.empty() || g_utf8_validate(id.c_str(), -1, nullptr) == FALSE) return;
  if (display == nullptr) return;
  if (GDK_IS_X11_DISPLAY(display)) gdk_x11_display_set_startup_notification_id(display, id.c_str());
  if (GDK_IS_WAYLAND_DISPLAY(display)) gdk_wayland_display_set_startup_notification_id(display, id.c_str());
}

}  // namespace quillon
