#include "platform/desktop/OpenMenu.h"

#include <windows.h>

namespace quillon {

void CloseOpenMenu() {
  EndMenu();
}

}  // namespace quillon
