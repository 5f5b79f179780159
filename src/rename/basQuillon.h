#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Ports.h"
#include "filelist/FileList.h"
#include "filelist/WindowPorts.h"
#include "platform/FileSystem.h"
#include "settings/ApplyMode.h"
#include "settings/OptionValues.h"

/// The rename engine: writes rename names to the disk.
namespace quillon {

/// What `ApplyRenameName` returns.
namespace apply_code {
inline constexpr std::int16_t kApplied = 0;
inline constexpr std::int16_t kNoName = 1;            ///< empty or blank
inline constexpr std::int16_t kInvalidCharacter = 2;  ///< a character that a file name may not hold
inline constexpr std::int16_t kTargetExists = 3;
inline constexpr std::int16_t kNoAccess = 4;     ///< permission, or the file is open
inline constexpr std::int16_t kInvalidName = 5;  ///< not a valid name, too long, or the file is gone
inline constexpr std::int16_t kUnexpected = 16;  ///< any other error; stops a batch
}  // namespace apply_code

/// The reason for a code other than kApplied, as the message's first line.
[[nodiscard]] const char* ApplyReason(std::int16_t code);

/// The path that applying gives the row's file: its folder, the rename name without trailing blanks, and its extension
/// in lower case. A file without extension gets no dot, and no dots or blanks at the end, as Windows would name it; the
/// folder alone when nothing is left of such a name.
[[nodiscard]] std::string AppliedPath(const FileItem& row, PathStyle style = SystemPathStyle());

struct RowFailure {
  int index = 0;  ///< 1-based row
  std::int16_t code = 0;
  FileError error;        ///< the file system's answer; number 0 for codes 1 and 2
  std::string from = {};  ///< where the file was, when the failure has left it somewhere else
};

struct BatchOutcome {
  int applied = 0;
  int skipped = 0;
  bool stopped = false;  ///< an unexpected error or the user ended the batch
  std::vector<RowFailure> failures;
};

/// Follows a batch row by row.
class BatchObserver {
 public:
  virtual ~BatchObserver() = default;
  /// Asked before each row; false ends the batch there, as if the list ended.
  virtual bool Continue() = 0;
  virtual void Applied(int index, const std::string& from, const std::string& to) = 0;
};

/// The two lines that sum a finished batch up: what was applied, what was skipped.
[[nodiscard]] std::string AppliedLine(int applied);
[[nodiscard]] std::string SkippedLine(int skipped);

class RenameEngine {
 public:
  struct Ports {
    FileReads& files;
    FileChanges& disk;
    MessageBoxes& boxes;
    FilePanel& filePanel;
    WindowState& window;
    PlayerControl& player;
  };

  RenameEngine(FileList& list, OptionValues& options, const ApplyMode& mode, Ports ports,
               PathStyle style = SystemPathStyle());

  /// Renames the file of the row with this 1-based index to its rename name; see apply_code. The player lets go of the
  /// file first, even when the rename then fails.
  std::int16_t ApplyRenameName(int index);

  /// The same for every row, or for the checked ones, and a message that sums it up.
  BatchOutcome ApplyRenameBatch(bool allItems, BatchObserver* observer = nullptr);

  void mnuThisUpdate();
  void mnuAllUpdate();
  void mnuUpdate();

 private:
  RowFailure Apply(int index, bool inBatch);
  /// 0 when the rename name may be given.
  [[nodiscard]] int RefusedCharacterPosition(const FileItem& row) const;
  [[nodiscard]] std::string DetailsOf(const RowFailure& failure) const;
  RowFailure Rename(int index);
  void Follow(int index, std::string path);
  void Report(const RowFailure& failure, bool inBatch);
  void Count(const RowFailure& result, BatchOutcome& outcome);
  void ShowSummary(const BatchOutcome& outcome);
  void ConfirmedBatch(bool allItems, const char* question);

  FileList& list_;
  OptionValues& options_;
  const ApplyMode& mode_;
  Ports ports_;
  PathStyle style_;
  bool tells_ = true;       // of failing rows; a batch can be told not to
  bool abandoned_ = false;  // by the user, who has closed the window
};

}  // namespace quillon
