#pragma once

#include <vector>

#include "platform/FileSystem.h"

namespace quillon {

/// Sorts as a Windows volume lists: by upper-case code points, names equal in that by their bytes. Made for folders of
/// very many entries: every name is upper-cased once.
void SortAsVolumeLists(std::vector<FolderEntry>& entries);

}  // namespace quillon
