#pragma once

#include <memory>
#include <string>

#include "platform/desktop/SingleInstance.h"

namespace quillon {

/// One instance whether there is a session bus or not: whoever holds the lock on the file `path`.lock is the first, for
/// as long as the process lives; a file that nobody holds means nothing. Beside it is a socket on which a later
/// instance asks the first one forward; where the path is too long for a socket, nothing comes forward. In a folder
/// that cannot be written every instance is the first.
[[nodiscard]] std::unique_ptr<SingleInstance> MakeLockedInstance(const std::string& path, std::string startupId);

}  // namespace quillon
