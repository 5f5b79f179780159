#pragma once

#include <optional>

#include "base/Ports.h"
#include "platform/desktop/FileIcon.h"

namespace quillon {

/// The icon of the system's message boxes of this kind; nullopt where it comes from the desktop's icon theme.
[[nodiscard]] std::optional<Pixels> MessagePicture(MessageIcon icon);

/// Plays the system's sound for message boxes of this kind, if it has one.
void PlayMessageSound(MessageIcon icon);

}  // namespace quillon
