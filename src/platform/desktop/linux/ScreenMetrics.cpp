#include "platform/desktop/ScreenMetrics.h"

#include <gdk/gdk.h>

#include <algorithm>

namespace quillon {

ScreenMetrics QueryScreen() {
  GdkDisplay* const display = gdk_display_get_default();
  if (display == nullptr) return {};
  GdkMonitor* monitor = gdk_display_get_primary_monitor(display);
  // Some window systems have no primary screen.
  if (monitor == nullptr) monitor = gdk_display_get_monitor(display, 0);
  if (monitor == nullptr) return {};
  GdkRectangle area = {};
  gdk_monitor_get_geometry(monitor, &area);
  GdkVisual* const visual = gdk_screen_get_system_visual(gdk_display_get_default_screen(display));
  return {area.width, area.height, gdk_visual_get_depth(visual)};
}

double QueryTextScale() {
  constexpr double kUsualResolution = 96;
  GdkScreen* const screen = gdk_screen_get_default();
  if (screen == nullptr) return 1;
  // The resolution is -1 when it is not set.
  return std::max(gdk_screen_get_resolution(screen) / kUsualResolution, 1.0);
}

}  // namespace quillon
