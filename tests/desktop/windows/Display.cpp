#include "desktop/Display.h"

#include <windows.h>

namespace quillon::test {

bool ConnectToDisplay() {
  return ::GetDesktopWindow() != nullptr;
}

}  // namespace quillon::test
