#include "platform/MoveByCopying.h"

#include <utility>

#include "platform/EntryPath.h"

namespace quillon {
namespace {

FileError Kept(int number, FileError reason, const std::string& copy) {
  reason.number = number;
  reason.fileAt = copy;
  return reason;
}

FileError BothKept(const std::string& to) {
  return {file_error::kBothKept, "The source has changed", to};
}

// The copy has its temporary name or its final one, or both when publishing it failed half-way.
FileError TakeBack(CopySteps& steps, const std::string& to, FileError reason) {
  const std::string temporary = steps.Temporary();
  const std::string copy = steps.Look(temporary) ? to : temporary;
  const SourceNow source = steps.LookAtSource();
  // The copy is the only one left, so it is kept.
  if (source == SourceNow::kGone || source == SourceNow::kReplaced) {
    return Kept(file_error::kStranded, std::move(reason), copy);
  }
  // The source may be gone as well, so the copy is kept.
  if (source == SourceNow::kUnknown) return Kept(file_error::kBothKept, std::move(reason), copy);
  const bool temporaryStays = steps.RemoveCopy(temporary).has_value();
  const bool targetStays = steps.RemoveCopy(to).has_value();
  if (targetStays) return Kept(file_error::kBothKept, std::move(reason), to);
  return temporaryStays ? Kept(file_error::kBothKept, std::move(reason), temporary) : reason;
}

MoveOutcome RemoveSource(CopySteps& steps, const std::string& to, const NotKept& notKept) {
  switch (steps.LookAtSource()) {
    case SourceNow::kGone: return notKept;
    case SourceNow::kModified:
    case SourceNow::kUnknown:
    case SourceNow::kReplaced: return BothKept(to);
    case SourceNow::kUnchanged: break;
  }
  const FileOutcome failed = steps.RemoveSource();
  if (!failed) return notKept;
  switch (steps.LookAtSource()) {
    case SourceNow::kGone: return notKept;  // some servers delete the file but report a failure
    case SourceNow::kModified:
    case SourceNow::kUnknown:
    case SourceNow::kReplaced: return BothKept(to);
    case SourceNow::kUnchanged: break;
  }
  return TakeBack(steps, to, *failed);
}

}  // namespace

MoveOutcome MoveByCopying(CopySteps& steps, const std::string& from, const std::string& to, PathStyle style) {
  if (const FileOutcome failed = steps.OpenSource(from)) return *failed;
  // Publishing would detect this, too, but only after the whole file was copied.
  if (!steps.Look(to)) return FileError{file_error::kAlreadyExists, "File exists"};
  const std::string folder(SplitPath(to, style).folder);
  MoveOutcome copied = steps.CopyInto(folder);
  if (!copied) return copied;
  if (const FileOutcome failed = steps.Publish(to)) return TakeBack(steps, to, *failed);
  if (const FileOutcome failed = steps.FlushFolder(folder)) return TakeBack(steps, to, *failed);
  return RemoveSource(steps, to, *copied);
}

}  // namespace quillon
