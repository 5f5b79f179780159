#include <functional>
#include <utility>

#include "cli/Commands.h"
#include "cli/GivenNames.h"
#include "cli/Input.h"
#include "cli/LoggedDisk.h"
#include "cli/Messages.h"
#include "cli/Output.h"
#include "cli/Reasons.h"
#include "cli/Table.h"
#include "fileops/FileOperations.h"
#include "paths/PortableName.h"
#include "paths/basFileControl.h"
#include "pattern/PatternForm.h"
#include "pattern/PatternRename.h"
#include "plan/Json.h"
#include "platform/Program.h"
#include "rename/ModifyRenameNames.h"
#include "rename/PlannedChanges.h"
#include "rename/TitleRename.h"
#include "rename/basQuillon.h"

namespace quillon::cli {
namespace {

/// Reports each row while the batch runs.
class Reporter final : public Progress {
 public:
  Reporter(bool apply, bool json, Output& output) : apply_(apply), json_(json), output_(output) {}

  bool Continue(std::size_t /*done*/, std::size_t /*total*/, const std::string& /*item*/) override {
    return Continue();
  }
  bool Continue() override {
    interrupted_ = interrupted_ || Interrupted();
    return !interrupted_ && !output_.Closed();
  }

  void Applied(const std::string& from, const std::string& to) {
    if (from == to) return;
    ++renamed_;
    if (json_) {
      output_.Line(Renamed(from, to).Take());
    } else if (!apply_) {
      output_.Line(OnOneLine(from) + " -> " + OnOneLine(to));
    }
  }

  void Failed(std::string_view renameName, const RowOutcome& failure) {
    const std::string& from = failure.from;
    const std::string& fileAt = failure.error.fileAt;
    if (json_) {
      JsonLine line = Renamed(from, AppliedPath(from, renameName));
      line.Number("code", static_cast<int>(failure.code)).Text("reason", ReasonFor(failure.code));
      if (!fileAt.empty()) line.Path("file_at", fileAt);
      output_.Line(line.Take());
    } else {
      output_.Line(OnOneLine(from) + ": " + ReasonFor(failure.code) +
                   (fileAt.empty() ? "" : Localized(messages::kBeforeWhere) + OnOneLine(WhereLeft(failure.error))));
    }
  }

  [[nodiscard]] bool WasInterrupted() const { return interrupted_; }
  [[nodiscard]] int RenamedCount() const { return renamed_; }

 private:
  static JsonLine Renamed(const std::string& from, const std::string& to) {
    JsonLine line;
    line.Path("old", from).Path("new", to);
    return line;
  }

