#pragma once

#include <string>
#include <string_view>

#include "platform/AppendedFile.h"
#include "platform/FileSystem.h"

namespace quillon {

/// The rename was not begun, because it could not be written to the log.
inline constexpr int kNotLogged = file_error::kOwn - 3;

/// Renames and moves files as `disk` does, and writes each to a log before (see RenameLog.h). What cannot be logged is
/// not done, and nothing is done after it.
class LoggedChanges final : public FileChanges {
 public:
  LoggedChanges(FileChanges& disk, FileReads& files, AppendedFile& log) : disk_(disk), files_(files), log_(log) {}

  FileOutcome Rename(const std::string& from, const std::string& to) override;
  using FileChanges::Move;
  MoveOutcome Move(const std::string& from, const std::string& to, Progress* progress) override;
  void RemoveLeftovers(const std::string& folder) override { disk_.RemoveLeftovers(folder); }
  FileOutcome Remove(const std::string& path) override { return disk_.Remove(path); }
  int Recycle(const std::string& path, std::uintptr_t ownerWindow) override { return disk_.Recycle(path, ownerWindow); }
  [[nodiscard]] bool RecycleAsks() const override { return disk_.RecycleAsks(); }

  /// The error that has ended the logging, and with it all changes; empty while the log can be written.
  [[nodiscard]] const FileOutcome& Broken() const { return broken_; }

 private:
  Result<FileIdentity, FileError> Begin(const std::string& from, const std::string& to);
  void NoteFailure(const std::string& from, const std::string& to, const FileIdentity& file, const FileError& error);
  void NoteCopy(const std::string& from, const std::string& to, const FileIdentity& file);
  bool Write(const std::string& line);

  FileChanges& disk_;
  FileReads& files_;
  AppendedFile& log_;
  FileOutcome broken_;
};

}  // namespace quillon
