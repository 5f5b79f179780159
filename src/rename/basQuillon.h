#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/Progress.h"
#include "filelist/FileList.h"
#include "filelist/WindowPorts.h"
#include "platform/FileSystem.h"
#include "settings/ApplyMode.h"

/// RenameEngine: writes rename names to the disk. Tells nobody: the caller says what happened.
namespace quillon {

/// What applying a rename name came to; the numbers are those of quillon-cli's JSON.
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

/// The two lines that sum a finished batch up: what was applied, what was skipped.
[[nodiscard]] std::string AppliedLine(int applied);
[[nodiscard]] std::string SkippedLine(int skipped);

/// The path that applying gives the row's file: its folder, the rename name without trailing blanks, and its extension
/// in lower case. A file without extension gets no dot, and no dots or blanks at the end, as Windows would name it; the
/// folder alone when nothing is left of such a name.
[[nodiscard]] std::string AppliedPath(const FileItem& row, PathStyle style = SystemPathStyle());

/// What became of one row. The row's location says where its file is now.
struct RowOutcome {
  int index = 0;  ///< 1-based row
  ApplyCode code = ApplyCode::kApplied;
  FileError error;           ///< the file system's answer; number 0 when it was not asked
  std::string from;          ///< where the file was
  int invalidCharacter = 0;  ///< its 1-based position in the name, for kInvalidCharacter

  [[nodiscard]] bool Ok() const { return code == ApplyCode::kApplied; }
};

struct BatchOutcome {
  int applied = 0;
  int skipped = 0;
  bool stopped = false;  ///< an unexpected error, or whoever follows the rows, has ended the batch
  std::vector<RowOutcome> failures;
};

class RenameEngine {
 public:
  /// Called after each row; false ends the batch.
  using RowDone = std::function<bool(const RowOutcome& row)>;

  RenameEngine(FileList& list, const ApplyMode& mode, FileChanges& disk, PlayerControl& player,
               PathStyle style = SystemPathStyle());

  /// Renames the file of the row with this 1-based index to its rename name. The player lets go of the file first, even
  /// when the rename then fails. The row follows its file, also when a failure has left it somewhere else.
  RowOutcome Apply(int index);

  /// The same for several rows. An unexpected error ends it; `progress` may end it as if the list ended.
  BatchOutcome Apply(Rows rows, Progress& progress, const RowDone& done);

 private:
  /// 0 when the rename name may be given.
  [[nodiscard]] int RefusedCharacterPosition(const FileItem& row) const;
  void Follow(int index, std::string path);

  FileList& list_;
  const ApplyMode& mode_;
  FileChanges& disk_;
  PlayerControl& player_;
  PathStyle style_;
};

}  // namespace quillon
