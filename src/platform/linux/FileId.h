#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

namespace quillon {

/// Identifies a file independently of its names.
struct FileId {
  dev_t device = 0;
  ino_t number = 0;

  bool operator==(const FileId&) const = default;
};

[[nodiscard]] inline FileId IdOf(const struct stat& status) {
  return {status.st_dev, status.st_ino};
}

/// The id of the file at this path, links not followed; nullopt with errno set on failure.
[[nodiscard]] inline std::optional<FileId> IdAt(const std::string& path) {
  struct stat status = {};
  if (::lstat(path.c_str(), &status) != 0) return std::nullopt;
  return IdOf(status);
}

/// Deletes the entry at this path if it is this file. Returns zero when the file is no longer there, else the errno.
[[nodiscard]] int RemoveOwn(const std::string& path, const FileId& file);

}  // namespace quillon
