#include "platform/EntryPath.h"

namespace quillon {

EntryPath SplitPath(std::string_view path, PathStyle style) {
  const std::string_view separators = style == PathStyle::kWindows ? "\\/" : "/";
  const std::size_t last = path.find_last_of(separators);
  const std::size_t start = last == std::string_view::npos ? 0 : last + 1;
  return {path.substr(0, start), path.substr(start)};
}

bool CanNameFile(std::string_view name) {
  return !name.empty() && name != "." && name != ".." && name.find('\0') == std::string_view::npos;
}

}  // namespace quillon
