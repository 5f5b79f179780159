#include "app/HelpFile.h"

namespace quillon {

std::string HelpFilePath(const std::string& programFolder, const std::string& baseName, PathStyle style) {
  if (style == PathStyle::kWindows) return programFolder + baseName + ".chm";
  return programFolder + "help/index.html";
}

}  // namespace quillon
