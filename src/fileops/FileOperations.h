#pragma once

#include <cstdint>
#include <string>

#include "filelist/FileList.h"
#include "filelist/WindowPorts.h"
#include "platform/FileSystem.h"

namespace quillon {

/// Moves a file to the recycle bin. Returns 0 on success, the system's error number on failure, and kRecycleNotDone,
/// without asking the recycle bin, when no file exists at the path.
int RecycleFile(FileReads& files, FileChanges& disk, const std::string& path, std::uintptr_t ownerWindow);

/// Why a file was not moved, as the first line of its message; empty for errors without a specific text.
[[nodiscard]] std::string MoveReason(const FileError& error);

/// Why a file was not permanently deleted, as shown in its message, without the message's general line.
[[nodiscard]] std::string DeleteReason(const FileError& error);

/// One sentence saying where a rename or move that failed half-way left the file or its copy; empty for every other
/// error.
[[nodiscard]] std::string LeftAtText(const FileError& error);

/// One sentence saying what a successful move could not keep; empty when everything was kept.
[[nodiscard]] std::string NotKeptText(const NotKept& notKept);

/// Moves the files of listed rows. Shows nothing: the caller reports the outcome.
class FileMover {
 public:
  FileMover(FileList& list, FileReads& files, FileChanges& disk, PlayerControl& player,
            PathStyle style = SystemPathStyle())
      : list_(list), files_(files), disk_(disk), player_(player), style_(style) {}

  /// The path of the row's file after a move into `folder`, which ends with a separator.
  [[nodiscard]] std::string Target(int index, const std::string& folder) const;

  /// Moves the row's file into `folder` without renaming it; the player releases it first. The row keeps its old path,
  /// except when the file ended up somewhere else (file_error::kStranded): then the row points there. `progress` may be
  /// null.
  MoveOutcome Move(int index, const std::string& folder, Progress* progress = nullptr);

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
