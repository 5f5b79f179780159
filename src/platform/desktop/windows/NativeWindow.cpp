#include "platform/desktop/NativeWindow.h"

namespace quillon {

std::uintptr_t MakeNumberedWindow(void* control) {
  return reinterpret_cast<std::uintptr_t>(control);
}

std::shared_ptr<PictureCanvas> MakePictureCanvas(void* /*control*/) {
  return nullptr;
}

}  // namespace quillon
