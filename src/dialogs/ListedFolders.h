#pragma once

#include <string>
#include <vector>

#include "filelist/FileList.h"

namespace quillon {

/// The folders of the listed files, each once, with their trailing separator, in the order in which the rows first
/// mention them. Folders are the same when their texts are.
[[nodiscard]] std::vector<std::string> ListedFolders(const FileList& list, PathStyle style = SystemPathStyle());

}  // namespace quillon
