#include "platform/desktop/WindowFrame.h"

namespace quillon {

bool WindowsHavePlaces() {
  return true;
}

int ShadowAround(void* /*window*/) {
  return 0;
}

void LayOutWhenSized(void* /*window*/) {}

}  // namespace quillon
