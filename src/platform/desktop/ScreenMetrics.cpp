#include "platform/desktop/ScreenMetrics.h"

namespace quillon {

std::string ScreenMetricsText(const ScreenMetrics& metrics) {
  return std::to_string(metrics.width) + ' ' + std::to_string(metrics.height) + ' ' +
         std::to_string(metrics.bitsPerPixel);
}

}  // namespace quillon
