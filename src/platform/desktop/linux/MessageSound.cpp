#include "platform/desktop/MessageSound.h"

namespace quillon {

void PlayMessageSound(MessageIcon) {}

}  // namespace quillon
