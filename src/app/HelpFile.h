#pragma once

#include <string>

#include "platform/PathStyle.h"

namespace quillon {

/// What the help command opens: the compiled help file beside the program, of the program's base name; on Linux, where
/// no program opens such files, the first of the same pages, in the folder "help" beside the program. `programFolder`
/// ends with a separator.
[[nodiscard]] std::string HelpFilePath(const std::string& programFolder, const std::string& baseName,
                                       PathStyle style = SystemPathStyle());

}  // namespace quillon
