#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "filelist/FileList.h"
#include "pattern/FileFacts.h"
#include "pattern/PatternRename.h"
#include "platform/FileSystem.h"
#include "rename/basQuillon.h"
#include "settings/ApplyMode.h"

namespace quillon {

/// What renaming several rows by a pattern, and applying the names, would do. It is worked out in slices, because files
/// may have to be read. Changes nothing. The list must stay as it is meanwhile.
class PatternPreview {
 public:
  PatternPreview(const FileList& list, Rows rows, FileReads& files, const ApplyMode& mode, BeginReading beginReading);
  PatternPreview(const PatternPreview&) = delete;
  PatternPreview& operator=(const PatternPreview&) = delete;
  ~PatternPreview();

  /// Starts anew with these rules; without rules there are no new names.
  void Restart(std::optional<PatternRules> rules);
  /// Works for about this long, on one row at least. False when nothing is left to do.
  bool Work(std::chrono::steady_clock::duration time);

  /// The rows in the list's order; `row` is 0-based. The new name and the problem are empty before their row's turn.
  [[nodiscard]] std::size_t Count() const { return indices_.size(); }
  [[nodiscard]] std::size_t Done() const { return results_.size(); }
  [[nodiscard]] std::string OldName(std::size_t row) const;
  [[nodiscard]] std::string NewName(std::size_t row) const;
  [[nodiscard]] std::string Problem(std::size_t row) const;

  /// How many names change and how many rows have a problem, or how far the work is.
  [[nodiscard]] std::string Summary() const;

 private:
  struct DryRun;
  struct Result {
    std::string name;
    std::string problem;
  };

  Result Next();
  [[nodiscard]] std::string ProblemOf(const RowOutcome& failed, const std::string& to) const;

  const FileList& list_;
  FileReads& files_;
  const ApplyMode& mode_;
  BeginReading beginReading_;
  std::vector<int> indices_;
  std::unique_ptr<DryRun> run_;  // none without rules
  std::vector<Result> results_;
  std::size_t changed_ = 0;
  std::size_t problems_ = 0;
};

}  // namespace quillon
