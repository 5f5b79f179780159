#include "platform/FileSystem.h"
#include "platform/windows/SystemPath.h"

namespace quillon {

std::string FullPath(const std::string& path) {
  return TidySystemPath(path).value_or(path);
}

std::string UserTrashFolder() {
  return {};
}

}  // namespace quillon
