#include "controls/TextBox.h"

namespace quillon {

bool TextBoxesCanUndo() {
  return false;
}

}  // namespace quillon
