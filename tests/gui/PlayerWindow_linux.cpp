#include "gui/PlayerWindow.h"

namespace quillon::test {

bool DeviceMayStandStill() {
  return false;
}

}  // namespace quillon::test
