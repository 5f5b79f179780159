#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "plan/LoggedChanges.h"
#include "platform/AppendedFile.h"
#include "platform/FileSystem.h"

namespace quillon::cli {

/// The disk, with the log that --log names.
class LoggedDisk {
 public:
  explicit LoggedDisk(FileReads& files) : files_(files) {}

  /// Looks whether changes can be logged to this file. A file with other content than a log is left alone, and so is
  /// one of the files that are to be changed: then it complains and returns false.
  [[nodiscard]] bool MayLogTo(const std::string& path, const std::vector<std::string>& files);

  /// From now on changes are logged to the file of MayLogTo. On failure it complains and returns false.
  [[nodiscard]] bool OpenLog();

  [[nodiscard]] FileChanges& Changes() { return logged_ ? *logged_ : *disk_; }
  [[nodiscard]] FileChanges& Unlogged() { return *disk_; }

  /// True when the log cannot be written any more; it has complained then.
  [[nodiscard]] bool Broken();

 private:
  FileReads& files_;
  std::string path_;
  std::unique_ptr<FileChanges> disk_ = MakeFileChanges();
  std::unique_ptr<AppendedFile> file_;
  std::optional<LoggedChanges> logged_;
  bool told_ = false;
};

}  // namespace quillon::cli
