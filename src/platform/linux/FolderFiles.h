#pragma once

#include <memory>

#include "platform/FileOpener.h"

namespace quillon {

/// Opens files relative to their folder, which spares the system the way to it.
[[nodiscard]] std::unique_ptr<FileOpener> MakeFolderFiles();

/// How many files may be kept open at one time, so that this process does not run out of descriptors. 0: none.
[[nodiscard]] std::size_t FilesKeptOpen();

}  // namespace quillon
