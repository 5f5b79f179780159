#pragma once

#include "platform/FileSystem.h"

namespace quillon {

/// The unit of name lengths on a volume of this type (`statfs::f_type`). kUtf16 for FUSE, whose programs may provide
/// Windows volumes.
[[nodiscard]] NameUnit NameUnitOfType(unsigned long type);

}  // namespace quillon
