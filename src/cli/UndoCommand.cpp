#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "cli/BatchReport.h"
#include "cli/Commands.h"
#include "cli/Messages.h"
#include "cli/Reasons.h"
#include "paths/basFileControl.h"
#include "plan/Undo.h"
#include "platform/Program.h"
#include "platform/WholeFile.h"
#include "rename/PlannedChanges.h"

namespace quillon::cli {
namespace {

std::string ReasonOf(const UndoStep& step) {
  switch (*step.obstacle) {
    case UndoObstacle::kGone: return Localized(messages::kGone);
    case UndoObstacle::kAnotherFile: return Localized(messages::kAnotherFile);
    case UndoObstacle::kChanged: return Localized(messages::kChanged);
    case UndoObstacle::kRefused: break;
  }
  if (step.error.number == file_error::kAlreadyExists) return Localized(messages::kOldNameTaken) + step.to;
  const std::string words = step.error.description.empty() ? "" : " (" + step.error.description + ")";
  return Localized(messages::kNotTakenBack) + words;
}

const char* NameOf(UndoObstacle obstacle) {
  switch (obstacle) {
    case UndoObstacle::kGone: return "gone";
    case UndoObstacle::kAnotherFile: return "another_file";
    case UndoObstacle::kChanged: return "changed";
    case UndoObstacle::kRefused: break;
  }
  return "refused";
}

void Report(BatchReport& report, const UndoStep& step) {
  if (!step.obstacle) {
    report.Moved(step.from, step.to, Json::object());
    return;
  }
  Json paths;
  AddPath(paths, "old", step.from);
  AddPath(paths, "new", step.to);
  paths["obstacle"] = NameOf(*step.obstacle);
  report.Failed(paths, step.from, step.error, ReasonOf(step));
}

/// The steps, those that follow one another for one file joined into one: a plan's temporary names are no result.
class JoinedSteps {
 public:
  void Add(const UndoStep& step) {
    const auto earlier = step.obstacle ? ending_.end() : ending_.find(PathIdentity(step.from));
    if (earlier == ending_.end()) {
      steps_.push_back(step);
      if (!step.obstacle) ending_[PathIdentity(step.to)] = steps_.size() - 1;
      return;
    }
    const std::size_t index = earlier->second;
    ending_.erase(earlier);
    steps_[index].to = step.to;
    ending_[PathIdentity(step.to)] = index;
  }

  [[nodiscard]] const std::vector<UndoStep>& Steps() const { return steps_; }

 private:
  std::vector<UndoStep> steps_;
  std::unordered_map<std::string, std::size_t> ending_;  ///< by the path that the step ends at
};

std::vector<std::string> SummaryLines(const BatchReport& report) {
  std::vector<std::string> lines = {Counting(messages::kUndone, report.Done())};
  if (report.FailureCount() > 0) {
    lines.push_back(Counting(messages::kNotUndone, report.FailureCount()));
  }
  return lines;
}

// On failure it complains and returns nullopt.
std::optional<RenameLog> ReadLog(const std::string& path) {
  const auto text = ReadWholeFile(path, std::numeric_limits<std::uint64_t>::max());
  if (!text) {
    Complain(Localized(messages::kLogUnread) + path);
    return std::nullopt;
  }
  Result<RenameLog, std::size_t> log = ReadRenameLog(*text);
  if (!log) {
    Complain(Localized(messages::kLogDamaged) + path + ":" + std::to_string(log.Failure()));
    return std::nullopt;
  }
  if (log->torn) Complain(Localized(messages::kLogTorn) + path);
  return std::move(*log);
}

}  // namespace

int RunUndo(const UndoArguments& arguments) {
  const std::optional<RenameLog> log = ReadLog(FullPath(arguments.log));
  if (!log) return kBadUsage;
  const std::unique_ptr<FileReads> files = MakeFileReads();
  const std::unique_ptr<FileChanges> disk = MakeFileChanges();
  PlannedChanges plan(*files);
  FileChanges& changes = arguments.apply ? *disk : static_cast<FileChanges&>(plan);
  CatchInterruption();
  BatchReport report(arguments.apply, arguments.json);
  UntilInterrupted progress;
  const UndoMode mode = arguments.apply ? UndoMode::kApply : UndoMode::kShow;
  JoinedSteps steps;
  Undo(log->renames, *files, changes, mode, progress, [&](const UndoStep& step) {
    steps.Add(step);
    return report.Continue();
  });
  static_cast<void>(report.Continue());  // a cancelled copy ends the run without a step
  for (const UndoStep& step : steps.Steps()) Report(report, step);
  report.Summary("undone", SummaryLines(report), Json::object());
  return report.Status(true);
}

}  // namespace quillon::cli
