#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string_view>

#include "base/Text.h"
#include "platform/FileSystem.h"

namespace quillon {
namespace {

std::string CurrentFolder() {
  const std::unique_ptr<char, decltype(&std::free)> folder(::getcwd(nullptr, 0), &std::free);
  return folder ? std::string(folder.get()) : std::string("/");
}

// The parent of the real folder: "/a" for "/a/b", but the target's parent when "/a/b" is a link.
std::string ParentOf(const std::string& folder) {
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(folder.c_str(), nullptr), &std::free);
  std::string parent = real ? std::string(real.get()) : folder;
  parent.erase(parent.rfind('/'));
  return parent;
}

}  // namespace

std::string FullPath(const std::string& path) {
  if (path.empty()) return {};
  const std::string all = path.front() == '/' ? path : CurrentFolder() + '/' + path;
  std::string full;
  for (const std::string_view piece : Split(all, '/')) {
    if (piece.empty() || piece == ".") continue;
    if (piece != "..") {
      full += '/';
      full += piece;
    } else if (!full.empty()) {
      full = ParentOf(full);
    }
  }
  const bool endsAsFolder = path.back() == '/' || full.empty();
  return endsAsFolder ? full + '/' : full;
}

std::string LongPath(const std::string& fullPath) {
  return fullPath;
}

}  // namespace quillon
