#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "platform/TemporaryName.h"
#include "platform/WholeFile.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/SystemError.h"

namespace quillon {
namespace {

constexpr int kMostLinks = 40;  // as many as the system itself follows

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? std::string("./") : path.substr(0, slash + 1);
}

// Where the chain of links that starts at `path` ends, whether anything stands there or not.
std::string BehindLinks(std::string path) {
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code failed;
    const std::string target = std::filesystem::read_symlink(path, failed).string();
    if (failed) break;
    path = target.front() == '/' ? target : FolderOf(path).append(target);
  }
  return path;
}

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// The owner only as far as the system lets us give files away; the permissions always.
bool TakePermissions(int file, const struct stat& old) {
  const bool sameOwner = ::fchown(file, old.st_uid, old.st_gid) == 0;
  const mode_t withoutOwner = old.st_mode & 0777u;
  return ::fchmod(file, sameOwner ? old.st_mode & 07777u : withoutOwner) == 0;
}

bool FillAndFlush(Descriptor& file, std::string_view bytes, const struct stat* old) {
  if (old != nullptr && !TakePermissions(file.Number(), *old)) return false;
  return WriteAll(file.Number(), bytes) && ::fsync(file.Number()) == 0 && file.Close();
}

// The new name reaches the disk with its folder. Some file systems cannot flush a folder; there is nothing to add then.
void FlushFolder(const std::string& folder) {
  const Descriptor open(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (open.Open()) ::fsync(open.Number());
}

FileOutcome ReplaceThrough(const std::string& temporary, const std::string& path, std::string_view bytes,
                           const struct stat* old, Descriptor file) {
  if (FillAndFlush(file, bytes, old) && ::rename(temporary.c_str(), path.c_str()) == 0) {
    FlushFolder(FolderOf(path));
    return std::nullopt;
  }
  const int failure = errno;
  ::unlink(temporary.c_str());
  return ErrorOf(failure);
}

}  // namespace

FileOutcome ReplaceWholeFile(const std::string& path, std::string_view bytes) {
  if (HoldsNul(path)) return UnholdableName();
  const std::string target = BehindLinks(path);
  const std::string folder = FolderOf(target);
  std::error_code failed;
  std::filesystem::create_directories(folder, failed);
  if (failed) return ErrorOf(failed.value());
  struct stat old = {};
  const bool exists = ::stat(target.c_str(), &old) == 0;
  if (exists && S_ISDIR(old.st_mode)) return ErrorOf(EISDIR);
  if (exists && ::access(target.c_str(), W_OK) != 0) return ErrorOf(errno);
  for (int i = 0; i < kTemporaryNameAttempts; ++i) {
    const std::string temporary = folder + TemporaryName();
    Descriptor file(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, exists ? 0600 : 0666));
    if (file.Open()) return ReplaceThrough(temporary, target, bytes, exists ? &old : nullptr, std::move(file));
    if (errno != EEXIST) return ErrorOf(errno);
  }
  return ErrorOf(EEXIST);
}

bool CanWriteFolder(const std::string& folder) {
  struct stat status = {};
  if (HoldsNul(folder) || ::stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) return false;
  return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

}  // namespace quillon
