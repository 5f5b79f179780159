#pragma once

#include "platform/FileSystem.h"

namespace quillon {

/// The unit of a volume of this type, `statfs::f_type`. kUtf16 for what a program of the user's provides (FUSE): that
/// may be a volume of Windows.
[[nodiscard]] NameUnit NameUnitOfType(unsigned long type);

}  // namespace quillon
