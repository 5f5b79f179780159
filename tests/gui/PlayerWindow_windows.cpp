#include "gui/PlayerWindow.h"

namespace quillon::test {

bool DeviceMayStandStill() {
  return true;
}

}  // namespace quillon::test
