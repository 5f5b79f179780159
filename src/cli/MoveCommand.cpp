#include <memory>

#include "cli/BatchReport.h"
#include "cli/Commands.h"
#include "cli/Input.h"
#include "cli/LoggedDisk.h"
#include "cli/Messages.h"
#include "cli/Reasons.h"
#include "fileops/FileOperations.h"
#include "paths/basFileControl.h"
#include "platform/Program.h"
#include "rename/PlannedChanges.h"

namespace quillon::cli {
namespace {

std::vector<std::string> SummaryLines(const BatchReport& report, const NotKept& notKept) {
  std::vector<std::string> lines = {Counting(messages::kMoved, report.Done())};
  if (report.FailureCount() > 0) {
    lines.push_back(Counting(messages::kNotMoved, report.FailureCount()));
  }
  if (notKept.Any()) lines.push_back(WhatWasNotKept(notKept));
  return lines;
}

Json NotKeptFields(const NotKept& notKept) {
  Json fields = Json::array();
  if (notKept.times) fields.push_back("times");
  if (notKept.accessRights) fields.push_back("access_rights");
  if (notKept.attributes) fields.push_back("attributes");
  return Json{{"not_kept", fields}};
}

// What is wrong with the target folder; empty when it can be used.
std::string ComplaintAboutTarget(FileReads& files, const std::string& folder) {
  if (folder.empty()) return Localized(messages::kNoFolder);
  const Result<FileStatus, FileError> target = files.Status(folder);
  const bool forbidden = !target && target.Failure().number == file_error::kAccess;
  if (forbidden) return Localized(messages::kFolderForbidden) + folder;
  if (!target || target->kind == FileStatus::Kind::kAbsent) return Localized(messages::kFolderAbsent) + folder;
  return target->kind == FileStatus::Kind::kFolder ? "" : Localized(messages::kIsNoFolder) + folder;
}

// The message's reason, and where the file was left.
std::string ReasonOf(const FileError& error) {
  const std::string reason = ReasonForMove(error);
  const std::string leftAt = WhereLeft(error);
  const std::string words = error.description.empty() ? "" : " (" + error.description + ")";
  const std::string known = reason.empty() ? Localized(messages::kFileNotMoved) + words : reason;
  return leftAt.empty() ? known : known + Localized(messages::kBeforeWhere) + leftAt;
}

void ReportFailure(BatchReport& report, const std::string& from, const std::string& to, const FileError& error) {
  Json paths;
  AddPath(paths, "old", from);
  AddPath(paths, "new", to);
  report.Failed(paths, from, error, ReasonOf(error));
}

struct BatchResult {
  int moved = 0;
  int status = kDone;
};

// Moves the files, or answers as if, depending on `changes`.
BatchResult MoveFiles(Session& session, FileChanges& changes, const std::string& folder, bool apply, bool json) {
  FileMover mover(session.list, *session.files, changes, session.player);
  BatchReport report(apply, json);
  NotKept notKept;
  UntilInterrupted progress;
  bool logged = true;
  for (int index = 1; index <= session.list.Count() && logged && report.Continue(); ++index) {
    const std::string from = session.list.Row(index).Location();
    const std::string to = mover.Target(index, folder);
    if (const MoveOutcome outcome = mover.Move(index, folder, &progress)) {
      notKept.Add(*outcome);
      report.Moved(from, to, outcome->Any() ? NotKeptFields(*outcome) : Json::object());
    } else if (outcome.Failure().number == kNotLogged) {
      logged = false;
    } else if (outcome.Failure().number != file_error::kCancelled) {
      ReportFailure(report, from, to, outcome.Failure());
    }
  }
  report.Summary("moved", SummaryLines(report, notKept), NotKeptFields(notKept));
  return {report.Done(), report.Status(logged)};
}

}  // namespace

int RunMove(const MoveArguments& arguments) {
  if (arguments.ask && !CanAsk()) return kBadUsage;
  Session session({});
  const std::string target = FullPath(arguments.to);
  if (const std::string complaint = ComplaintAboutTarget(*session.files, target); !complaint.empty()) {
    Complain(complaint);
    return kBadUsage;
  }
  const bool complete = session.Load(arguments.selection);
  if (session.list.Count() == 0) return kNothingLoaded;
  LoggedDisk disk(*session.files);
  if (!arguments.log.empty() && !disk.MayLogTo(arguments.log, session.Locations())) return kBadUsage;

  CatchInterruption();
  const std::string folder = WithTrailingSeparator(target);
  const Mode mode = ModeOf(arguments);
  if (mode != Mode::kApply) {
    PlannedChanges plan(*session.files);
    const BatchResult shown = MoveFiles(session, plan, folder, false, arguments.json);
    if (mode == Mode::kShow || shown.moved == 0) return complete ? shown.status : kSomeFailed;
    if (!Ask(messages::kAskMove)) return kSomeFailed;
  }
  if (!disk.OpenLog()) return kBadUsage;
  disk.Changes().RemoveLeftovers(folder);
  const BatchResult result = MoveFiles(session, disk.Changes(), folder, true, arguments.json);
  return complete && !disk.Broken() ? result.status : kSomeFailed;
}

}  // namespace quillon::cli
