#pragma once

#include <cstdint>
#include <string>

#include "filelist/PlayerState.h"

/// The parts of the main window that commands on the list change. Each is small, so that a test records only what it
/// checks. All texts are complete and UTF-8.
namespace quillon {

class StatusPanels {
 public:
  virtual ~StatusPanels() = default;
  virtual void SetPlayerText(const std::string& text) = 0;
  virtual void SetModeText(const std::string& text) = 0;
};

/// Tells the user what the player does.
class PlayerStatus {
 public:
  virtual ~PlayerStatus() = default;
  /// `file` is the name of the file concerned; empty for kIdle.
  virtual void ShowPlayer(PlayerState state, const std::string& file) = 0;

  void ShowPlayerIdle() { ShowPlayer(PlayerState::kIdle, {}); }
};

/// The rename box and the information boxes, which follow the selected row.
class FilePanel {
 public:
  virtual ~FilePanel() = default;
  /// Shows no row: the rename box is emptied and disabled, the boxes show their empty state.
  virtual void Reset() = 0;
  /// Shows this row's information, read again from its file.
  virtual void ShowRow(int index) = 0;
  /// Updates the file name box only, when the shown row's file has a new path.
  virtual void ShowFileName(const std::string& path) = 0;
};

enum class Pointer { kNormal, kBusyArrow, kHourglass };

class WindowState {
 public:
  virtual ~WindowState() = default;
  virtual void SetPointer(Pointer pointer) = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual void FocusList() = 0;
  /// Scrolls the row into view and makes it the keyboard's current row.
  virtual void ScrollToRow(int index) = 0;
};

/// What the list's commands need of the player. These functions do nothing, for programs without a player.
class PlayerControl {
 public:
  virtual ~PlayerControl() = default;
  /// Stops and closes this file if it is the one that is loaded; the player is idle then.
  virtual void ReleaseFile(const std::string& /*path*/) {}
  /// Stops whatever plays.
  virtual void Stop() {}
  /// Sets the file that playing starts with; empty for none.
  virtual void Choose(const std::string& /*path*/) {}
  /// The file has a new path; a chosen file stays chosen.
  virtual void FileMoved(const std::string& /*from*/, const std::string& /*to*/) {}
  /// The file has left the list: it is released, and no longer chosen.
  virtual void FileRemoved(const std::string& /*path*/) {}
};

/// How long a file plays.
class PlayTimes {
 public:
  virtual ~PlayTimes() = default;
  /// The length of the file that playing would start with, in milliseconds; 0 when it cannot be played.
  [[nodiscard]] virtual std::int32_t LengthOfChosenFile() = 0;
};

/// The progress of a loop over files or rows, shown over the list or in a wait window.
class ProgressDisplay {
 public:
  virtual ~ProgressDisplay() = default;
  virtual void Begin(const std::string& headline, const std::string& line) = 0;
  /// Shows the percentage done, and a text that describes it. `path` is the item just done, empty when it is not shown;
  /// the window shortens it to fit.
  virtual void Update(int percent, const std::string& text, const std::string& path) = 0;
  virtual void End() = 0;
  /// True once the user has asked, since Begin, to cancel the loop. Always false for a display without such a button.
  [[nodiscard]] virtual bool Cancelled() const { return false; }
};

/// The progress window of a folder search, and the busy pointer for as long as the search lasts.
class SearchDisplay {
 public:
  virtual ~SearchDisplay() = default;
  virtual void Begin(const std::string& status, const std::string& target) = 0;
  /// The folder being searched; the window shortens it to fit.
  virtual void ShowFolder(const std::string& folder) = 0;
  virtual void End() = 0;
};

class FolderDialog {
 public:
  virtual ~FolderDialog() = default;
  /// The chosen folder, or an empty string when the dialog was cancelled. `confirm` is the label of its confirming
  /// button; empty: the system's usual label.
  virtual std::string Choose(const std::string& prompt, const std::string& start, const std::string& confirm) = 0;
};

}  // namespace quillon
