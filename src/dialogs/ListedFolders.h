#pragma once

#include <string>
#include <vector>

#include "base/Ports.h"
#include "filelist/FileList.h"

namespace quillon {

/// The folders of the listed files, each once, with their trailing separator, in the order in which the rows first
/// mention them. Folders are compared by their exact texts.
[[nodiscard]] std::vector<std::string> ListedFolders(const FileList& list);

/// Shows a message when the shell could not open a listed folder; `answer` is OpenWithShell's.
void TellOfOpening(const std::string& folder, int answer, MessageBoxes& boxes);

}  // namespace quillon
