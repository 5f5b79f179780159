#include <windows.h>

#include "gui/ScreenPixel.h"

namespace quillon::test {

wxColour ScreenPixel(wxPoint place) {
  const HDC screen = GetDC(nullptr);
  const COLORREF colour = GetPixel(screen, place.x, place.y);
  ReleaseDC(nullptr, screen);
  return {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
}

}  // namespace quillon::test
