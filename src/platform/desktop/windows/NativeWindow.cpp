#include "platform/desktop/NativeWindow.h"

namespace quillon {

void PreferNumberedWindows() {}

std::uintptr_t MakeNumberedWindow(void* control) {
  return reinterpret_cast<std::uintptr_t>(control);
}

}  // namespace quillon
