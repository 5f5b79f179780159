#pragma once

#include <string>

namespace quillon {

/// The main screen, in the units of window positions. All 0 without a window system.
struct ScreenMetrics {
  int width = 0;
  int height = 0;
  int bitsPerPixel = 0;

  bool operator==(const ScreenMetrics&) const = default;
};

/// Needs a running window system.
[[nodiscard]] ScreenMetrics QueryScreen();

/// The user's text scale, at least 1, as far as it is not part of the screen's resolution: GTK's setting for larger
/// text; always 1 on Windows, which raises the resolution instead. Needs a running window system.
[[nodiscard]] double QueryTextScale();

/// Three decimal numbers with single spaces between them, such as "1024 768 32".
[[nodiscard]] std::string ScreenMetricsText(const ScreenMetrics& metrics = QueryScreen());

}  // namespace quillon
