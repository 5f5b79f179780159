#include "plan/Undo.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <unordered_map>
#include <utility>

#include "base/Text.h"
#include "paths/basFileControl.h"
#include "platform/TemporaryName.h"

namespace quillon {
namespace {

using Found = std::optional<FileIdentity>;
using FileKey = std::pair<std::uint64_t, std::uint64_t>;  // device and number, as they were logged

FileKey KeyOf(const FileIdentity& file) {
  return {file.device, file.file};
}

bool IsSame(const FileIdentity& left, const FileIdentity& right) {
  return left.file == right.file && left.size == right.size && left.modified == right.modified;
}

bool IsMove(const LoggedRename& rename) {
  return FolderPart(rename.from) != FolderPart(rename.to);
}

bool LooksLike(const FileIdentity& file, const FileIdentity& found) {
  return file.size == found.size && file.modified == found.modified;
}

class UndoRun {
 public:
  UndoRun(const std::vector<LoggedRename>& renames, FileReads& files, FileChanges& changes, UndoMode mode,
          Progress& progress)
      : renames_(renames), files_(files), changes_(changes), mode_(mode), progress_(progress) {
    for (std::size_t i = 0; i < renames.size(); ++i) {
      const FileKey file = FirstOf(renames[i]);
      ofFile_[file].push_back(i);
      if (!renames[i].copy) continue;
      copies_[file].push_back(*renames[i].copy);
      originals_[KeyOf(*renames[i].copy)] = file;
    }
  }

  void Run(const std::function<bool(const UndoStep&)>& done) {
    for (std::size_t i = renames_.size(); i-- > 0 && !cancelled_;) {
      if (const std::optional<UndoStep> step = TakeBack(i); step && !done(*step)) return;
    }
  }

 private:
  // Returns nullopt when there is nothing to do.
  std::optional<UndoStep> TakeBack(std::size_t index) {
    const LoggedRename& rename = renames_[index];
    const Found found = IdentityAt(rename.to);
    const bool wasNotRenamed = rename.failed && IsAtOldName(rename, IdentityAt(rename.from));
    if (!wasNotRenamed && IsAtNewName(rename, found)) return MoveBack(rename, *found);
    if (rename.failed || IsAtOldName(rename, IdentityAt(rename.from)) || IsFurtherBack(index)) return std::nullopt;
    if (!found) {
      if (const std::optional<std::string> place = HalfWay(rename)) {
        return MoveBack({.from = rename.from, .to = *place, .file = rename.file}, rename.file);
      }
    }
    const bool laterWasTold = told_.erase(PathIdentity(rename.to)) > 0;
    told_.insert(PathIdentity(rename.from));
    if (laterWasTold) return std::nullopt;
    return UndoStep{rename.to, rename.from, ObstacleOf(rename, found)};
  }

  std::optional<UndoStep> MoveBack(const LoggedRename& rename, const FileIdentity& file) {
    const MoveOutcome outcome = changes_.Move(rename.to, rename.from, &progress_);
    UndoStep step = {rename.to, rename.from};
    if (outcome) {
      if (!IsSame(rename.file, file)) copies_[FirstOf(rename)].push_back(file);
      if (mode_ == UndoMode::kShow) Plan(rename, file);
      if (const Found now = IdentityAt(rename.from)) takenBack_[FirstOf(rename)] = *now;
      return step;
    }
    cancelled_ = outcome.Failure().number == file_error::kCancelled;
    if (cancelled_) return std::nullopt;
    told_.insert(PathIdentity(rename.from));
    step.obstacle = UndoObstacle::kRefused;
    step.error = outcome.Failure();
    return step;
  }

