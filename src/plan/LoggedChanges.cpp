#include "plan/LoggedChanges.h"

#include "plan/RenameLog.h"

namespace quillon {

bool LoggedChanges::Write(const std::string& line) {
  if (!broken_) broken_ = log_.Append(line);
  return !broken_;
}

// Logs the change, and returns the file's identity before it.
Result<FileIdentity, FileError> LoggedChanges::Begin(const std::string& from, const std::string& to) {
  Result<FileIdentity, FileError> file = files_.Identity(from);
  if (file && !Write(RenameLine(from, to, *file))) return FileError{kNotLogged, broken_->description};
  return file;
}

// Where the file was left half-way is logged as a rename of its own, so that it can be taken back from there.
void LoggedChanges::NoteFailure(const std::string& from, const std::string& to, const FileIdentity& file,
                                const FileError& error) {
  if (!Write(FailedLine(from, to, error.number))) return;
  if (error.number == file_error::kStranded && !error.fileAt.empty()) Write(RenameLine(from, error.fileAt, file));
}

void LoggedChanges::NoteCopy(const std::string& from, const std::string& to, const FileIdentity& file) {
  const Result<FileIdentity, FileError> now = files_.Identity(to);
  if (now && *now != file) Write(CopiedLine(from, to, *now));
}

FileOutcome LoggedChanges::Rename(const std::string& from, const std::string& to) {
  if (from == to) return disk_.Rename(from, to);
  const Result<FileIdentity, FileError> file = Begin(from, to);
  if (!file) return file.Failure();
  FileOutcome outcome = disk_.Rename(from, to);
  if (outcome) NoteFailure(from, to, *file, *outcome);
  return outcome;
}

MoveOutcome LoggedChanges::Move(const std::string& from, const std::string& to, Progress* progress) {
  const Result<FileIdentity, FileError> file = Begin(from, to);
  if (!file) return file.Failure();
  MoveOutcome outcome = disk_.Move(from, to, progress);
  if (outcome) {
    NoteCopy(from, to, *file);
  } else {
    NoteFailure(from, to, *file, outcome.Failure());
  }
  return outcome;
}

}  // namespace quillon
