#include "platform/desktop/SliderThumb.h"

// windows.h has to come first.
// clang-format off
#include <windows.h>
#include <commctrl.h>
// clang-format on

#include <algorithm>

namespace quillon {
namespace {

RECT Ask(void* slider, UINT message) {
  RECT area = {};
  ::SendMessageW(static_cast<HWND>(slider), message, 0, reinterpret_cast<LPARAM>(&area));
  return area;
}

}  // namespace

ThumbSpan QueryThumb(void* slider) {
  const RECT thumb = Ask(slider, TBM_GETTHUMBRECT);
  return {static_cast<int>(thumb.left), static_cast<int>(thumb.right)};
}

std::optional<double> PlaceOfPress(void* slider, int x) {
  const ThumbSpan thumb = QueryThumb(slider);
  if (x >= thumb.left && x < thumb.right) return std::nullopt;
  const RECT channel = Ask(slider, TBM_GETCHANNELRECT);
  const int thumbWidth = thumb.right - thumb.left;
  const int way = static_cast<int>(channel.right - channel.left) - thumbWidth;
  if (way <= 0) return std::nullopt;
  const double place = x - channel.left - thumbWidth / 2.0;
  return std::clamp(place / way, 0.0, 1.0);
}

void PlaceThumb(void* /*slider*/) {}

}  // namespace quillon
