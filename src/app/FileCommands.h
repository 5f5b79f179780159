#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/ListCommands.h"
#include "app/MoveProgress.h"
#include "app/Screen.h"
#include "fileops/FileOperations.h"
#include "platform/FileSystem.h"

namespace quillon {

/// File access, and the owner of the dialogs that the system itself shows.
struct Disk {
  FileReads& files;
  FileChanges& changes;
  std::uintptr_t ownerWindow = 0;  ///< native handle, 0 for none
};

/// The windows of a move.
struct MoveWindows {
  FolderDialog& folders;
  ProgressDisplay& progress;
};

/// Deletes and moves listed files. The player releases each file first.
class FileCommands {
 public:
  FileCommands(const Session& session, ListCommands& rows, const Disk& disk, const MoveWindows& windows,
               const Screen& screen, MoveTimes moveTimes = MoveTimes());

  void mnuThisDel();
  void mnuThisMove();
  void mnuAllMove();
  void mnuMove();

 private:
  bool DeleteForGood(const std::string& path);
  bool DeleteToRecycleBin(const std::string& path);
  void ReportDeletion(const FileError& error);
  std::optional<std::string> ChooseTarget();
  /// The state of a move of several rows.
  struct Batch {
    NotKept notKept;
    bool several = false;
    bool showFailures = true;
    bool abandoned = false;                     ///< the user has closed the window
    bool cancelled = false;                     ///< the user has cancelled in the wait window
    std::optional<std::vector<bool>> selected;  ///< each row's selection before a failing row was shown
  };

  bool MoveRow(int index, const std::string& folder, MoveProgress& progress, Batch& batch);
  bool MoveOne(int index, const std::string& folder, Batch& batch);
  void ReportMove(int index, const std::string& from, const std::string& to, const FileError& error, Batch& batch);
  void ShowFailedRow(int index, Batch& batch);
  void SelectAgain(const Batch& batch);
  void ReportNotKept(const NotKept& notKept);
  void MoveBatch(Rows rows);
  [[nodiscard]] std::uint64_t SizeOfRows(Rows rows) const;
  int MoveRows(Rows rows, const std::string& folder, Batch& batch);
  void DropMovedRows(const std::vector<bool>& moved);

  Session session_;
  ListCommands& rows_;
  Disk disk_;
  MoveWindows windows_;
  Screen screen_;
  FileMover mover_;
  MoveTimes moveTimes_;
};

}  // namespace quillon
