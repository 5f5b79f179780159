#pragma once

#include <string>

namespace quillon {

/// The main screen, in the units that windows are placed with. All 0 without a window system.
struct ScreenMetrics {
  int width = 0;
  int height = 0;
  int bitsPerPixel = 0;

  bool operator==(const ScreenMetrics&) const = default;
};

/// Needs a running window system.
[[nodiscard]] ScreenMetrics QueryScreen();

/// Three decimal numbers with single spaces between them, such as "1024 768 32".
[[nodiscard]] std::string ScreenMetricsText(const ScreenMetrics& metrics = QueryScreen());

}  // namespace quillon
