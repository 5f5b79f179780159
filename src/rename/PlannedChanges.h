#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "platform/FileSystem.h"

namespace quillon {

/// Answers a batch of renames, moves or deletions as the disk would, without changing anything: names that earlier
/// calls of the batch gave up are free, names that they took are taken. Errors that only a real attempt shows (a
/// missing permission, a full or failing disk) are not predicted. The disk is taken not to change meanwhile: a folder
/// of which several names are asked for is listed once, where its listing answers for all of them.
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
  struct Folder {
    std::unordered_map<std::string, bool> names;  ///< taken or free, as far as it is known; by the name's identity
    std::unordered_set<std::string> uncertain;    ///< listed names that are to be asked for
    bool listed = false;                          ///< all names but these are known
    int asked = 0;                                ///< names that the disk was asked for
  };

  /// Where a file is or is not.
  struct Place {
    const std::string& path;
    Folder& folder;
    std::string name;  ///< its identity

    void Set(bool taken) const { folder.names.insert_or_assign(name, taken); }
  };

  Place PlaceOf(const std::string& path);
  static std::optional<bool> Known(const Place& place);
  Result<bool, FileError> Exists(const Place& place);
  void List(std::string_view path, Folder& folder);
  bool IsOneEntry(const std::string& left, const std::string& right);
  FileOutcome LookFor(const Place& place);
  void ListForSpellings(const std::string& folder);

  FileReads& files_;
  std::unordered_map<std::string, Folder> folders_;  ///< by the identity of the path
  std::string lastPath_;                             ///< the folder of the last answer
  Folder* last_ = nullptr;
  std::string spelledFolder_;  ///< the folder whose names are in `spelled_`
  std::unordered_set<std::string> spelled_;
};

}  // namespace quillon