  bool apply_;
  bool json_;
  Output& output_;
  bool interrupted_ = false;
  int renamed_ = 0;
};

void WriteSummary(const BatchOutcome& outcome, bool interrupted, bool json, Output& output) {
  const std::string second = outcome.stopped ? Localized(messages::kStopped) : SkippedCount(outcome.skipped);
  if (json) {
    Json object;
    object["applied"] = outcome.applied;
    object["skipped"] = outcome.skipped;
    object["stopped"] = outcome.stopped;
    object["interrupted"] = interrupted;
    object["summary"] = {AppliedCount(outcome.applied), second};
    output.Line(OneLine(object));
  } else {
    output.Line(AppliedCount(outcome.applied));
    output.Line(second);
    if (interrupted) Complain(Localized(messages::kInterrupted));
  }
}

void TellLeftAlone(const RunOutcome& outcome) {
  if (outcome.leftAlone > 0) Complain(Localized(messages::kNamesCaption), LeftAloneCount(outcome.leftAlone), {});
}

/// The rules of --format; nullopt, after a complaint, when they are wrong.
std::optional<PatternRules> FormatRules(const RenameArguments& arguments, const OptionValues& options) {
  const Result<NamePattern, PatternError> pattern = NamePattern::Parse(*arguments.format);
  if (!pattern) {
    Complain("--format", ReasonFor(pattern.Failure()), {});
    return std::nullopt;
  }
  PatternForm form = ShownPatternForm(options.extra);
  form.pattern = *arguments.format;
  form.start = arguments.start.value_or(form.start);
  form.step = arguments.step.value_or(form.step);
  const Result<PatternRules, PatternRefusal> rules = RulesOf(form, options.rename, false);
  if (rules) return *rules;
  Complain("--format", ReasonFor(rules.Failure()), {});
  return std::nullopt;
}

// A file without an extension has no rename name at first: its own name is changed then.
void ChangeEach(FileList& list, const std::function<std::string(const std::string&)>& change) {
  for (int index = 1; index <= list.Count(); ++index) {
    const FileRow row = list.Row(index);
    const std::string present(row.renameName.empty() ? row.NameWithoutExtension() : row.renameName);
    const std::string name = change(present);
    if (name != row.renameName) list.SetRenameName(index, name);
  }
}

// Returns false when the names cannot be had; it has complained then.
bool EditNames(const RenameArguments& arguments, const std::optional<PatternRules>& format, Session& session) {
  RegexLibrary regex;
  UntilInterrupted progress;
  const OptionValues& options = session.options;
  const Repetition repetition = arguments.once ? Repetition::kOnce : RepetitionOf(options);
  if (arguments.toTitle) {
    const TitleRules titles = {.skipUntitled = options.rename.skipUntitledRows,
                               .rules = options.rename.applyRules ? &options.modify : nullptr,
                               .repetition = repetition};
    TellLeftAlone(RenameToTitles(session.list, Rows::kAll, titles, regex, {}, progress));
  }
  if (format) {
    const ReadFacts read = FactsFrom(*session.files, session.list, Rows::kAll, session.tags);
    TellLeftAlone(RenameByPattern(session.list, Rows::kAll, *format, read, {}, progress));
  }
  if (!arguments.names.empty() && !GiveNames(arguments.names, session)) return false;
  if (arguments.modify) {
    TellLeftAlone(ModifyRenameNames(session.list, Rows::kAll, options.modify, repetition, regex, {}, progress));
  }
  if (arguments.portable) ChangeEach(session.list, PortableName);
  if (arguments.normalForm) {
    ChangeEach(session.list, [&](const std::string& name) { return Normalized(name, *arguments.normalForm); });
  }
  return true;
}

struct BatchResult {
  int renamed = 0;
  int status = kDone;
};

// Renames the files, or answers as if, depending on `disk`.
BatchResult ApplyNames(Session& session, FileChanges& disk, bool apply, bool json) {
  RenameEngine engine(session.list, session.mode, disk, session.player);
  Output output;
  Reporter reporter(apply, json, output);
  const auto report = [&](const RowOutcome& row) {
    if (row.Ok()) reporter.Applied(row.from, row.to);
    return true;
  };
  const BatchOutcome outcome =
      apply ? engine.Apply(Rows::kAll, reporter, report) : engine.Plan(Rows::kAll, reporter, report);
  for (const RowOutcome& failure : outcome.failures) {
    if (failure.error.number != kNotLogged) reporter.Failed(session.list.Row(failure.index).renameName, failure);
  }
  if (apply) WriteSummary(outcome, reporter.WasInterrupted(), json, output);
  const bool done = output.Flush() && outcome.failures.empty() && !reporter.WasInterrupted();
  return {reporter.RenamedCount(), done ? kDone : kSomeFailed};
}

BatchResult ShowNames(Session& session, bool json) {
  PlannedChanges plan(*session.files);
  return ApplyNames(session, plan, false, json);
}

}  // namespace

int RunRename(const RenameArguments& arguments) {
  if (arguments.ask && !CanAsk()) return kBadUsage;
  if (!arguments.plan.empty()) return RunPlan(arguments);
  std::optional<OptionValues> options = LoadSettings(arguments.settings);
  if (!options) return kBadUsage;
  if (arguments.preset && !UsePreset(*arguments.preset, arguments.settings, *options)) return kBadUsage;
  const std::optional<PatternRules> format = arguments.format ? FormatRules(arguments, *options) : std::nullopt;
  if (arguments.format && !format) return kBadUsage;
  Session session(std::move(*options));
  session.tags = arguments.tags;
  const bool complete = session.Load(arguments.selection);
  if (session.list.Count() == 0) return kNothingLoaded;
  LoggedDisk disk(*session.files);
  if (!EditNames(arguments, format, session)) return kBadUsage;
  if (!arguments.log.empty() && !disk.MayLogTo(arguments.log, session.Locations())) return kBadUsage;

  CatchInterruption();
  const Mode mode = ModeOf(arguments);
  if (mode != Mode::kApply) {
    const BatchResult shown = ShowNames(session, arguments.json);
    if (mode == Mode::kShow || shown.renamed == 0) return complete ? shown.status : kSomeFailed;
    if (!Ask(messages::kAskRename)) return kSomeFailed;
  }
  if (!disk.OpenLog()) return kBadUsage;
  const BatchResult result = ApplyNames(session, disk.Changes(), true, arguments.json);
  return complete && !disk.Broken() ? result.status : kSomeFailed;
}

}  // namespace quillon::cli
