#include "platform/EntryPath.h"

namespace quillon {

EntryPath SplitPath(std::string_view path, PathStyle style) {
  const std::size_t last = style == PathStyle::kWindows ? path.find_last_of("\\/") : path.rfind('/');
  const std::size_t start = last == std::string_view::npos ? 0 : last + 1;
  return {path.substr(0, start), path.substr(start)};
}

bool CanNameFile(std::string_view name) {
  return !name.empty() && name != "." && name != ".." && name.find('\0') == std::string_view::npos;
}

}  // namespace quillon
