#include <memory>

#include "cli/BatchReport.h"
#include "cli/Commands.h"
#include "cli/Input.h"
#include "cli/Messages.h"
#include "cli/Reasons.h"
#include "fileops/FileOperations.h"
#include "platform/Program.h"
#include "rename/PlannedChanges.h"

namespace quillon::cli {
namespace {

// Why the file was not deleted; nullopt when it was.
std::optional<FileError> DeleteFile(FileReads& files, FileChanges& disk, const std::string& path, bool forGood,
                                    bool apply) {
  if (forGood) return disk.Remove(path);
  const int answer = RecycleFile(files, disk, path, 0);
  if (answer != 0) return FileError{answer, {}};
  const bool declined = apply && files.IsFile(path);
  return declined ? FileOutcome(FileError{kRecycleNotDone, {}}) : FileOutcome();
}

std::string ReasonOf(const FileError& error, bool forGood) {
  return forGood ? ReasonForDelete(error) : Localized(messages::kFileNotDeleted);
}

std::vector<std::string> SummaryLines(const BatchReport& report, bool forGood) {
  std::vector<std::string> lines = {Counting(forGood ? messages::kDeleted : messages::kRecycled, report.Done())};
  if (report.FailureCount() > 0) lines.push_back(Counting(messages::kNotDeleted, report.FailureCount()));
  return lines;
}

struct BatchResult {
  int deleted = 0;
  int status = kDone;
};

// Deletes the files, or answers as if, depending on `changes`.
BatchResult DeleteFiles(Session& session, FileChanges& changes, const DeleteArguments& arguments, bool apply) {
  BatchReport report(apply, arguments.json);
  for (int index = 1; index <= session.list.Count() && report.Continue(); ++index) {
    const std::string path = session.list.Row(index).Location();
    if (const FileOutcome error = DeleteFile(*session.files, changes, path, arguments.forGood, apply)) {
      Json paths;
      AddPath(paths, "path", path);
      report.Failed(paths, path, *error, ReasonOf(*error, arguments.forGood));
    } else {
      report.Deleted(path);
    }
  }
  report.Summary("deleted", SummaryLines(report, arguments.forGood), Json::object());
  return {report.Done(), report.Status(true)};
}

}  // namespace

int RunDelete(const DeleteArguments& arguments) {
  if (arguments.ask && !CanAsk()) return kBadUsage;
  Session session({});
  const bool complete = session.Load(arguments.selection);
  if (session.list.Count() == 0) return kNothingLoaded;

  CatchInterruption();
  const Mode mode = ModeOf(arguments);
  if (mode != Mode::kApply) {
    PlannedChanges plan(*session.files);
    const BatchResult shown = DeleteFiles(session, plan, arguments, false);
    if (mode == Mode::kShow || shown.deleted == 0) return complete ? shown.status : kSomeFailed;
    if (!Ask(messages::kAskDelete)) return kSomeFailed;
  }
  const std::unique_ptr<FileChanges> disk = MakeFileChanges();
  const BatchResult result = DeleteFiles(session, *disk, arguments, true);
  return complete ? result.status : kSomeFailed;
}

}  // namespace quillon::cli
