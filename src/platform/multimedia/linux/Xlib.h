#pragma once

#include <X11/Xlib.h>

namespace quillon {

/// The functions of libX11 that are used here, loaded when the first picture needs them: whoever plays sound alone
/// needs no X server and no library for it.
struct Xlib {
  decltype(&::XOpenDisplay) openDisplay = nullptr;
  decltype(&::XCloseDisplay) closeDisplay = nullptr;
  decltype(&::XCreateSimpleWindow) createSimpleWindow = nullptr;
  decltype(&::XDestroyWindow) destroyWindow = nullptr;
  decltype(&::XMapWindow) mapWindow = nullptr;
  decltype(&::XMoveResizeWindow) moveResizeWindow = nullptr;
  decltype(&::XGetGeometry) getGeometry = nullptr;
  decltype(&::XSync) sync = nullptr;
  decltype(&::XSetErrorHandler) setErrorHandler = nullptr;
};

/// Null when there is no such library.
[[nodiscard]] const Xlib* LoadXlib();

/// Errors that come late are not the program's end: Xlib's own handler would end it when a window that is drawn into is
/// destroyed by its owner. While the guard exists, errors about `window`, and all of `connection`, are passed over;
/// every other goes where it went before.
class XErrorGuard {
 public:
  XErrorGuard(const Xlib& xlib, Display* connection);
  XErrorGuard(const XErrorGuard&) = delete;
  XErrorGuard& operator=(const XErrorGuard&) = delete;
  ~XErrorGuard();

  void PassOver(Window window);

 private:
  Display* connection_;
  Window window_ = 0;
};

}  // namespace quillon
