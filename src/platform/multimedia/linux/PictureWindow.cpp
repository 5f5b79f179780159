#include "platform/multimedia/linux/PictureWindow.h"

#include <algorithm>

#include "platform/multimedia/linux/Xlib.h"

namespace quillon {
namespace {

/// X does not support empty windows, nor windows larger than this.
unsigned Side(int length) {
  constexpr int kMost = 32767;
  return static_cast<unsigned>(std::clamp(length, 1, kMost));
}

class XPictureWindow final : public PictureWindow {
 public:
  XPictureWindow(const Xlib& xlib, Display* display, Window owner)
      : xlib_(xlib), display_(display), owner_(owner), errors_(xlib, display) {}
  XPictureWindow(const XPictureWindow&) = delete;
  XPictureWindow& operator=(const XPictureWindow&) = delete;
  ~XPictureWindow() override {
    if (window_ != 0) xlib_.destroyWindow(display_, window_);
    xlib_.sync(display_, False);
    xlib_.closeDisplay(display_);
  }

  /// Returns false when the owner's window does not exist.
  bool Create(const std::optional<PictureRectangle>& rectangle) {
    const std::optional<PictureRectangle> whole = OwnerSize();
    if (!whole) return false;
    rectangle_ = rectangle.value_or(*whole);
    window_ = xlib_.createSimpleWindow(display_, owner_, rectangle_.left, rectangle_.top, Side(rectangle_.width),
                                       Side(rectangle_.height), 0, 0, 0);
    errors_.PassOver(window_);
    xlib_.mapWindow(display_, window_);
    xlib_.sync(display_, False);
    return true;
  }

  [[nodiscard]] std::uint64_t Handle() const override { return window_; }
  [[nodiscard]] PictureRectangle Rectangle() const override { return rectangle_; }

  void Move(const std::optional<PictureRectangle>& rectangle) override {
    rectangle_ = rectangle.value_or(OwnerSize().value_or(rectangle_));
    xlib_.moveResizeWindow(display_, window_, rectangle_.left, rectangle_.top, Side(rectangle_.width),
                           Side(rectangle_.height));
    xlib_.sync(display_, False);
  }

 private:
  [[nodiscard]] std::optional<PictureRectangle> OwnerSize() const {
    Window root = 0;
    int left = 0;
    int top = 0;
    unsigned width = 0;
    unsigned height = 0;
    unsigned border = 0;
    unsigned depth = 0;
    if (xlib_.getGeometry(display_, owner_, &root, &left, &top, &width, &height, &border, &depth) == 0) {
      return std::nullopt;
    }
    return PictureRectangle{0, 0, static_cast<int>(width), static_cast<int>(height)};
  }

  const Xlib& xlib_;
  Display* display_;
  Window owner_;
  XErrorGuard errors_;
  Window window_ = 0;
  PictureRectangle rectangle_;
};

}  // namespace

std::unique_ptr<PictureWindow> PictureWindow::Make(std::uint64_t owner,
                                                   const std::optional<PictureRectangle>& rectangle) {
  const Xlib* const xlib = LoadXlib();
  if (xlib == nullptr) return nullptr;
  Display* const display = xlib->openDisplay(nullptr);
  if (display == nullptr) return nullptr;
  auto window = std::make_unique<XPictureWindow>(*xlib, display, owner);
  if (!window->Create(rectangle)) return nullptr;
  return window;
}

}  // namespace quillon
