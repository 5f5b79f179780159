#include "platform/linux/NoReplaceRename.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "platform/linux/Descriptor.h"

namespace quillon {
namespace {

int TakeBack(const std::string& path, int failure) {
  ::unlink(path.c_str());
  return failure;
}

bool HasNoLinks(int failure) {
  return failure == EPERM || failure == EOPNOTSUPP || failure == EMLINK || failure == ENOSYS;
}

}  // namespace

int RenameOverPlaceholder(const std::string& from, const std::string& to) {
  {
    const Descriptor placeholder(::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!placeholder.Open()) return errno;
  }
  return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : TakeBack(to, errno);
}

int RenameByLink(const std::string& from, const std::string& to) {
  if (::link(from.c_str(), to.c_str()) != 0) return errno;
  return ::unlink(from.c_str()) == 0 ? 0 : TakeBack(to, errno);
}

int RenameNoReplace(const std::string& from, const std::string& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  const int failure = RenameByLink(from, to);
  return HasNoLinks(failure) ? RenameOverPlaceholder(from, to) : failure;
}

}  // namespace quillon
