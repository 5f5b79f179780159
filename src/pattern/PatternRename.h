#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Progress.h"
#include "filelist/FileList.h"
#include "pattern/FileFacts.h"
#include "pattern/NamePattern.h"
#include "platform/PathStyle.h"
#include "rename/RowRun.h"
#include "settings/OptionValues.h"

namespace quillon {

struct PatternRules {
  NamePattern pattern;
  std::int64_t start = 1;  ///< the counter of the first name
  std::int64_t step = 1;
  int digits = 1;  ///< of the counter, at least, where the pattern does not say
  PatternInvalid invalid = PatternInvalid::kKept;
  std::string replacement = {};  ///< for PatternInvalid::kReplaced
  bool skipUnnamed = false;      ///< rows for which the pattern gives nothing keep their names
  bool findInvalid = false;      ///< fills PatternOutcome::invalid
};

/// Gives rows their names by a pattern, one after another in the list's order: the counter counts the names given.
/// `rules` must outlive it.
class PatternNames {
 public:
  PatternNames(const PatternRules& rules, ReadFacts read, PathStyle style = SystemPathStyle());

  /// Empty when the pattern gives nothing; the counter then stays. The file is only read when the pattern needs it.
  [[nodiscard]] std::string NextFor(const FileRow& row);

 private:
  [[nodiscard]] PatternValues ValuesOf(const FileRow& row) const;

  const PatternRules& rules_;
  ReadFacts read_;
  PathStyle style_;
  bool needsFile_;
  std::int64_t number_;
};

struct PatternOutcome : RunOutcome {
  std::vector<int> unnamed;  ///< rows that were skipped, 1-based
  std::vector<int> invalid;  ///< rows whose names no file may have, 1-based
};

/// Sets the rename names of several rows by a pattern. With `apply`, which may be empty, each row is applied at once;
/// the first failure ends the run and restores that row's rename name.
PatternOutcome RenameByPattern(FileList& list, Rows rows, const PatternRules& rules, const ReadFacts& read,
                               const ApplyRow& apply, Progress& progress, PathStyle style = SystemPathStyle());

}  // namespace quillon
