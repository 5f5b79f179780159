#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace quillon::test {

/// A window of another program's kind: on a connection of its own, drawn into by nobody but whom it is given to.
class PlainWindow {
 public:
  /// Null without a display.
  static std::unique_ptr<PlainWindow> Make(int width, int height);

  PlainWindow() = default;
  PlainWindow(const PlainWindow&) = delete;
  PlainWindow& operator=(const PlainWindow&) = delete;
  virtual ~PlainWindow() = default;

  [[nodiscard]] virtual std::uint64_t Handle() const = 0;
  /// The pixel as red, green and blue, 0xRRGGBB, with all that is drawn over the window.
  [[nodiscard]] virtual std::uint32_t Pixel(int x, int y) const = 0;
  /// Of the window's first child, as "left top width height"; empty without one.
  [[nodiscard]] virtual std::string Child() const = 0;
  /// Clicks into the window's first child; true when the window itself is told.
  virtual bool GetsClicksOfItsChild() = 0;
  /// Hides everything that is drawn and shows it again.
  virtual void CoverForAMoment() = 0;
  virtual void Destroy() = 0;
};

}  // namespace quillon::test
