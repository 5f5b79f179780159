#include "platform/linux/FileId.h"

#include <unistd.h>

#include <cerrno>

namespace quillon {

int RemoveOwn(const std::string& path, const FileId& file) {
  const std::optional<FileId> found = IdAt(path);
  if (!found) return errno == ENOENT ? 0 : errno;
  if (*found != file) return 0;
  return ::unlink(path.c_str()) == 0 || errno == ENOENT ? 0 : errno;
}

}  // namespace quillon
