#include "platform/desktop/DesktopStyle.h"

namespace quillon {

void ApplyDesktopStyle() {}

}  // namespace quillon
