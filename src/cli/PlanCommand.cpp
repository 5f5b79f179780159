#include <memory>
#include <utility>

#include "cli/Commands.h"
#include "cli/Input.h"
#include "cli/LoggedDisk.h"
#include "cli/Messages.h"
#include "cli/Output.h"
#include "cli/Reasons.h"
#include "cli/Table.h"
#include "paths/basFileControl.h"
#include "plan/Json.h"
#include "plan/PlanLines.h"
#include "plan/RenamePlan.h"
#include "platform/Program.h"

namespace quillon::cli {
namespace {

const HelpText& TextOf(PlanProblem problem) {
  switch (problem) {
    case PlanProblem::kNoSource: return messages::kPlanNoSource;
    case PlanProblem::kNamedTwice: return messages::kNamedTwice;
    case PlanProblem::kSameTarget: return messages::kPlanSameTarget;
    case PlanProblem::kTargetExists: return messages::kPlanTargetExists;
    case PlanProblem::kOtherFolder: return messages::kPlanOtherFolder;
    case PlanProblem::kInvalidCharacter: return messages::kPlanInvalidCharacter;
    case PlanProblem::kInvalidName: return messages::kPlanInvalidName;
    case PlanProblem::kNoAccess: break;
  }
  return messages::kPlanNoAccess;
}

// A new name alone is one in the file's folder.
std::string TargetOf(const std::string& from, const std::string& to) {
  const std::string_view separators = SystemPathStyle() == PathStyle::kWindows ? "\\/" : "/";
  const bool alone = to.find_first_of(separators) == std::string::npos;
  return alone ? std::string(FolderPart(from)) + to : FullPath(to);
}

class PlanRun {
 public:
  explicit PlanRun(const RenameArguments& arguments) : arguments_(arguments) {}

  int Run() {
    if (!ReadPlan() || !Arrange()) return kBadUsage;
    LoggedDisk disk(*files_);
    if (!arguments_.log.empty() && !disk.MayLogTo(arguments_.log, Sources())) return kBadUsage;
    CatchInterruption();
    const Mode mode = ModeOf(arguments_);
    if (mode != Mode::kApply) ShowRenames();
    const bool written = output_.Flush();
    if (mode == Mode::kShow || (mode == Mode::kAsk && steps_.empty())) return written ? kDone : kSomeFailed;
    if (mode == Mode::kAsk && !(written && Ask(messages::kAskRename))) return kSomeFailed;
    return disk.OpenLog() ? Apply(disk) : kBadUsage;
  }

 private:
  bool ReadPlan() {
    const std::optional<std::string> text = ReadInput(arguments_.plan);
    if (!text) return false;
    const Result<std::vector<PlanLine>, std::size_t> lines = ReadPlanLines(*text);
    if (!lines) {
      ComplainAt(lines.Failure(), Localized(messages::kPlanDamaged));
      return false;
    }
    for (const PlanLine& line : *lines) {
      const std::string from = FullPath(line.from);
      renames_.push_back({from, TargetOf(from, line.to)});
      numbers_.push_back(line.number);
    }
    return true;
  }

  bool Arrange() {
    Result<std::vector<PlannedRename>, std::vector<PlanComplaint>> steps = MakeRenamePlan(renames_, *files_);
    if (steps) {
      steps_ = std::move(*steps);
      return true;
    }
    for (const PlanComplaint& complaint : steps.Failure()) {
      const PlannedRename& rename = renames_[complaint.line];
      const bool aboutSource = complaint.problem == PlanProblem::kNoSource ||
                               complaint.problem == PlanProblem::kNamedTwice ||
                               complaint.problem == PlanProblem::kNoAccess;
      ComplainAt(numbers_[complaint.line],
                 Localized(TextOf(complaint.problem)) + ": " + OnOneLine(aboutSource ? rename.from : rename.to));
    }
    return false;
  }

  void ComplainAt(std::size_t line, const std::string& text) const {
    Complain(arguments_.plan + ":" + std::to_string(line) + ": " + text);
  }

  [[nodiscard]] std::vector<std::string> Sources() const {
    std::vector<std::string> sources;
    for (const PlannedRename& rename : renames_) sources.push_back(rename.from);
    return sources;
  }

  void ShowRenames() {
    for (const PlannedRename& rename : renames_) {
      if (rename.from == rename.to) continue;
      if (arguments_.json) {
        output_.Line(Renamed(rename).Take());
      } else {
        output_.Line(OnOneLine(rename.from) + " -> " + OnOneLine(rename.to));
      }
    }
  }

  static JsonLine Renamed(const PlannedRename& rename) {
    JsonLine line;
    line.Path("old", rename.from).Path("new", rename.to);
    return line;
  }

  int Apply(LoggedDisk& disk) {
    UntilInterrupted progress;
    const PlanOutcome outcome = CarryOut(steps_, disk.Changes(), disk.Unlogged(), progress);
    const bool done = !outcome.failedStep && !outcome.cancelled;
    const int applied = done ? ChangedCount() : 0;
    if (done && arguments_.json) ShowRenames();
    if (outcome.failedStep && !disk.Broken()) ReportFailure(steps_[*outcome.failedStep], outcome.error);
    for (const PlannedRename& file : outcome.notBack) ReportNotBack(file);
    WriteSummary(applied, outcome);
    return output_.Flush() && done ? kDone : kSomeFailed;
  }

  [[nodiscard]] int ChangedCount() const {
    int changed = 0;
    for (const PlannedRename& rename : renames_) changed += rename.from != rename.to ? 1 : 0;
    return changed;
  }

  void ReportFailure(const PlannedRename& step, const FileError& error) {
    const std::string reason =
        Localized(error.number == file_error::kAlreadyExists ? messages::kPlanTargetExists : messages::kPlanFailed) +
        (error.description.empty() ? "" : " (" + error.description + ")");
    if (arguments_.json) {
      output_.Line(Renamed(step).Number("code", error.number).Text("reason", reason).Take());
    } else {
      output_.Line(OnOneLine(step.from) + " -> " + OnOneLine(step.to) + ": " + OnOneLine(reason));
    }
  }

  void ReportNotBack(const PlannedRename& file) {
    const std::string reason = Localized(messages::kNotTakenBack);
    if (arguments_.json) {
      output_.Line(JsonLine().Path("old", file.from).Path("file_at", file.to).Text("reason", reason).Take());
    } else {
      output_.Line(OnOneLine(file.from) + ": " + reason + ": " + OnOneLine(file.to));
    }
  }

  void WriteSummary(int applied, const PlanOutcome& outcome) {
    std::vector<std::string> lines = {AppliedCount(applied)};
    const bool whole = outcome.notBack.empty();
    if (outcome.failedStep || outcome.cancelled) {
      lines.push_back(Localized(whole ? messages::kPlanTakenBack : messages::kPlanNotTakenBack));
    }
    if (!arguments_.json) {
      for (const std::string& line : lines) output_.Line(line);
      return;
    }
    Json object;
    object["applied"] = applied;
    object["stopped"] = outcome.failedStep.has_value();
    object["interrupted"] = outcome.cancelled;
    object["summary"] = lines;
    output_.Line(OneLine(object));
  }

  const RenameArguments& arguments_;
  std::unique_ptr<FileReads> files_ = MakeFileReads();
  std::vector<PlannedRename> renames_;
  std::vector<std::size_t> numbers_;  ///< the lines that the renames stand in
  std::vector<PlannedRename> steps_;
  Output output_;
};

}  // namespace

int RunPlan(const RenameArguments& arguments) {
  return PlanRun(arguments).Run();
}

}  // namespace quillon::cli
