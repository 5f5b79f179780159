#include "platform/desktop/MessageLook.h"

namespace quillon {

std::optional<Pixels> MessagePicture(MessageIcon) {
  return std::nullopt;
}

void PlayMessageSound(MessageIcon) {}

}  // namespace quillon
