#include "cli/LoggedDisk.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "cli/Messages.h"
#include "cli/Output.h"
#include "plan/RenameLog.h"
#include "platform/WholeFile.h"

namespace quillon::cli {
namespace {

bool IsOneOf(const std::vector<std::string>& paths, const std::string& path, FileReads& files) {
  return files.IsFile(path) &&
         std::any_of(paths.begin(), paths.end(), [&](const std::string& other) { return files.SameFile(other, path); });
}

// True for a log, an empty file, and no file at all.
bool CanBeLog(const std::string& path) {
  const auto text = ReadWholeFile(path, std::numeric_limits<std::uint64_t>::max());
  if (!text) return text.Failure() == ReadFailure::kAbsent;
  const Result<RenameLog, std::size_t> log = ReadRenameLog(*text);
  return log && !log->torn;
}

}  // namespace

bool LoggedDisk::LogTo(const std::string& path, const std::vector<std::string>& files) {
  if (path.empty()) return true;
  const std::string fullPath = FullPath(path);
  if (IsOneOf(files, fullPath, files_)) {
    Complain(Localized(messages::kLogIsListed) + fullPath);
    return false;
  }
  if (!CanBeLog(fullPath)) {
    Complain(Localized(messages::kLogIsNone) + fullPath);
    return false;
  }
  Result<std::unique_ptr<AppendedFile>, FileError> file = OpenAppendedFile(fullPath);
  if (!file) {
    Complain(Localized(messages::kLogNotOpened) + fullPath + " (" + file.Failure().description + ")");
    return false;
  }
  file_ = std::move(*file);
  logged_.emplace(*disk_, files_, *file_);
  return true;
}

bool LoggedDisk::Broken() {
  if (!logged_ || !logged_->Broken()) return false;
  if (!std::exchange(told_, true)) {
    Complain(Localized(messages::kLogBroken) + " (" + logged_->Broken()->description + ")");
  }
  return true;
}

}  // namespace quillon::cli
