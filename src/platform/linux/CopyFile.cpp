#include "platform/linux/CopyFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/linux/CopyAttributes.h"
#include "platform/linux/WriteAll.h"

namespace quillon {
namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 20u;
constexpr std::size_t kPageSize = 4096;
// Flushing in between keeps the last flush short: otherwise it could take minutes on a slow volume.
constexpr off_t kFlushedAtOnce = off_t{16} << 20u;

bool IsZero(std::string_view bytes) {
  return bytes.front() == '\0' && std::memcmp(bytes.data(), bytes.data() + 1, bytes.size() - 1) == 0;
}

// The length in bytes of the leading pages that contain only zeros or, with `zeros` false, that contain something else.
std::size_t RunLength(std::string_view bytes, bool zeros) {
  std::size_t length = 0;
  while (length < bytes.size() && IsZero(bytes.substr(length, kPageSize)) == zeros) {
    length += std::min(kPageSize, bytes.size() - length);
  }
  return length;
}

// Skips pages of zeros. They are detected from the content because volumes have reported wrong positions for holes.
bool WriteBetweenHoles(int to, std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t hole = RunLength(bytes, true);
    if (hole > 0 && ::lseek(to, static_cast<off_t>(hole), SEEK_CUR) < 0) return false;
    bytes.remove_prefix(hole);
    const std::size_t data = RunLength(bytes, false);
    if (!WriteAll(to, bytes.substr(0, data))) return false;
    bytes.remove_prefix(data);
  }
  return true;
}

bool HasHoles(const struct stat& status) {
  constexpr off_t kBlockUnit = 512;
  return status.st_blocks < status.st_size / kBlockUnit;
}

// Copies the content. Returns zero when exactly as many bytes were read as the status says, else an errno.
int CopyContent(int from, int to, const struct stat& status, MadeCopy& made, Progress* progress) {
  const bool sparse = HasHoles(status);
  std::vector<char> buffer(kBufferSize);
  off_t copied = 0;
  off_t flushed = 0;
  for (;;) {
    if (progress != nullptr &&
        !progress->Continue(static_cast<std::size_t>(copied), static_cast<std::size_t>(status.st_size), {})) {
      made.cancelled = true;
      return ECANCELED;
    }
    const ssize_t got = ::read(from, buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return errno;
    if (got == 0) break;
    const std::string_view bytes(buffer.data(), static_cast<std::size_t>(got));
    if (!(sparse ? WriteBetweenHoles(to, bytes) : WriteAll(to, bytes))) return errno;
    copied += got;
    if (copied > status.st_size) return EBUSY;
    if (copied - flushed >= kFlushedAtOnce) {
      if (::fdatasync(to) != 0) return errno;
      flushed = copied;
    }
  }
  if (copied < status.st_size) return EIO;
  return !sparse || ::ftruncate(to, copied) == 0 ? 0 : errno;
}

// Returns zero, or the errno when the copy is incomplete.
int FillCopy(const OpenedSource& source, Descriptor& copy, MadeCopy& made, Progress* progress) {
  struct stat status = {};
  if (::fstat(copy.Number(), &status) != 0) return errno;
  made.id = IdOf(status);
  made.held.emplace(::fcntl(copy.Number(), F_DUPFD_CLOEXEC, 0));
  const int failure = CopyContent(source.file.Number(), copy.Number(), source.status, made, progress);
  if (failure != 0) return failure;
  made.notKept = CopyAttributes(source.file.Number(), copy.Number(), source.status);
  return ::fsync(copy.Number()) == 0 && copy.Close() ? 0 : errno;
}

// Deletes the copy just made; no other program knows its name.
void Discard(const std::string& path, MadeCopy& made) {
  made.stays = ::unlink(path.c_str()) != 0 && errno != ENOENT;
}

int CopyRegularFile(const OpenedSource& source, const std::string& to, MadeCopy& made, Progress* progress) {
  Descriptor copy(::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  if (!copy.Open()) return errno;
  int failure = ENOMEM;
  try {
    failure = FillCopy(source, copy, made, progress);
  } catch (const std::bad_alloc&) {  // NOLINT(bugprone-empty-catch): `failure` already says so
  } catch (...) {
    Discard(to, made);
    throw;
  }
  // An incomplete copy is useless.
  if (failure != 0) Discard(to, made);
  return failure;
}

int CopyLink(const OpenedSource& source, const std::string& to, MadeCopy& made) {
  std::string target(static_cast<std::size_t>(source.status.st_size) + 1, '\0');
  const ssize_t length = ::readlinkat(source.file.Number(), "", target.data(), target.size());
  if (length < 0) return errno;
  if (static_cast<std::size_t>(length) == target.size()) return EBUSY;
  target.resize(static_cast<std::size_t>(length));
  if (::symlink(target.c_str(), to.c_str()) != 0) return errno;
  const std::optional<FileId> id = IdAt(to);
  if (!id) {
    const int failure = errno;
    Discard(to, made);
    return failure;
  }
  made.id = *id;
  const std::array<timespec, 2> times = {source.status.st_atim, source.status.st_mtim};
  made.notKept.times = ::utimensat(AT_FDCWD, to.c_str(), times.data(), AT_SYMLINK_NOFOLLOW) != 0;
  [[maybe_unused]] const int owned = ::lchown(to.c_str(), source.status.st_uid, source.status.st_gid);
  return 0;
}

}  // namespace

int OpenCopySource(const std::string& path, std::optional<OpenedSource>& opened) {
  struct stat found = {};
  if (::lstat(path.c_str(), &found) != 0) return errno;
  if (!S_ISLNK(found.st_mode) && !S_ISREG(found.st_mode)) return EXDEV;
  const int way = S_ISLNK(found.st_mode) ? O_PATH : O_RDONLY | O_NONBLOCK | O_NOCTTY;
  OpenedSource source{Descriptor(::open(path.c_str(), way | O_NOFOLLOW | O_CLOEXEC)), {}};
  if (!source.file.Open() || ::fstat(source.file.Number(), &source.status) != 0) return errno;
  if (IdOf(source.status) != IdOf(found)) return EBUSY;  // the file was replaced in the meantime
  opened.emplace(std::move(source));
  return 0;
}

int CopyWithAttributes(const OpenedSource& source, const std::string& to, MadeCopy& made, Progress* progress) {
  return S_ISLNK(source.status.st_mode) ? CopyLink(source, to, made) : CopyRegularFile(source, to, made, progress);
}

}  // namespace quillon
