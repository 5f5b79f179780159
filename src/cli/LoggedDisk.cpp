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

// Why this file cannot be the log; nullptr for a log, an empty file, and no file at all.
const HelpText* ComplaintAbout(const std::string& path) {
  const auto text = ReadWholeFile(path, std::numeric_limits<std::uint64_t>::max());
  if (!text) return text.Failure() == ReadFailure::kAbsent ? nullptr : &messages::kLogUnread;
  const Result<RenameLog, std::size_t> log = ReadRenameLog(*text);
  return log && !log->torn ? nullptr : &messages::kLogIsNone;
}

}  // namespace

bool LoggedDisk::MayLogTo(const std::string& path, const std::vector<std::string>& files) {
  path_ = FullPath(path);
  const HelpText* const complaint = IsOneOf(files, path_, files_) ? &messages::kLogIsListed : ComplaintAbout(path_);
  if (complaint != nullptr) Complain(Localized(*complaint) + path_);
  return complaint == nullptr;
}

bool LoggedDisk::OpenLog() {
  if (path_.empty()) return true;
  Result<std::unique_ptr<AppendedFile>, FileError> file = OpenAppendedFile(path_);
  if (!file) {
    Complain(Localized(messages::kLogNotOpened) + path_ + " (" + file.Failure().description + ")");
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
