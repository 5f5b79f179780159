#pragma once

#include <string>
#include <unordered_set>

#include "platform/FileSystem.h"

namespace quillon {

/// Answers a batch of renames, moves or deletions as the disk would, without changing anything: names that earlier
/// calls of the batch gave up are free, names that they took are taken. Errors that only a real attempt shows (a
/// missing permission, a full or failing disk) are not predicted.
class PlannedChanges final : public FileChanges {
 public:
  explicit PlannedChanges(FileReads& files) : files_(files) {}

  FileOutcome Rename(const std::string& from, const std::string& to) override;
  using FileChanges::Move;
  MoveOutcome Move(const std::string& from, const std::string& to, Progress* progress) override;
  void RemoveLeftovers(const std::string&) override {}
  FileOutcome Remove(const std::string& path) override;
  int Recycle(const std::string& path, std::uintptr_t ownerWindow) override;

 private:
  Result<bool, FileError> Exists(const std::string& path);
  bool IsOneEntry(const std::string& left, const std::string& right);
  FileOutcome LookFor(const std::string& path);
  void Free(const std::string& path);
  void ListFolder(const std::string& folder);

  FileReads& files_;
  std::string listedFolder_;  ///< the folder whose names are in `listed_`
  std::unordered_set<std::string> listed_;
  std::unordered_set<std::string> taken_;
  std::unordered_set<std::string> freed_;
};

}  // namespace quillon
