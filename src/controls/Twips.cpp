#include "controls/Twips.h"

#include <cmath>

#include "platform/desktop/ScreenMetrics.h"

namespace quillon {
namespace {

constexpr double kTwipsPerInch = 1440.0;
constexpr int kDipPerInch = 96;

// DIP are the only unit with the same meaning on GTK, where the desktop scales pixels, and on Windows, where it does
// not. The text scale is included so that windows grow with their text.
double TwipsPerPixel(const wxWindow& window) {
  return kTwipsPerInch / (window.FromDIP(wxSize(kDipPerInch, kDipPerInch)).x * QueryTextScale());
}

}  // namespace

int ToPixels(const wxWindow& window, std::int32_t twips) {
  return static_cast<int>(std::lround(twips / TwipsPerPixel(window)));
}

std::int32_t ToTwips(const wxWindow& window, int pixels) {
  return static_cast<std::int32_t>(std::lround(pixels * TwipsPerPixel(window)));
}

void UpdateTwips(const wxWindow& window, std::int32_t& twips, int pixels) {
  if (ToPixels(window, twips) != pixels) twips = ToTwips(window, pixels);
}

}  // namespace quillon
