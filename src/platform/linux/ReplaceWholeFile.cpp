#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

#include "platform/ReplaceContent.h"
#include "platform/TemporaryMark.h"
#include "platform/WholeFile.h"
#include "platform/linux/CopyAttributes.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/FlushFolder.h"
#include "platform/linux/SystemError.h"
#include "platform/linux/WriteAll.h"

namespace quillon {
namespace {

constexpr int kMostLinks = 40;  // the system's own limit

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? std::string("./") : path.substr(0, slash + 1);
}

// The end of the chain of links that starts at `path`; it need not exist.
Result<std::string, FileError> BehindLinks(std::string path) {
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code failed;
    const std::string target = std::filesystem::read_symlink(path, failed).string();
    const bool isEnd = failed.value() == EINVAL || failed.value() == ENOENT;  // not a link, or missing
    if (isEnd) return path;
    if (failed) return ErrorOf(failed.value());
    path = target.front() == '/' ? target : FolderOf(path).append(target);
  }
  return ErrorOf(ELOOP);
}

// Copies the permissions. Returns true when nobody got more rights than before, and owner and others have no fewer;
// else false with errno set.
bool TakePermissions(int from, int to, const struct stat& old) {
  constexpr mode_t kOwnerAndOthers = 0707;
  struct stat now = {};
  if (!CopyOwnerAndAccess(from, to, old) || ::fstat(to, &now) != 0) return false;
  if (((now.st_mode ^ old.st_mode) & kOwnerAndOthers) == 0) return true;
  errno = EPERM;
  return false;
}

class LinuxReplaceSteps final : public ReplaceSteps {
 public:
  FileOutcome Look(const std::string& path) override {
    struct stat found = {};
    if (::stat(path.c_str(), &found) != 0) return ErrorOf(errno);
    if (!S_ISREG(found.st_mode)) return FileError{file_error::kAccess, "Not a regular file"};
    return OutcomeOf(::access(path.c_str(), W_OK) == 0 ? 0 : errno);
  }

  FileOutcome Write(const std::string& temporary, std::string_view bytes, const std::string& path) override {
    struct stat status = {};
    const Descriptor old(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    const bool exists = old.Open() && ::fstat(old.Number(), &status) == 0;
    if (!exists && (old.Open() || errno != ENOENT)) return ErrorOf(errno);
    if (FileOutcome failed = Mark(temporary)) return failed;
    // A private file must stay private while it is written, too.
    const mode_t mode = exists ? 0600 : 0666;
    Descriptor file(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (!file.Open()) return ErrorOf(errno);
    const bool permitted = !exists || TakePermissions(old.Number(), file.Number(), status);
    if (permitted && WriteAll(file.Number(), bytes) && ::fsync(file.Number()) == 0 && file.Close()) return std::nullopt;
    const int failure = errno;
    ::unlink(temporary.c_str());
    return ErrorOf(failure);
  }

  FileOutcome Replace(const std::string& temporary, const std::string& path) override {
    return OutcomeOf(std::rename(temporary.c_str(), path.c_str()) == 0 ? 0 : errno);
  }

  FileOutcome Publish(const std::string& temporary, const std::string& path) override {
    return Replace(temporary, path);
  }

  FileOutcome FlushFolder(const std::string& folder) override { return OutcomeOf(quillon::FlushFolder(folder)); }

  FileOutcome Remove(const std::string& path) override { return OutcomeOf(::unlink(path.c_str()) == 0 ? 0 : errno); }

 private:
  FileOutcome Mark(const std::string& temporary) {
    Result<std::unique_ptr<TemporaryMark>, FileError> mark = MarkTemporaryFile(temporary);
    if (!mark) return mark.Failure();
    mark_ = std::move(*mark);
    return std::nullopt;
  }

  std::unique_ptr<TemporaryMark> mark_;  // deleted after the replacement
};

}  // namespace

std::unique_ptr<ReplaceSteps> MakeReplaceSteps() {
  return std::make_unique<LinuxReplaceSteps>();
}

FileOutcome ReplaceWholeFile(const std::string& path, std::string_view bytes) {
  if (HoldsNul(path)) return InvalidNameError();
  const Result<std::string, FileError> target = BehindLinks(path);
  if (!target) return target.Failure();
  std::error_code failed;
  std::filesystem::create_directories(FolderOf(*target), failed);
  if (failed) return ErrorOf(failed.value());
  RemoveMarkedLeftovers(FolderOf(*target));
  return ReplaceContent(*MakeReplaceSteps(), *target, bytes, PathStyle::kLinux);
}

bool CanWriteFolder(const std::string& folder) {
  struct stat status = {};
  if (HoldsNul(folder) || ::stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) return false;
  return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

}  // namespace quillon
