#include "platform/linux/FolderFiles.h"

#include <fcntl.h>
#include <sys/resource.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <optional>
#include <string>

#include "platform/linux/Descriptor.h"
#include "platform/linux/OpenAt.h"
#include "platform/linux/SystemError.h"

namespace quillon {
namespace {

bool IsLackOfResources(int number) {
  return number == EMFILE || number == ENFILE || number == ENOMEM;
}

class FolderFiles final : public FileOpener {
 public:
  Opened Open(const PathList::File& file) override {
    const Place place = PlaceOf(file);
    if (place.name == nullptr) return {};
    Result<std::unique_ptr<ByteSource>, int> opened = OpenAt(place.folder, place.name);
    if (opened) return {std::move(*opened)};
    return {nullptr, IsLackOfResources(opened.Failure())};
  }

  Result<FileStatus, FileError> Status(const PathList::File& file) override {
    const Place place = PlaceOf(file);
    if (place.name == nullptr) return InvalidNameError();
    return StatusAt(place.folder, place.name);
  }

 private:
  struct Place {
    int folder = AT_FDCWD;
    const char* name = nullptr;  ///< null for a path that would be cut
  };

  Place PlaceOf(const PathList::File& file) {
    file.PathInto(path_);
    if (HoldsNul(path_)) return {};
    EnterFolderOf(file);
    // The system finds no path of PATH_MAX bytes: neither must we.
    if (!open_ || path_.size() >= PATH_MAX) return {AT_FDCWD, path_.c_str()};
    return {open_->Number(), path_.c_str() + file.folder.size()};
  }

  // Opens the folder for its second file: for a single one the path is quicker.
  void EnterFolderOf(const PathList::File& file) {
    const bool stays = file.SharesFolderWith(last_);
    if (!stays) {
      open_.reset();
      tried_ = false;
    }
    if (stays && !tried_ && !file.name.empty() && file.folder.ends_with('/')) {
      tried_ = true;
      open_.emplace(::open(std::string(file.folder).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
      if (!open_->Open()) open_.reset();
    }
    last_ = file;
  }

  PathList::File last_;
  std::optional<Descriptor> open_;
  bool tried_ = false;
  std::string path_;
};

}  // namespace

std::unique_ptr<FileOpener> MakeFolderFiles() {
  return std::make_unique<FolderFiles>();
}

std::size_t FilesKeptOpen() {
  constexpr std::size_t kMost = 128;
  constexpr std::size_t kShare = 8;  // each thread keeps a folder open, too
  rlimit limit = {};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return 0;
  const std::size_t files = static_cast<std::size_t>(std::min<rlim_t>(limit.rlim_cur, kShare * kMost)) / kShare;
  return files < kShare ? 0 : files;
}

}  // namespace quillon
