#include "platform/AppendedFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/linux/Descriptor.h"
#include "platform/linux/SystemError.h"
#include "platform/linux/WriteAll.h"

namespace quillon {
namespace {

class LinuxAppendedFile final : public AppendedFile {
 public:
  explicit LinuxAppendedFile(Descriptor file) : file_(std::move(file)) {}

  FileOutcome Append(std::string_view bytes) override {
    struct stat before = {};
    if (::fstat(file_.Number(), &before) != 0) return ErrorOf(errno);
    if (WriteAll(file_.Number(), bytes)) return std::nullopt;
    const FileError error = ErrorOf(errno);
    // A torn line is told when the log is read.
    static_cast<void>(::ftruncate(file_.Number(), before.st_size) == 0);
    return error;
  }

 private:
  Descriptor file_;
};

}  // namespace

Result<std::unique_ptr<AppendedFile>, FileError> OpenAppendedFile(const std::string& path) {
  if (HoldsNul(path)) return InvalidNameError();
  constexpr mode_t kMode = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
  Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NOCTTY, kMode));
  if (!file.Open()) return ErrorOf(errno);
  return std::unique_ptr<AppendedFile>(std::make_unique<LinuxAppendedFile>(std::move(file)));
}

}  // namespace quillon
