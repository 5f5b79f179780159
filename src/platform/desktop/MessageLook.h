#pragma once

#include <optional>

#include "base/Ports.h"
#include "platform/desktop/FileIcon.h"

namespace quillon {

/// The picture that the system's own message boxes of this kind have; nullopt where the desktop's icon theme has it.
[[nodiscard]] std::optional<Pixels> MessagePicture(MessageIcon icon);

/// The sound that the system gives a message box of this kind; none where boxes are silent.
void PlayMessageSound(MessageIcon icon);

}  // namespace quillon
