#pragma once

#include <dirent.h>

#include <memory>

namespace quillon {

struct FolderCloser {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

/// A folder that is open for listing.
using OpenFolder = std::unique_ptr<DIR, FolderCloser>;

}  // namespace quillon
