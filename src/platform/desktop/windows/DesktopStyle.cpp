#include "platform/desktop/DesktopStyle.h"

#include <windows.h>

namespace quillon {

void ApplyDesktopStyle() {}

void BeginReadingFonts() {}

bool ReadsRightToLeft() {
  constexpr DWORD kRightToLeft = 1;
  DWORD layout = 0;
  const int read =
      ::GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_IREADINGLAYOUT | LOCALE_RETURN_NUMBER,
                        reinterpret_cast<wchar_t*>(&layout), static_cast<int>(sizeof(layout) / sizeof(wchar_t)));
  return read > 0 && layout == kRightToLeft;
}

}  // namespace quillon
