#include "platform/RenameEntry.h"

#include "base/Text.h"
#include "platform/EntryPath.h"
#include "platform/TemporaryName.h"

namespace quillon {
namespace {

// True for two spellings of one folder entry, false for two hard links to one file.
bool IsOneEntry(EntryChanges& changes, const std::string& from, const std::string& to, PathStyle style) {
  const std::string fromFolder(SplitPath(from, style).folder);
  const std::string toFolder(SplitPath(to, style).folder);
  return changes.SameFile(from, to) && (fromFolder == toFolder || changes.SameFile(fromFolder, toFolder)) &&
         (changes.HasOneName(from) || changes.ListedName(from) == changes.ListedName(to));
}

// True when the folder lists the file under exactly this name. The folder is not read for a file with only one name:
// renaming through a temporary name works in any case, and reading a large folder for each of its files would take too
// long.
bool IsListedAs(EntryChanges& changes, const std::string& path, PathStyle style) {
  return !changes.HasOneName(path) && changes.ListedName(path) == SplitPath(path, style).name;
}

// Restores the file's old name. If that fails, too, the error tells the caller where the file is now.
FileError TakeBack(EntryChanges& changes, const std::string& temporary, const std::string& from, FileError reason) {
  if (!changes.RenameNoReplace(temporary, from)) return reason;
  reason.number = file_error::kStranded;
  reason.fileAt = temporary;
  return reason;
}

// The extension, which the temporary name keeps in case the file has to stay under it; empty for a long ending, which
// is probably no extension.
std::string EndingOf(std::string_view name) {
  constexpr std::size_t kLongestEnding = 32;
  const std::size_t dot = name.rfind('.');
  const bool usual = dot != std::string_view::npos && name.size() - dot <= kLongestEnding;
  return usual ? std::string(name.substr(dot)) : std::string();
}

FileOutcome RenameInTwoSteps(EntryChanges& changes, const std::string& from, const std::string& to, PathStyle style) {
  const EntryPath split = SplitPath(from, style);
  const std::string folder(split.folder);
  const std::string ending = EndingOf(split.name);
  FileOutcome outcome;
  for (int i = 0; i < kTemporaryNameAttempts; ++i) {
    const std::string temporary = std::string(folder).append(TemporaryName()).append(ending);
    outcome = changes.RenameNoReplace(from, temporary);
    if (!outcome) {
      outcome = changes.RenameNoReplace(temporary, to);
      return outcome ? FileOutcome(TakeBack(changes, temporary, from, *outcome)) : outcome;
    }
    if (outcome->number != file_error::kAlreadyExists) break;
  }
  return outcome;
}

// The system reported success, but it may treat names that only differ in letter case as one name and have done
// nothing.
FileOutcome EnsureLetterCase(EntryChanges& changes, const std::string& from, const std::string& to, PathStyle style) {
  const bool oldNameIsGone = changes.Look(from).has_value();
  // Another program may have created a new file under the old name by now.
  if (oldNameIsGone || !changes.SameFile(from, to) || IsListedAs(changes, to, style)) return std::nullopt;
  return RenameInTwoSteps(changes, from, to, style);
}

}  // namespace

FileOutcome RenameEntry(EntryChanges& changes, const std::string& from, const std::string& to, PathStyle style) {
  if (from == to) return changes.Look(from);
  FileOutcome outcome = changes.RenameNoReplace(from, to);
  const std::string_view oldName = SplitPath(from, style).name;
  const std::string_view newName = SplitPath(to, style).name;
  if (!EqualIgnoringCase(oldName, newName)) return outcome;
  if (!outcome) return oldName == newName ? outcome : EnsureLetterCase(changes, from, to, style);
  if (outcome->number != file_error::kAlreadyExists || !IsOneEntry(changes, from, to, style)) return outcome;
  if (IsListedAs(changes, to, style)) return std::nullopt;
  return RenameInTwoSteps(changes, from, to, style);
}

}  // namespace quillon
