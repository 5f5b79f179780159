#include "controls/TextBox.h"

namespace quillon {

bool TextBoxesCanUndo() {
  return true;
}

}  // namespace quillon
