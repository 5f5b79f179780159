#include "platform/ReplaceContent.h"

#include "platform/EntryPath.h"
#include "platform/TemporaryName.h"

namespace quillon {
namespace {

// The temporary file may be the only one left, so it is deleted only when the old file is known to exist.
FileOutcome Recover(ReplaceSteps& steps, const std::string& temporary, const std::string& path, FileError reason) {
  const FileOutcome absent = steps.Look(path);
  if (!absent) {
    (void)steps.Remove(temporary);  // the old content is intact, even if a temporary file stays
    return reason;
  }
  const bool nothingStands = absent->number == file_error::kNotFound;
  if (nothingStands && !steps.Publish(temporary, path)) return std::nullopt;
  reason.number = file_error::kStranded;
  reason.fileAt = temporary;
  return reason;
}

FileOutcome PutInPlace(ReplaceSteps& steps, const std::string& temporary, const std::string& path, bool replaces) {
  if (replaces) {
    const FileOutcome failed = steps.Replace(temporary, path);
    return failed ? Recover(steps, temporary, path, *failed) : std::nullopt;
  }
  FileOutcome failed = steps.Publish(temporary, path);
  if (failed) (void)steps.Remove(temporary);
  return failed;
}

}  // namespace

FileOutcome ReplaceContent(ReplaceSteps& steps, const std::string& path, std::string_view bytes, PathStyle style) {
  FileOutcome absent = steps.Look(path);
  if (absent && absent->number != file_error::kNotFound) return absent;
  const std::string folder(SplitPath(path, style).folder);
  FileOutcome outcome;
  for (int i = 0; i < kTemporaryNameAttempts; ++i) {
    const std::string temporary = folder + TemporaryName();
    outcome = steps.Write(temporary, bytes, path);
    if (!outcome) {
      outcome = PutInPlace(steps, temporary, path, !absent);
      return outcome ? outcome : steps.FlushFolder(folder);
    }
    if (outcome->number != file_error::kAlreadyExists) break;
  }
  return outcome;
}

}  // namespace quillon
