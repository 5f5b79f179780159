#include "platform/multimedia/linux/Xlib.h"

#include <mutex>
#include <optional>
#include <set>

#include "platform/SharedLibrary.h"

namespace quillon {
namespace {

/// The data of the process-wide error handler. Errors are reported on the thread on which they occur, including a
/// player's threads.
struct PassedOver {
  std::mutex mutex;
  std::multiset<Display*> connections;
  std::multiset<Window> windows;
  XErrorHandler previous = nullptr;
  bool installed = false;
};

// Static, because Xlib passes no user data to its handler.
PassedOver& TheErrors() {
  static PassedOver errors;
  return errors;
}

int OnXError(Display* display, XErrorEvent* error) {
  PassedOver& errors = TheErrors();
  XErrorHandler previous = nullptr;
  {
    const std::lock_guard lock(errors.mutex);
    if (errors.connections.contains(display) || errors.windows.contains(error->resourceid)) return 0;
    previous = errors.previous;
  }
  return previous == nullptr ? 0 : previous(display, error);
}

template <class Function>
bool Resolve(const SharedLibrary& library, const char* name, Function& into) {
  into = reinterpret_cast<Function>(library.Symbol(name));
  return into != nullptr;
}

std::optional<Xlib> ResolveAll(const SharedLibrary& library) {
  Xlib xlib;
  const bool all =
      Resolve(library, "XOpenDisplay", xlib.openDisplay) && Resolve(library, "XCloseDisplay", xlib.closeDisplay) &&
      Resolve(library, "XCreateSimpleWindow", xlib.createSimpleWindow) &&
      Resolve(library, "XDestroyWindow", xlib.destroyWindow) && Resolve(library, "XMapWindow", xlib.mapWindow) &&
      Resolve(library, "XMoveResizeWindow", xlib.moveResizeWindow) &&
      Resolve(library, "XGetGeometry", xlib.getGeometry) && Resolve(library, "XSync", xlib.sync) &&
      Resolve(library, "XSetErrorHandler", xlib.setErrorHandler);
  if (!all) return std::nullopt;
  return xlib;
}

}  // namespace

const Xlib* LoadXlib() {
  // Never unloaded, because our error handler stays installed.
  static const auto* const library = new SharedLibrary(SharedLibrary::Find("libX11.so.6"));
  static const std::optional<Xlib> xlib = ResolveAll(*library);
  return xlib ? &*xlib : nullptr;
}

XErrorGuard::XErrorGuard(const Xlib& xlib, Display* connection) : connection_(connection) {
  PassedOver& errors = TheErrors();
  const std::lock_guard lock(errors.mutex);
  errors.connections.insert(connection);
  if (errors.installed) return;
  errors.previous = xlib.setErrorHandler(OnXError);
  errors.installed = true;
}

XErrorGuard::~XErrorGuard() {
  PassedOver& errors = TheErrors();
  const std::lock_guard lock(errors.mutex);
  errors.connections.erase(errors.connections.find(connection_));
  if (window_ != 0) errors.windows.erase(errors.windows.find(window_));
}

void XErrorGuard::PassOver(Window window) {
  PassedOver& errors = TheErrors();
  const std::lock_guard lock(errors.mutex);
  if (window_ != 0) errors.windows.erase(errors.windows.find(window_));
  window_ = window;
  errors.windows.insert(window);
}

}  // namespace quillon