  // Where a change of letter case was killed that some volumes need a temporary name for.
  std::optional<std::string> HalfWay(const LoggedRename& rename) {
    if (!EqualIgnoringCase(rename.from, rename.to)) return std::nullopt;
    const std::string folder(FolderPart(rename.from));
    const Result<std::vector<FolderEntry>, FileError> entries = files_.ReadFolder(folder);
    if (!entries) return std::nullopt;
    for (const FolderEntry& entry : *entries) {
      if (!entry.name.starts_with(kTemporaryPrefix)) continue;
      const Found found = IdentityAt(folder + entry.name);
      if (found && IsSame(*found, rename.file)) return folder + entry.name;
    }
    return std::nullopt;
  }

  static UndoObstacle ObstacleOf(const LoggedRename& rename, const Found& found) {
    if (!found) return UndoObstacle::kGone;
    const FileIdentity& expected = rename.copy ? *rename.copy : rename.file;
    return found->file == expected.file ? UndoObstacle::kChanged : UndoObstacle::kAnotherFile;
  }

  // True when the file has the name that it had before an earlier rename.
  bool IsFurtherBack(std::size_t index) {
    for (const std::size_t earlier : ofFile_[FirstOf(renames_[index])]) {
      if (earlier >= index) return false;
      if (IsAtOldName(renames_[earlier], IdentityAt(renames_[earlier].from))) return true;
    }
    return false;
  }

  // The file as it was before all moves to other volumes.
  FileKey FirstOf(const LoggedRename& rename) const {
    const auto original = originals_.find(KeyOf(rename.file));
    return original == originals_.end() ? KeyOf(rename.file) : original->second;
  }

  bool IsAtNewName(const LoggedRename& rename, const Found& found) const {
    if (!found) return false;
    // Taken back from another volume, the file has become another one.
    const auto back = takenBack_.find(FirstOf(rename));
    if (back != takenBack_.end() && IsSame(back->second, *found)) return true;
    if (rename.copy) return IsSame(*rename.copy, *found);
    const bool unlogged = IsMove(rename) && rename.file.device != found->device && LooksLike(rename.file, *found);
    return unlogged || IsItself(rename, *found);
  }

  bool IsAtOldName(const LoggedRename& rename, const Found& found) const { return found && IsItself(rename, *found); }

  // A file that came back from another volume is a new file.
  bool IsItself(const LoggedRename& rename, const FileIdentity& found) const {
    if (IsSame(rename.file, found)) return true;
    const auto copies = copies_.find(FirstOf(rename));
    if (copies == copies_.end()) return false;
    return LooksLike(rename.file, found) ||
           std::any_of(copies->second.begin(), copies->second.end(),
                       [&](const FileIdentity& copy) { return LooksLike(copy, found); });
  }

  Found IdentityAt(const std::string& path) {
    const auto planned = planned_.find(PathIdentity(path));
    if (planned != planned_.end()) return planned->second;
    const Result<FileIdentity, FileError> found = files_.Identity(path);
    return found ? Found(*found) : Found();
  }

  void Plan(const LoggedRename& rename, const FileIdentity& file) {
    planned_[PathIdentity(rename.to)] = std::nullopt;
    planned_[PathIdentity(rename.from)] = file;
  }

  const std::vector<LoggedRename>& renames_;
  FileReads& files_;
  FileChanges& changes_;
  UndoMode mode_;
  Progress& progress_;
  bool cancelled_ = false;
  std::map<FileKey, std::vector<std::size_t>> ofFile_;   ///< each file's renames
  std::map<FileKey, std::vector<FileIdentity>> copies_;  ///< that moves to other volumes have made of a file
  std::map<FileKey, FileKey> originals_;                 ///< a copy's key to its original's
  std::map<FileKey, FileIdentity> takenBack_;            ///< what a file is after its last step
  std::set<std::string> told_;                           ///< old names of files that cannot go back to them
  std::unordered_map<std::string, Found> planned_;       ///< what taking back has changed, with kShow
};

}  // namespace

void Undo(const std::vector<LoggedRename>& renames, FileReads& files, FileChanges& changes, UndoMode mode,
          Progress& progress, const std::function<bool(const UndoStep&)>& done) {
  UndoRun(renames, files, changes, mode, progress).Run(done);
}

}  // namespace quillon
