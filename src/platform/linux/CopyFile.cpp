#include "platform/linux/CopyFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/linux/Descriptor.h"

namespace quillon {
namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 20u;

// All of `bytes`, however little the system takes at once.
bool WriteAll(int file, const char* bytes, std::size_t count) {
  while (count > 0) {
    const ssize_t written = ::write(file, bytes, count);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes += written;
    count -= static_cast<std::size_t>(written);
  }
  return true;
}

bool CopyContent(int from, int to) {
  std::vector<char> buffer(kBufferSize);
  for (;;) {
    const ssize_t got = ::read(from, buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return got == 0;
    if (!WriteAll(to, buffer.data(), static_cast<std::size_t>(got))) return false;
  }
}

void CopyExtendedAttribute(int from, int to, const char* name) {
  const ssize_t length = ::fgetxattr(from, name, nullptr, 0);
  if (length < 0) return;
  std::vector<char> value(static_cast<std::size_t>(length));
  if (::fgetxattr(from, name, value.data(), value.size()) != length) return;
  ::fsetxattr(to, name, value.data(), value.size(), 0);
}

void CopyExtendedAttributes(int from, int to) {
  const ssize_t length = ::flistxattr(from, nullptr, 0);
  if (length <= 0) return;
  std::vector<char> names(static_cast<std::size_t>(length));
  const ssize_t got = ::flistxattr(from, names.data(), names.size());
  std::size_t start = 0;
  while (got > 0 && start < static_cast<std::size_t>(got)) {
    const char* name = names.data() + start;
    CopyExtendedAttribute(from, to, name);
    start += std::string_view(name).size() + 1;
  }
}

// As far as the target volume knows them: a move to a memory card must not fail because it keeps no permissions.
void CopyPermissions(int from, int to, const struct stat& source) {
  const bool sameOwner = ::fchown(to, source.st_uid, source.st_gid) == 0;
  CopyExtendedAttributes(from, to);
  ::fchmod(to, source.st_mode & (sameOwner ? 07777u : 0777u));
}

std::array<timespec, 2> TimesOf(const struct stat& status) {
  return {status.st_atim, status.st_mtim};
}

bool SameTime(const timespec& left, const timespec& right) {
  return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

// True when the path still names the file that was copied, as it was when the copying began.
bool IsUnchanged(const std::string& path, const struct stat& before) {
  struct stat now = {};
  return ::lstat(path.c_str(), &now) == 0 && now.st_dev == before.st_dev && now.st_ino == before.st_ino &&
         now.st_size == before.st_size && SameTime(now.st_mtim, before.st_mtim);
}

int CopyOpened(const Descriptor& source, const std::string& from, const struct stat& status, Descriptor& copy) {
  if (!CopyContent(source.Number(), copy.Number())) return errno;
  if (!IsUnchanged(from, status)) return EBUSY;
  CopyPermissions(source.Number(), copy.Number(), status);
  const std::array<timespec, 2> times = TimesOf(status);
  if (::futimens(copy.Number(), times.data()) != 0 && errno != EPERM && errno != EOPNOTSUPP) return errno;
  return ::fsync(copy.Number()) == 0 && copy.Close() ? 0 : errno;
}

int CopyRegularFile(const std::string& from, const std::string& to) {
  const Descriptor source(::open(from.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!source.Open()) return errno;
  struct stat status = {};
  if (::fstat(source.Number(), &status) != 0) return errno;
  if (!S_ISREG(status.st_mode)) return EBUSY;
  Descriptor copy(::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  if (!copy.Open()) return errno;
  const int failure = CopyOpened(source, from, status, copy);
  if (failure != 0) ::unlink(to.c_str());
  return failure;
}

int CopyLink(const std::string& from, const std::string& to, const struct stat& status) {
  std::string target(static_cast<std::size_t>(status.st_size) + 1, '\0');
  const ssize_t length = ::readlink(from.c_str(), target.data(), target.size());
  if (length < 0) return errno;
  if (static_cast<std::size_t>(length) == target.size()) return EBUSY;
  target.resize(static_cast<std::size_t>(length));
  if (::symlink(target.c_str(), to.c_str()) != 0) return errno;
  const std::array<timespec, 2> times = TimesOf(status);
  ::utimensat(AT_FDCWD, to.c_str(), times.data(), AT_SYMLINK_NOFOLLOW);
  static_cast<void>(::lchown(to.c_str(), status.st_uid, status.st_gid));
  return 0;
}

}  // namespace

int CopyWithAttributes(const std::string& from, const std::string& to) {
  struct stat status = {};
  if (::lstat(from.c_str(), &status) != 0) return errno;
  if (S_ISLNK(status.st_mode)) return CopyLink(from, to, status);
  return S_ISREG(status.st_mode) ? CopyRegularFile(from, to) : EXDEV;
}

}  // namespace quillon
