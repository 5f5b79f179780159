#include "platform/desktop/ScreenMetrics.h"

#include <windows.h>

namespace quillon {

ScreenMetrics QueryScreen() {
  HDC const screen = ::GetDC(nullptr);
  if (screen == nullptr) return {};
  const ScreenMetrics metrics = {::GetDeviceCaps(screen, HORZRES), ::GetDeviceCaps(screen, VERTRES),
                                 ::GetDeviceCaps(screen, BITSPIXEL)};
  ::ReleaseDC(nullptr, screen);
  return metrics;
}

double QueryTextScale() {
  return 1;
}

}  // namespace quillon
