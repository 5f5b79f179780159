#pragma once

#include <string>

#include "platform/FileSystem.h"
#include "platform/PathStyle.h"

namespace quillon {

/// The system calls that a rename consists of. Paths are full; a link as the last component is not followed.
class EntryChanges {
 public:
  virtual ~EntryChanges() = default;

  /// Renames or moves within one volume in one atomic step that never replaces anything.
  virtual FileOutcome RenameNoReplace(const std::string& from, const std::string& to) = 0;

  /// Success (empty) when something exists at this path.
  virtual FileOutcome Look(const std::string& path) = 0;

  /// True when both paths lead to the same existing file, under one name or two.
  virtual bool SameFile(const std::string& left, const std::string& right) = 0;

  /// True when the file certainly has no other name (a link count of one), so that its folder need not be read. False
  /// when that is unknown, or when ListedName is just as fast.
  virtual bool HasOneName(const std::string& path) = 0;

  /// The name under which the folder lists the entry at this path; empty when there is none.
  virtual std::string ListedName(const std::string& path) = 0;
};

/// Renames, or moves within one volume, and never replaces anything. Renaming to the file's current name succeeds and
/// changes nothing. A change of letter case also works on file systems that ignore case; some of those report the file
/// itself as the existing target, and some report success but do nothing. Needs one call of RenameNoReplace unless the
/// names only differ in letter case.
[[nodiscard]] FileOutcome RenameEntry(EntryChanges& changes, const std::string& from, const std::string& to,
                                      PathStyle style);

}  // namespace quillon
