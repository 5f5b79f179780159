#include "platform/desktop/ToolBarArrows.h"

namespace quillon {

void DrawToolBarArrows(void* /*toolBar*/) {}

}  // namespace quillon
