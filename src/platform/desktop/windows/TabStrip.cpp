#include "platform/desktop/TabStrip.h"

// windows.h has to come first.
// clang-format off
#include <windows.h>
#include <commctrl.h>
// clang-format on

namespace quillon {

int WidthOfAllTabs(void* tabStrip) {
  auto* const window = static_cast<HWND>(tabStrip);
  const LRESULT tabs = ::SendMessageW(window, TCM_GETITEMCOUNT, 0, 0);
  RECT last = {};
  if (tabs == 0 ||
      ::SendMessageW(window, TCM_GETITEMRECT, static_cast<WPARAM>(tabs - 1), reinterpret_cast<LPARAM>(&last)) == 0) {
    return 0;
  }
  RECT first = {};
  ::SendMessageW(window, TCM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&first));
  return static_cast<int>(last.right - first.left) + 2 * ::GetSystemMetrics(SM_CXEDGE) + 2;
}

}  // namespace quillon
