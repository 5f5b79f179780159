#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace quillon::test {

/// A window like another program's: on a separate X connection, drawn into only by the player that gets its number.
class PlainWindow {
 public:
  /// Null without a display.
  static std::unique_ptr<PlainWindow> Make(int width, int height);

  PlainWindow() = default;
  PlainWindow(const PlainWindow&) = delete;
  PlainWindow& operator=(const PlainWindow&) = delete;
  virtual ~PlainWindow() = default;

  [[nodiscard]] virtual std::uint64_t Handle() const = 0;
  /// The pixel's colour on the screen as 0xRRGGBB, including everything drawn over the window.
  [[nodiscard]] virtual std::uint32_t Pixel(int x, int y) const = 0;
  /// The rectangle of the window's first child as "left top width height"; empty without a child.
  [[nodiscard]] virtual std::string Child() const = 0;
  /// Clicks on the window's first child; true when the window itself gets the click.
  virtual bool GetsClicksOfItsChild() = 0;
  /// Covers the window and uncovers it again.
  virtual void CoverForAMoment() = 0;
  virtual void Destroy() = 0;
};

}  // namespace quillon::test
