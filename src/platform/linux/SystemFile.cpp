#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <limits>
#include <utility>

#include "platform/WholeFile.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/OpenAt.h"
#include "platform/linux/SystemError.h"

namespace quillon {
namespace {

class SystemFile final : public ByteSource {
 public:
  SystemFile(Descriptor file, std::uint64_t size) : file_(std::move(file)), size_(size) {}

  [[nodiscard]] std::uint64_t Size() const override { return size_; }

  std::size_t ReadAt(std::uint64_t offset, char* into, std::size_t count) override {
    if (offset > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max())) return 0;
    std::size_t done = 0;
    while (done < count) {
      const ssize_t got = ::pread(file_.Number(), into + done, count - done, static_cast<off_t>(offset + done));
      if (got < 0 && errno == EINTR) continue;
      if (got <= 0) break;
      done += static_cast<std::size_t>(got);
    }
    return done;
  }

 private:
  Descriptor file_;
  std::uint64_t size_;
};

}  // namespace

Result<std::unique_ptr<ByteSource>, int> OpenAt(int folder, const char* name) {
  // Non-blocking, because opening a named pipe would wait for a writer.
  Descriptor file(::openat(folder, name, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!file.Open()) return errno;
  struct stat status = {};
  if (::fstat(file.Number(), &status) != 0) return errno;
  if (!S_ISREG(status.st_mode)) return EISDIR;
  return std::unique_ptr<ByteSource>(
      std::make_unique<SystemFile>(std::move(file), static_cast<std::uint64_t>(status.st_size)));
}

Result<std::unique_ptr<ByteSource>, ReadFailure> OpenRegularFile(const std::string& path) {
  if (HoldsNul(path)) return ReadFailure::kUnreadable;
  Result<std::unique_ptr<ByteSource>, int> file = OpenAt(AT_FDCWD, path.c_str());
  if (file) return std::move(*file);
  return file.Failure() == ENOENT || file.Failure() == ENOTDIR ? ReadFailure::kAbsent : ReadFailure::kUnreadable;
}

std::unique_ptr<ByteSource> OpenSystemFile(const std::string& path) {
  Result<std::unique_ptr<ByteSource>, ReadFailure> file = OpenRegularFile(path);
  return file ? std::move(*file) : nullptr;
}

}  // namespace quillon
