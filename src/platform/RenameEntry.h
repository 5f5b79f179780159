#pragma once

#include <string>

#include "platform/FileSystem.h"
#include "platform/PathStyle.h"

namespace quillon {

/// What a rename asks of the system. Paths are full; links in the last place are not followed.
class EntryChanges {
 public:
  virtual ~EntryChanges() = default;

  /// Renames or moves within one volume in one step that never replaces anything.
  virtual FileOutcome RenameNoReplace(const std::string& from, const std::string& to) = 0;

  /// Empty when something stands at this path.
  virtual FileOutcome Look(const std::string& path) = 0;

  /// True when both paths lead to one existing file, be it by one name or by two.
  virtual bool SameFile(const std::string& left, const std::string& right) = 0;

  /// True when the file surely has no other name (a link count of one), which spares reading its folder. False when
  /// that is not known or the listed name is as quick to ask for.
  virtual bool HasOneName(const std::string& path) = 0;

  /// The name under which the folder lists what this path leads to; empty when it leads nowhere.
  virtual std::string ListedName(const std::string& path) = 0;
};

/// Renames, or moves within one volume, and never replaces anything. The file's own current name succeeds and touches
/// nothing. A change of letter case is carried out on file systems that ignore case, too, although some of those take
/// the file for its own obstacle and some report success and do nothing. Costs one call of RenameNoReplace unless the
/// names differ in letter case alone.
[[nodiscard]] FileOutcome RenameEntry(EntryChanges& changes, const std::string& from, const std::string& to,
                                      PathStyle style);

}  // namespace quillon
