#include "platform/TemporaryMark.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <ctime>
#include <utility>
#include <vector>

#include "platform/TemporaryName.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/FileId.h"
#include "platform/linux/SystemError.h"
#include "platform/linux/WriteAll.h"

namespace quillon {
namespace {

constexpr std::time_t kLeftOverSeconds = std::time_t{24} * 60 * 60;

class LinuxTemporaryMark final : public TemporaryMark {
 public:
  LinuxTemporaryMark(Descriptor file, FileId id, std::string path)
      : file_(std::move(file)), id_(id), path_(std::move(path)) {}
  ~LinuxTemporaryMark() override {
    if (!kept_) static_cast<void>(RemoveOwn(MarkName(path_), id_));
  }

  [[nodiscard]] const std::string& Path() const override { return path_; }
  void Keep() override { kept_ = true; }

 private:
  Descriptor file_;  // holds the lock
  FileId id_;
  std::string path_;
  bool kept_ = false;
};

// On volumes without locks, only its age distinguishes a left-over mark from one in use.
bool LockNow(int file) {
  return ::flock(file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

// An interrupted creation leaves a mark with only part of the text, or none.
bool HoldsMarkText(int file) {
  std::array<char, kMarkText.size() + 1> bytes = {};
  const ssize_t got = ::pread(file, bytes.data(), bytes.size(), 0);
  return got >= 0 && kMarkText.starts_with(std::string_view(bytes.data(), static_cast<std::size_t>(got)));
}

bool IsLeftOver(int mark) {
  struct stat status = {};
  if (::fstat(mark, &status) != 0 || !S_ISREG(status.st_mode)) return false;
  return ::time(nullptr) - status.st_mtime > kLeftOverSeconds && HoldsMarkText(mark) && LockNow(mark);
}

bool IsFileOrLink(const std::string& path) {
  struct stat status = {};
  return ::lstat(path.c_str(), &status) == 0 && (S_ISREG(status.st_mode) || S_ISLNK(status.st_mode));
}

void RemoveLeftover(const std::string& folder, const std::string& name) {
  const std::string path = folder + name;
  const std::string markPath = folder + MarkName(name);
  const Descriptor mark(::open(markPath.c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!mark.Open() || !IsLeftOver(mark.Number())) return;
  const bool gone = IsFileOrLink(path) ? ::unlink(path.c_str()) == 0 : !IdAt(path);
  if (gone) ::unlink(markPath.c_str());
}

std::vector<std::string> MarkedNames(const std::string& folder) {
  std::vector<std::string> names;
  DIR* const open = ::opendir(folder.c_str());
  if (open == nullptr) return names;
  while (const dirent* const entry = ::readdir(open)) {
    if (std::optional<std::string> name = MarkedName(entry->d_name)) names.push_back(*std::move(name));
  }
  ::closedir(open);
  return names;
}

}  // namespace

Result<std::unique_ptr<TemporaryMark>, FileError> MarkTemporaryFile(const std::string& path) {
  Descriptor file(::open(MarkName(path).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  struct stat status = {};
  if (!file.Open() || ::fstat(file.Number(), &status) != 0) return ErrorOf(errno);
  const int number = file.Number();
  std::unique_ptr<TemporaryMark> mark = std::make_unique<LinuxTemporaryMark>(std::move(file), IdOf(status), path);
  if (!LockNow(number) || !WriteAll(number, kMarkText)) return ErrorOf(errno);
  return mark;
}

void RemoveMarkedLeftovers(const std::string& folder) {
  for (const std::string& name : MarkedNames(folder)) RemoveLeftover(folder, name);
}

}  // namespace quillon
