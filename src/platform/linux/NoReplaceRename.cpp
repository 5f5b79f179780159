#include "platform/linux/NoReplaceRename.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <optional>
#include <string_view>

#include "platform/EntryPath.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/FileId.h"

namespace quillon {
namespace {

bool HasNoLinks(int failure) {
  return failure == EPERM || failure == EOPNOTSUPP || failure == EMLINK || failure == ENOSYS;
}

// Returns zero when the path leads to this file, ENOENT when it leads to another file or nowhere, else the errno.
int FindAt(const std::string& path, const FileId& file) {
  const std::optional<FileId> found = IdAt(path);
  if (!found) return errno;
  return *found == file ? 0 : ENOENT;
}

// The second half of a rename by link: removes the old name after checking that both names are the file's. Some servers
// delete the name but report a failure, and another program's file may have taken the old name: in both cases the new
// name is the file's only one and must stay.
int RemoveOldName(const std::string& from, const std::string& to, const FileId& file) {
  int failure = FindAt(to, file);
  if (failure == ENOENT) return EBUSY;  // another file has taken the new name
  if (failure == 0) failure = FindAt(from, file);
  if (failure == 0 && ::unlink(from.c_str()) != 0) failure = errno;
  if (failure == 0) return 0;
  const int atOldName = FindAt(from, file);
  if (atOldName == ENOENT) return 0;
  // When the old name cannot be checked, the new one may be the only one and must stay.
  if (atOldName == 0) static_cast<void>(RemoveOwn(to, file));
  return failure;
}

bool IsOnVolumeOf(const std::string& path, const FileId& file) {
  const std::string_view folder = SplitPath(path, PathStyle::kLinux).folder;
  struct stat status = {};
  return ::stat(folder.empty() ? "." : std::string(folder).c_str(), &status) != 0 || status.st_dev == file.device;
}

// Creates an empty file at a free name. Returns zero or the errno; leaves nothing behind on failure.
int MakePlaceholder(const std::string& path, FileId& made) {
  const Descriptor placeholder(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  if (!placeholder.Open()) return errno;
  struct stat status = {};
  if (::fstat(placeholder.Number(), &status) != 0) {
    const int failure = errno;
    ::unlink(path.c_str());
    return failure;
  }
  made = IdOf(status);
  return 0;
}

}  // namespace

int RenameOverPlaceholder(const std::string& from, const std::string& to) {
  struct stat source = {};
  if (::lstat(from.c_str(), &source) != 0) return errno;
  const FileId file = IdOf(source);
  if (!IsOnVolumeOf(to, file)) return EXDEV;
  FileId placeholder;
  int failure = MakePlaceholder(to, placeholder);
  if (failure != 0 || ::rename(from.c_str(), to.c_str()) == 0) return failure;
  failure = errno;
  // Some servers rename the file but report a failure. The ids are compared because the placeholder may have got the
  // inode number of a source that was deleted meanwhile.
  if (placeholder != file && IdAt(to) == file && !IdAt(from)) return 0;
  // An empty file at the new name is the placeholder and is deleted, unless the source was empty, too, and may have
  // been renamed to it.
  struct stat now = {};
  const bool empty = ::lstat(to.c_str(), &now) == 0 && now.st_size == 0;
  const bool isPlaceholder = empty && (source.st_size > 0 || FindAt(from, file) == 0);
  if (isPlaceholder) static_cast<void>(RemoveOwn(to, placeholder));
  return failure;
}

int RenameByLink(const std::string& from, const std::string& to) {
  const std::optional<FileId> file = IdAt(from);
  return file && ::link(from.c_str(), to.c_str()) == 0 ? RemoveOldName(from, to, *file) : errno;
}

int RenameNoReplace(const std::string& from, const std::string& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  const std::optional<FileId> file = IdAt(from);
  if (!file) return errno;
  if (::link(from.c_str(), to.c_str()) == 0) return RemoveOldName(from, to, *file);
  return HasNoLinks(errno) ? RenameOverPlaceholder(from, to) : errno;
}

}  // namespace quillon
