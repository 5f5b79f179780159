#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <utility>

#include "platform/FileSystem.h"
#include "platform/FolderOrder.h"
#include "platform/ReadAhead.h"
#include "platform/linux/ExactNames.h"
#include "platform/linux/FolderFiles.h"
#include "platform/linux/OpenAt.h"
#include "platform/linux/OpenFolder.h"
#include "platform/linux/SystemError.h"
#include "platform/linux/VolumeNameUnit.h"

namespace quillon {
namespace {

enum class EntryKind { kFile, kFolder, kLink, kUnknown, kOther };

EntryKind KindOf(unsigned char type) {
  switch (type) {
    case DT_REG: return EntryKind::kFile;
    case DT_DIR: return EntryKind::kFolder;
    case DT_LNK: return EntryKind::kLink;
    case DT_UNKNOWN: return EntryKind::kUnknown;
    default: return EntryKind::kOther;
  }
}

// The entry's kind, or, depending on `flags`, the kind of a link's target.
EntryKind KindOnDisk(DIR* folder, const char* name, int flags) {
  struct stat status = {};
  if (::fstatat(::dirfd(folder), name, &status, flags) != 0) return EntryKind::kOther;
  return KindOf(static_cast<unsigned char>(IFTODT(status.st_mode)));
}

bool IsDots(std::string_view name) {
  return name == "." || name == "..";
}

void AddEntry(std::vector<FolderEntry>& entries, DIR* folder, const dirent& found) {
  if (IsDots(found.d_name)) return;
  EntryKind kind = KindOf(found.d_type);
  if (kind == EntryKind::kUnknown) kind = KindOnDisk(folder, found.d_name, AT_SYMLINK_NOFOLLOW);
  const bool isLink = kind == EntryKind::kLink;
  if (isLink) kind = KindOnDisk(folder, found.d_name, 0);
  if (kind != EntryKind::kFile && kind != EntryKind::kFolder) return;
  entries.push_back({found.d_name, kind == EntryKind::kFolder, isLink});
}

FileStatus StatusOf(const struct stat& status) {
  if (S_ISREG(status.st_mode)) {
    return {FileStatus::Kind::kFile, static_cast<std::uint64_t>(status.st_size), status.st_mtim.tv_sec};
  }
  return {S_ISDIR(status.st_mode) ? FileStatus::Kind::kFolder : FileStatus::Kind::kOther, 0};
}

Listing ListEntries(const std::string& folder, const std::atomic<bool>& abandoned) {
  if (HoldsNul(folder)) return FolderErrorOf(EINVAL);
  const OpenFolder open(::opendir(folder.c_str()));
  if (!open) return FolderErrorOf(errno);
  std::vector<FolderEntry> entries;
  while (!abandoned.load(std::memory_order_relaxed)) {
    errno = 0;
    const dirent* found = ::readdir(open.get());
    if (found == nullptr) {
      if (errno != 0) return FolderErrorOf(errno);
      SortAsVolumeLists(entries);
      break;
    }
    AddEntry(entries, open.get(), *found);
  }
  return entries;
}

std::string ResolveLinks(const std::string& folder) {
  if (HoldsNul(folder)) return {};
  const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(folder.c_str(), nullptr), &std::free);
  return resolved ? std::string(resolved.get()) : std::string();
}

class LinuxFileReads final : public FileReads {
 public:
  explicit LinuxFileReads(const FileReadsOptions& options) : options_(options) {}

  Result<std::vector<FolderEntry>, FileError> ReadFolder(const std::string& folder) override {
    return ListEntries(folder, std::atomic<bool>(false));
  }

  std::unique_ptr<FolderListings> ListFolders(bool subfolders) override {
    if (!options_.readAhead) return FileReads::ListFolders(subfolders);
    return MakeListingsAhead({&ListEntries, &ResolveLinks}, subfolders, '/');
  }

  std::string RealPath(const std::string& folder) override { return ResolveLinks(folder); }

  std::unique_ptr<ByteSource> OpenFile(const std::string& path) override { return OpenSystemFile(path); }

  Result<FileStatus, FileError> Status(const std::string& path) override {
    if (HoldsNul(path)) return InvalidNameError();
    return StatusAt(AT_FDCWD, path.c_str());
  }

  std::unique_ptr<FilesInTurn> ReadInTurn(const PathList& list, const NeedsOf& needs) override {
    const std::size_t keptOpen = FilesKeptOpen();
    if (!options_.readAhead || list.size() < kFewestReadAhead || keptOpen == 0)
      return FileReads::ReadInTurn(list, needs);
    return MakeReadAhead(list, needs, &MakeFolderFiles, {.files = keptOpen});
  }

  std::optional<ExactNames> ExactNamesIn(const std::string& folder) override { return ListExactNames(folder); }

  bool SameFile(const std::string& left, const std::string& right) override {
    if (HoldsNul(left) || HoldsNul(right)) return false;
    struct stat one = {};
    struct stat other = {};
    if (::stat(left.c_str(), &one) != 0 || ::stat(right.c_str(), &other) != 0) return false;
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
  }

  Result<FileIdentity, FileError> Identity(const std::string& path) override {
    if (HoldsNul(path)) return InvalidNameError();
    struct stat status = {};
    if (::lstat(path.c_str(), &status) != 0) return ErrorOf(errno);
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    // Past the year 2262 the product would overflow; wrapped around, it still tells two times apart.
    const auto seconds = static_cast<std::uint64_t>(status.st_mtim.tv_sec);
    const std::uint64_t modified = seconds * kNanoseconds + static_cast<std::uint64_t>(status.st_mtim.tv_nsec);
    return FileIdentity{status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
                        static_cast<std::int64_t>(modified)};
  }

  NameUnit NameUnitOf(const std::string& folder) override {
    struct statfs volume = {};
    if (HoldsNul(folder) || ::statfs(folder.c_str(), &volume) != 0) return NameUnit::kUtf16;
    // Some types are negative as signed 32-bit numbers.
    return NameUnitOfType(static_cast<unsigned long>(volume.f_type) & 0xFFFFFFFFUL);
  }

 private:
  FileReadsOptions options_;
};

}  // namespace

Result<FileStatus, FileError> StatusAt(int folder, const char* name) {
  struct stat status = {};
  if (::fstatat(folder, name, &status, 0) == 0) return StatusOf(status);
  if (errno != ENOENT && errno != ENOTDIR) return ErrorOf(errno);
  // A dangling link is not absent: its name is taken.
  const bool taken = ::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) == 0;
  return FileStatus{taken ? FileStatus::Kind::kOther : FileStatus::Kind::kAbsent, 0};
}

std::unique_ptr<FileReads> MakeFileReads(const FileReadsOptions& options) {
  return std::make_unique<LinuxFileReads>(options);
}

}  // namespace quillon
