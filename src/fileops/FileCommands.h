#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/Ports.h"
#include "filelist/FileList.h"
#include "filelist/ListCommands.h"
#include "filelist/WindowPorts.h"
#include "fileops/FileOperations.h"
#include "fileops/MoveProgress.h"
#include "platform/FileSystem.h"
#include "settings/OptionValues.h"

namespace quillon {

/// Deletes and moves listed files. The player lets go of a file first.
class FileCommands {
 public:
  struct Ports {
    FileReads& files;
    FileChanges& disk;
    MessageBoxes& boxes;
    FolderDialog& folders;
    PlayerControl& player;
    FilePanel& filePanel;
    WindowState& window;
    ProgressDisplay& progress;
  };

  /// `ownerWindow` is the main window's native handle, 0 for none.
  FileCommands(FileList& list, OptionValues& options, ListCommands& rows, Ports ports, std::uintptr_t ownerWindow = 0,
               PathStyle style = SystemPathStyle(), MoveTimes moveTimes = MoveTimes());

  void mnuThisDel();
  void mnuThisMove();
  void mnuAllMove();
  void mnuMove();

 private:
  bool DeleteForGood(const std::string& path);
  bool DeleteToRecycleBin(const std::string& path);
  void ReportDeletion(const FileError& error);
  std::optional<std::string> ChooseTarget();
  /// What a move of several rows has come to, and how it goes on.
  struct Batch {
    NotKept notKept;
    bool several = false;
    bool tells = true;                          ///< of rows that fail
    bool abandoned = false;                     ///< by the user, who has closed the window
    bool cancelled = false;                     ///< by the user, in the wait window
    std::optional<std::vector<bool>> selected;  ///< by row, before a failing one was shown
  };

  bool MoveRow(int index, const std::string& folder, MoveProgress& progress, Batch& batch);
  bool MoveOne(int index, const std::string& folder, Batch& batch);
  void ReportMove(int index, const std::string& from, const std::string& to, const FileError& error, Batch& batch);
  void ShowFailedRow(int index, Batch& batch);
  void SelectAgain(const Batch& batch);
  void ReportNotKept(const NotKept& notKept);
  void MoveBatch(bool allItems);
  [[nodiscard]] std::uint64_t SizeOfRows(bool allItems) const;
  int MoveRows(bool allItems, const std::string& folder, Batch& batch);
  void DropMovedRows(const std::vector<bool>& moved);

  FileList& list_;
  OptionValues& options_;
  ListCommands& rows_;
  Ports ports_;
  FileMover mover_;
  std::uintptr_t ownerWindow_;
  PathStyle style_;
  MoveTimes moveTimes_;
};

}  // namespace quillon
