#pragma once

#include <sys/stat.h>

#include "platform/FileSystem.h"

namespace quillon {

/// Gives the file `to` the owner, permissions and access list of `from`, whose status was `source`, as far as the
/// system and the volume allow, and nobody more rights than he had. False, with errno set, when somebody has more all
/// the same, or a list could not be kept.
[[nodiscard]] bool CopyOwnerAndAccess(int from, int to, const struct stat& source);

/// Gives the file `to` the owner, permissions, access list, extended attributes and times of `from`, whose status was
/// `source`, as far as the system and the target's volume allow: a move to a memory card must not fail because it keeps
/// no permissions. Where the access list cannot be kept, the group gets what the list granted the owning group. A list
/// that the target's folder would hand down is not taken over. Returns what could not be kept.
[[nodiscard]] NotKept CopyAttributes(int from, int to, const struct stat& source);

}  // namespace quillon
