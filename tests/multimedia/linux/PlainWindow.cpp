#include "multimedia/linux/PlainWindow.h"

#include <X11/Xlib.h>

#include "platform/SharedLibrary.h"

namespace quillon::test {
namespace {

/// Loads libX11 at run time, like the program.
template <class Function>
Function* Find(const SharedLibrary& library, const char* name) {
  return reinterpret_cast<Function*>(library.Symbol(name));
}

struct Functions {
  SharedLibrary library = SharedLibrary::Find("libX11.so.6");
  decltype(&::XOpenDisplay) openDisplay = Find<decltype(::XOpenDisplay)>(library, "XOpenDisplay");
  decltype(&::XCloseDisplay) closeDisplay = Find<decltype(::XCloseDisplay)>(library, "XCloseDisplay");
  decltype(&::XCreateWindow) createWindow = Find<decltype(::XCreateWindow)>(library, "XCreateWindow");
  decltype(&::XDestroyWindow) destroyWindow = Find<decltype(::XDestroyWindow)>(library, "XDestroyWindow");
  decltype(&::XMapRaised) mapRaised = Find<decltype(::XMapRaised)>(library, "XMapRaised");
  decltype(&::XUnmapWindow) unmapWindow = Find<decltype(::XUnmapWindow)>(library, "XUnmapWindow");
  decltype(&::XSync) sync = Find<decltype(::XSync)>(library, "XSync");
  decltype(&::XGetImage) getImage = Find<decltype(::XGetImage)>(library, "XGetImage");
  decltype(&::XQueryTree) queryTree = Find<decltype(::XQueryTree)>(library, "XQueryTree");
  decltype(&::XFree) free = Find<decltype(::XFree)>(library, "XFree");
  decltype(&::XGetGeometry) getGeometry = Find<decltype(::XGetGeometry)>(library, "XGetGeometry");
  decltype(&::XSendEvent) sendEvent = Find<decltype(::XSendEvent)>(library, "XSendEvent");
  decltype(&::XCheckWindowEvent) checkWindowEvent = Find<decltype(::XCheckWindowEvent)>(library, "XCheckWindowEvent");
  decltype(&::XDefaultRootWindow) defaultRootWindow =
      Find<decltype(::XDefaultRootWindow)>(library, "XDefaultRootWindow");
};

class XPlainWindow final : public PlainWindow {
 public:
  XPlainWindow(int width, int height) {
    if (x_.openDisplay != nullptr) display_ = x_.openDisplay(nullptr);
    if (display_ == nullptr) return;
    XSetWindowAttributes attributes = {};
    attributes.override_redirect = True;  // no frame, and exactly at the given position
    attributes.event_mask = ButtonPressMask;
    attributes.background_pixel = 0x808080;
    window_ = x_.createWindow(display_, x_.defaultRootWindow(display_), 20, 20, static_cast<unsigned>(width),
                              static_cast<unsigned>(height), 0, CopyFromParent, InputOutput, nullptr,
                              CWOverrideRedirect | CWEventMask | CWBackPixel, &attributes);
    x_.mapRaised(display_, window_);
    x_.sync(display_, False);
  }
  XPlainWindow(const XPlainWindow&) = delete;
  XPlainWindow& operator=(const XPlainWindow&) = delete;
  ~XPlainWindow() override {
    if (display_ != nullptr) x_.closeDisplay(display_);
  }

  [[nodiscard]] bool Made() const { return window_ != 0; }
  [[nodiscard]] std::uint64_t Handle() const override { return window_; }

  [[nodiscard]] std::uint32_t Pixel(int x, int y) const override {
    XImage* const image = x_.getImage(display_, window_, x, y, 1, 1, AllPlanes, ZPixmap);
    if (image == nullptr) return 0;
    const auto pixel = static_cast<std::uint32_t>(image->f.get_pixel(image, 0, 0));
    image->f.destroy_image(image);
    return pixel & 0xFFFFFFU;
  }

  [[nodiscard]] std::string Child() const override {
    const Window child = FirstChild();
    if (child == 0) return {};
    Window root = 0;
    int left = 0;
    int top = 0;
    unsigned width = 0;
    unsigned height = 0;
    unsigned border = 0;
    unsigned depth = 0;
    x_.getGeometry(display_, child, &root, &left, &top, &width, &height, &border, &depth);
    return std::to_string(left) + ' ' + std::to_string(top) + ' ' + std::to_string(width) + ' ' +
           std::to_string(height);
  }

  bool GetsClicksOfItsChild() override {
    XEvent event = {};
    event.xbutton.type = ButtonPress;
    event.xbutton.window = window_;  // the event's content, regardless of its receiver
    event.xbutton.button = Button3;
    event.xbutton.same_screen = True;
    x_.sendEvent(display_, FirstChild(), True, ButtonPressMask, &event);
    x_.sync(display_, False);
    XEvent got = {};
    return x_.checkWindowEvent(display_, window_, ButtonPressMask, &got) != False;
  }

  void CoverForAMoment() override {
    x_.unmapWindow(display_, window_);
    x_.sync(display_, False);
    x_.mapRaised(display_, window_);
    x_.sync(display_, False);
  }

  void Destroy() override {
    x_.destroyWindow(display_, window_);
    x_.sync(display_, False);
  }

 private:
  [[nodiscard]] Window FirstChild() const {
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned count = 0;
    x_.queryTree(display_, window_, &root, &parent, &children, &count);
    const Window first = count > 0 ? children[0] : 0;
    if (children != nullptr) x_.free(children);
    return first;
  }

  Functions x_;
  Display* display_ = nullptr;
  Window window_ = 0;
};

}  // namespace

std::unique_ptr<PlainWindow> PlainWindow::Make(int width, int height) {
  auto window = std::make_unique<XPlainWindow>(width, height);
  if (!window->Made()) return nullptr;
  return window;
}

}  // namespace quillon::test
