#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

#include "base/Text.h"
#include "platform/EntryPath.h"
#include "platform/FileSystem.h"
#include "platform/MoveByCopying.h"
#include "platform/RenameEntry.h"
#include "platform/TemporaryMark.h"
#include "platform/linux/CopySteps.h"
#include "platform/linux/NoReplaceRename.h"
#include "platform/linux/SystemError.h"
#include "platform/linux/Trash.h"

namespace quillon {
namespace {

FileOutcome LookAt(const std::string& path) {
  struct stat status = {};
  return OutcomeOf(::lstat(path.c_str(), &status) == 0 ? 0 : errno);
}

// The entry with exactly this name, else one that only differs in letter case; empty when the folder lists neither.
std::string FindListed(DIR* folder, std::string_view name) {
  std::string similar;
  while (const dirent* found = ::readdir(folder)) {
    if (name == found->d_name) return found->d_name;
    if (similar.empty() && EqualIgnoringCase(name, found->d_name)) similar = found->d_name;
  }
  return similar;
}

class LinuxEntries final : public EntryChanges {
 public:
  FileOutcome RenameNoReplace(const std::string& from, const std::string& to) override {
    return OutcomeOf(quillon::RenameNoReplace(from, to));
  }

  FileOutcome Look(const std::string& path) override { return LookAt(path); }

  bool SameFile(const std::string& left, const std::string& right) override {
    struct stat one = {};
    struct stat other = {};
    if (::lstat(left.c_str(), &one) != 0 || ::lstat(right.c_str(), &other) != 0) return false;
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
  }

  bool HasOneName(const std::string& path) override {
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0 && status.st_nlink == 1;
  }

  std::string ListedName(const std::string& path) override {
    const EntryPath split = SplitPath(path, PathStyle::kLinux);
    const std::string folder = split.folder.empty() ? "." : std::string(split.folder);
    DIR* open = ::opendir(folder.c_str());
    if (open == nullptr) return {};
    std::string name = FindListed(open, split.name);
    ::closedir(open);
    return name;
  }
};

bool AreValidPaths(const std::string& from, const std::string& to) {
  if (HoldsNul(from) || HoldsNul(to)) return false;
  return CanNameFile(SplitPath(from, PathStyle::kLinux).name) && CanNameFile(SplitPath(to, PathStyle::kLinux).name);
}

class LinuxFileChanges final : public FileChanges {
 public:
  FileOutcome Rename(const std::string& from, const std::string& to) override {
    if (!AreValidPaths(from, to)) return InvalidNameError();
    LinuxEntries entries;
    return RenameEntry(entries, from, to, PathStyle::kLinux);
  }

  MoveOutcome Move(const std::string& from, const std::string& to, Progress* progress) override {
    const FileOutcome failed = Rename(from, to);
    if (!failed) return NotKept();
    if (failed->number != file_error::kOwn + EXDEV) return *failed;
    LinuxCopySteps steps(progress);
    return MoveByCopying(steps, from, to, PathStyle::kLinux);
  }

  void RemoveLeftovers(const std::string& folder) override {
    if (!HoldsNul(folder)) RemoveMarkedLeftovers(folder.ends_with('/') ? folder : folder + '/');
  }

  FileOutcome Remove(const std::string& path) override {
    if (HoldsNul(path)) return InvalidNameError();
    return OutcomeOf(::unlink(path.c_str()) == 0 ? 0 : errno);
  }

  [[nodiscard]] bool RecycleAsks() const override { return false; }
  int Recycle(const std::string& path, std::uintptr_t) override { return MoveToTrash(path) ? 0 : kRecycleNotDone; }
};

}  // namespace

std::unique_ptr<FileChanges> MakeFileChanges() {
  return std::make_unique<LinuxFileChanges>();
}

}  // namespace quillon
