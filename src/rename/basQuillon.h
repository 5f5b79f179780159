#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/Progress.h"
#include "filelist/FileList.h"
#include "filelist/WindowPorts.h"
#include "platform/FileSystem.h"
#include "settings/ApplyMode.h"

/// RenameEngine: writes rename names to the disk. Shows no message: the caller reports the results.
namespace quillon {

/// The result of applying a rename name; the numbers are those of quillon-cli's JSON.
enum class ApplyCode {
  kApplied = 0,
  kNoName = 1,            ///< empty or blank
  kInvalidCharacter = 2,  ///< a character that a file name may not hold
  kTargetExists = 3,
  kNoAccess = 4,     ///< permission, or the file is open
  kInvalidName = 5,  ///< not a valid name, too long, or the file is gone
  kUnexpected = 16,  ///< any other error; ends a batch
};

/// The reason for a code other than kApplied, as a message's first line.
[[nodiscard]] const char* ApplyReason(ApplyCode code);

/// The two lines of a finished batch's summary: what was applied, what was skipped.
[[nodiscard]] std::string AppliedLine(int applied);
[[nodiscard]] std::string SkippedLine(int skipped);

/// The path that applying gives the row's file: its folder, the rename name without trailing blanks, and its extension
/// in lower case. A name without extension gets no dot, and loses dots and blanks at its end, as on Windows; when
/// nothing is left of it, the path is the folder alone.
[[nodiscard]] std::string AppliedPath(std::string_view location, std::string_view renameName,
                                      PathStyle style = SystemPathStyle());

/// The result for one row.
struct RowOutcome {
  int index = 0;  ///< 1-based row
  ApplyCode code = ApplyCode::kApplied;
  FileError error;           ///< the file system's answer; number 0 when it was not asked
  std::string from;          ///< where the file was
  std::string to;            ///< where it is now, also when a failure has left it somewhere else
  int invalidCharacter = 0;  ///< its 1-based position in the name, for kInvalidCharacter

  [[nodiscard]] bool Ok() const { return code == ApplyCode::kApplied; }
};

struct BatchOutcome {
  int applied = 0;
  int skipped = 0;
  bool stopped = false;  ///< an unexpected error or RowDone has ended the batch
  std::vector<RowOutcome> failures;
};

class RenameEngine {
 public:
  /// Called after each row; false ends the batch.
  using RowDone = std::function<bool(const RowOutcome& row)>;

  RenameEngine(FileList& list, const ApplyMode& mode, FileChanges& disk, PlayerControl& player,
               PathStyle style = SystemPathStyle());

  /// Renames the file of the row with this 1-based index to its rename name. The player releases the file first, even
  /// when the rename then fails. The row follows its file, also when a failure has left it somewhere else.
  RowOutcome Apply(int index);

  /// The same for several rows. An unexpected error ends the batch; `progress` may end it, too, which does not count as
  /// stopped.
  BatchOutcome Apply(Rows rows, Progress& progress, const RowDone& done);

  /// The same with a disk that changes nothing (see PlannedChanges): rows and player stay as they are.
  BatchOutcome Plan(Rows rows, Progress& progress, const RowDone& done);

 private:
  using ApplyOne = RowOutcome (RenameEngine::*)(int index);

  BatchOutcome Run(Rows rows, ApplyOne apply, Progress& progress, const RowDone& done);
  RowOutcome Rename(int index);
  /// 0 when the rename name is allowed.
  [[nodiscard]] int RefusedCharacterPosition(const FileRow& row) const;

  FileList& list_;
  const ApplyMode& mode_;
  FileChanges& disk_;
  PlayerControl& player_;
  PathStyle style_;
};

}  // namespace quillon
