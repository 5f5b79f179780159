#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "base/Progress.h"
#include "base/Result.h"
#include "plan/PlannedRename.h"
#include "platform/FileSystem.h"
#include "platform/PathStyle.h"

/// Renames that are carried out as one whole, in which names may change places (a to b, b to a) or move up (a to b, b
/// to c). Nothing is ever replaced.
namespace quillon {

enum class PlanProblem {
  kNoSource,          ///< no file exists under the old name, or it is a folder
  kNamedTwice,        ///< an earlier line renames the same file
  kSameTarget,        ///< an earlier line gives the same new name
  kTargetExists,      ///< a file that the plan leaves alone has the new name
  kOtherFolder,       ///< the new path is not in the file's folder
  kInvalidCharacter,  ///< the new name holds a character that a file name may not hold
  kInvalidName,       ///< the new name is none, or too long
  kNoAccess,          ///< the folder cannot be looked into
};

struct PlanComplaint {
  std::size_t line = 0;  ///< the rename's 0-based place in the plan
  PlanProblem problem = PlanProblem::kNoSource;

  bool operator==(const PlanComplaint&) const = default;
};

/// Arranges the renames so that each finds its new name free: of a chain the last one first, of a cycle one through a
/// temporary name beside it, which keeps the old name recognisable. A rename to the file's own name needs no step. The
/// error is every complaint, in the order of the lines.
[[nodiscard]] Result<std::vector<PlannedRename>, std::vector<PlanComplaint>> MakeRenamePlan(
    const std::vector<PlannedRename>& renames, FileReads& files, PathStyle style = SystemPathStyle());

/// The result of a plan.
struct PlanOutcome {
  std::size_t done = 0;  ///< steps; after a failure those that could not be taken back
  bool cancelled = false;
  std::optional<std::size_t> failedStep;
  FileError error;                     ///< of the failed step
  std::vector<PlannedRename> notBack;  ///< files that could not be taken back: where they were, and are now
};

/// Carries the steps out. When one fails, or `progress` cancels, those before it are taken back, the newest first,
/// through `back`: the disk itself, where `changes` writes a log, because a file that has its old name again needs no
/// line in it.
PlanOutcome CarryOut(const std::vector<PlannedRename>& steps, FileChanges& changes, FileChanges& back,
                     Progress& progress);

}  // namespace quillon
