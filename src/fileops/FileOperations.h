#pragma once

#include <cstdint>
#include <string>

#include "filelist/FileList.h"
#include "filelist/WindowPorts.h"
#include "platform/FileSystem.h"

namespace quillon {

/// Moves a file to the recycle bin. 0 on success, the system's own number on failure, kRecycleNotDone for a path that
/// names no existing file; the recycle bin is not asked then.
int RecycleFile(FileReads& files, FileChanges& disk, const std::string& path, std::uintptr_t ownerWindow);

/// Why a file was not moved, as the first line of its message; empty for an error that has no reason of its own.
[[nodiscard]] std::string MoveReason(const FileError& error);

/// Why a file was not deleted for good, as its message says it, without the general line.
[[nodiscard]] std::string DeleteReason(const FileError& error);

/// Where the file, or a copy of it, was left by a rename or move that failed half-way, as one sentence; empty for every
/// other error.
[[nodiscard]] std::string LeftAtText(const FileError& error);

/// What a move that was carried out could not keep, as one sentence; empty when everything was kept.
[[nodiscard]] std::string NotKeptText(const NotKept& notKept);

/// Moves the files of listed rows. Tells nobody: the caller says what happened.
class FileMover {
 public:
  FileMover(FileList& list, FileReads& files, FileChanges& disk, PlayerControl& player,
            PathStyle style = SystemPathStyle())
      : list_(list), files_(files), disk_(disk), player_(player), style_(style) {}

  /// The path that the row's file gets in `folder`, which ends with a separator.
  [[nodiscard]] std::string Target(int index, const std::string& folder) const;

  /// Moves the row's file into `folder` under its own name; the player lets go of it first. The row keeps its old path,
  /// except when the file was left somewhere else (file_error::kStranded): then it points there. `progress` may be
  /// null.
  MoveOutcome Move(int index, const std::string& folder, CopyProgress* progress = nullptr);

  /// Gives a row whose file was moved its new path.
  void Follow(int index, const std::string& path);

 private:
  FileList& list_;
  FileReads& files_;
  FileChanges& disk_;
  PlayerControl& player_;
  PathStyle style_;
};

}  // namespace quillon
