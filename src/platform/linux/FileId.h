#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

namespace quillon {

/// Tells files apart, whatever their names.
struct FileId {
  dev_t device = 0;
  ino_t number = 0;

  bool operator==(const FileId&) const = default;
};

[[nodiscard]] inline FileId IdOf(const struct stat& status) {
  return {status.st_dev, status.st_ino};
}

/// The file at this path, links not followed; nullopt with errno set when there is none.
[[nodiscard]] inline std::optional<FileId> IdAt(const std::string& path) {
  struct stat status = {};
  if (::lstat(path.c_str(), &status) != 0) return std::nullopt;
  return IdOf(status);
}

/// Deletes what stands at this path if it is this very file. Zero when it is not there any more, else the errno.
[[nodiscard]] int RemoveOwn(const std::string& path, const FileId& file);

}  // namespace quillon
