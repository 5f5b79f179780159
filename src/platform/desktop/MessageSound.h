#pragma once

#include "base/Ports.h"

namespace quillon {

/// The sound that the system gives a message box of this kind; none where boxes are silent.
void PlayMessageSound(MessageIcon icon);

}  // namespace quillon
