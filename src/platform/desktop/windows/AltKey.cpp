#include "platform/desktop/AltKey.h"

#include <windows.h>

namespace quillon {

void UseAltKey(void* window) {
  constexpr LPARAM kWithAlt = LPARAM{KF_ALTDOWN} << 16;
  DefWindowProcW(static_cast<HWND>(window), WM_SYSKEYDOWN, VK_SHIFT, kWithAlt);
}

}  // namespace quillon
