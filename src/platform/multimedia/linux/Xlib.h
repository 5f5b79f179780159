#pragma once

#include <X11/Xlib.h>

namespace quillon {

/// The used functions of libX11, loaded for the first picture, so that playing sound needs neither an X server nor its
/// library.
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

/// Returns null when the library is missing.
[[nodiscard]] const Xlib* LoadXlib();

/// Ignores X errors that arrive late. Xlib's default handler would end the program when the owner destroys a window
/// that is being drawn into. While the guard exists, errors about `window` and all errors of `connection` are ignored;
/// all others go to the previous handler.
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
