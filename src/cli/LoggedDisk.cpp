#include "cli/LoggedDisk.h"

#include <limits>
#include <utility>

#include "cli/Messages.h"
#include "cli/Output.h"
#include "plan/RenameLog.h"
#include "platform/WholeFile.h"

namespace quillon::cli {
namespace {

bool IsListed(FileReads& files, const FileList& list, const std::string& path) {
  if (!files.IsFile(path)) return false;
  for (int index = 1; index <= list.Count(); ++index) {
    if (files.SameFile(list.Row(index).location, path)) return true;
  }
  return false;
}

// True for a log, an empty file, and no file at all.
bool CanBeLog(const std::string& path) {
  const auto text = ReadWholeFile(path, std::numeric_limits<std::uint64_t>::max());
  if (!text) return text.Failure() == ReadFailure::kAbsent;
  const Result<RenameLog, std::size_t> log = ReadRenameLog(*text);
  return log && !log->torn;
}

}  // namespace

bool LoggedDisk::LogTo(const std::string& path, const FileList& list) {
  if (path.empty()) return true;
  const std::string fullPath = FullPath(path);
  if (IsListed(files_, list, fullPath)) {
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
