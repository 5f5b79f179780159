#include "platform/MoveByCopying.h"

#include "platform/EntryPath.h"
#include "platform/TemporaryName.h"

namespace quillon {
namespace {

FileError TakeBack(CopySteps& steps, const std::string& copy, FileError reason) {
  if (const FileOutcome failed = steps.Remove(copy)) reason.description += " (" + copy + ")";
  return reason;
}

FileOutcome PublishAndRemoveSource(CopySteps& steps, const std::string& temporary, const std::string& from,
                                   const std::string& to, const std::string& folder) {
  if (const FileOutcome failed = steps.Publish(temporary, to)) return TakeBack(steps, temporary, *failed);
  if (const FileOutcome failed = steps.FlushFolder(folder)) return TakeBack(steps, to, *failed);
  if (const FileOutcome failed = steps.Remove(from)) return TakeBack(steps, to, *failed);
  return std::nullopt;
}

}  // namespace

FileOutcome MoveByCopying(CopySteps& steps, const std::string& from, const std::string& to, PathStyle style) {
  if (FileOutcome absent = steps.Look(from)) return absent;
  // Publishing would find this out, too, but only after all the copying.
  if (!steps.Look(to)) return FileError{file_error::kAlreadyExists, "File exists"};
  const std::string folder(SplitPath(to, style).folder);
  FileOutcome outcome;
  for (int i = 0; i < kTemporaryNameAttempts; ++i) {
    const std::string temporary = folder + TemporaryName();
    outcome = steps.Copy(from, temporary);
    if (!outcome) return PublishAndRemoveSource(steps, temporary, from, to, folder);
    if (outcome->number != file_error::kAlreadyExists) break;
  }
  return outcome;
}

}  // namespace quillon
