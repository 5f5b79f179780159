#pragma once

#include <sys/stat.h>

#include "platform/FileSystem.h"

namespace quillon {

/// Gives the file `to` the owner, permissions and access list of `from`, whose status was `source`, as far as the
/// system and the volume allow, without giving any user more rights than before. Returns false, with errno set, when a
/// user got more rights anyway, or the list could not be kept.
[[nodiscard]] bool CopyOwnerAndAccess(int from, int to, const struct stat& source);

/// Gives the file `to` the owner, permissions, access list, extended attributes and times of `from`, whose status was
/// `source`, as far as the system and the target's volume allow: a move to a memory card must not fail because the card
/// stores no permissions. Where the access list cannot be kept, the group gets the rights that the list granted to the
/// owning group. A default list inherited from the target's folder is removed. Returns what could not be kept.
[[nodiscard]] NotKept CopyAttributes(int from, int to, const struct stat& source);

}  // namespace quillon
