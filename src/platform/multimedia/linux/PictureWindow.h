#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "platform/multimedia/CommandString.h"

namespace quillon {

/// The window that a picture is drawn into: a child of the owner's window, made on a separate connection. So the
/// picture fills exactly its rectangle, the owner's toolkit does not paint over it, and the owner gets the clicks. The
/// owner may destroy its window at any time; after that nothing is drawn.
class PictureWindow {
 public:
  /// Returns null when there is no X server or no window with that number. Without a rectangle the whole window is
  /// filled.
  static std::unique_ptr<PictureWindow> Make(std::uint64_t owner, const std::optional<PictureRectangle>& rectangle);

  PictureWindow() = default;
  PictureWindow(const PictureWindow&) = delete;
  PictureWindow& operator=(const PictureWindow&) = delete;
  virtual ~PictureWindow() = default;

  [[nodiscard]] virtual std::uint64_t Handle() const = 0;
  /// The picture's rectangle in the owner's window.
  [[nodiscard]] virtual PictureRectangle Rectangle() const = 0;
  virtual void Move(const std::optional<PictureRectangle>& rectangle) = 0;
};

}  // namespace quillon
