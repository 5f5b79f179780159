#pragma once

#include <string>

#include "platform/PathStyle.h"

namespace quillon {

/// The path that the help command opens. On Windows it is the compiled help file beside the program, with the program's
/// base name. On Linux, which has no viewer for such files, it is the first of the same pages, in the folder "help"
/// beside the program. `programFolder` ends with a separator.
[[nodiscard]] std::string HelpFilePath(const std::string& programFolder, const std::string& baseName,
                                       PathStyle style = SystemPathStyle());

}  // namespace quillon
