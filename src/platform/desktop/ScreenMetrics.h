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

/// How much larger text is than the screen's resolution makes it: 1 unless the user has asked for larger text where
/// that leaves the resolution alone (GTK; Windows raises the resolution). At least 1. Needs a running window system.
[[nodiscard]] double QueryTextScale();

/// Three decimal numbers with single spaces between them, such as "1024 768 32".
[[nodiscard]] std::string ScreenMetricsText(const ScreenMetrics& metrics = QueryScreen());

}  // namespace quillon
