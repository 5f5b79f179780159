#pragma once

#include <memory>
#include <string>

#include "platform/desktop/SingleInstance.h"

namespace quillon {

/// Detects a running instance with or without a session bus: the first instance holds a lock on the file `path`.lock
/// until its process ends; an unlocked file has no meaning. Through a socket beside it a later instance asks the first
/// one to come to the front; if the path is too long for a socket, that does not work. In a folder that is not writable
/// every instance counts as the first.
[[nodiscard]] std::unique_ptr<SingleInstance> MakeLockedInstance(const std::string& path, std::string startupId);

}  // namespace quillon
