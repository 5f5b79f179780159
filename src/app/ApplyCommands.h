#pragma once

#include <string>

#include "app/Screen.h"
#include "platform/FileSystem.h"
#include "rename/basQuillon.h"

namespace quillon {

/// Applies rename names to the files and reports the results. Check marks change as the options say.
class ApplyCommands {
 public:
  ApplyCommands(const Session& session, RenameEngine& engine, FileReads& files, const Screen& screen);

  /// Applies the row with this 1-based index. A failure is reported unless the options say otherwise.
  ApplyCode ApplyRenameName(int index);

  /// The same for several rows, followed by a summary message.
  BatchOutcome ApplyRenameBatch(Rows rows);

  void mnuThisUpdate();
  void mnuAllUpdate();
  void mnuUpdate();

 private:
  enum class Failures { kAsOptionsSay, kAlwaysTold };
  /// The user's answers to the message boxes of a batch.
  struct Batch {
    bool showFailures = true;
    bool abandoned = false;  ///< the user has closed the window
  };

  RowOutcome Apply(int index, Failures failures);
  void ShowPlace(const RowOutcome& row);
  void Uncheck(int index);
  bool FinishRow(const RowOutcome& row, Batch& batch);
  [[nodiscard]] std::string DetailsOf(const RowOutcome& row) const;
  FailureAnswer Report(const RowOutcome& row, bool inBatch);
  void ShowSummary(const BatchOutcome& outcome);
  void ConfirmedBatch(Rows rows, const char* question);

  Session session_;
  RenameEngine& engine_;
  FileReads& files_;
  Screen screen_;
};

}  // namespace quillon
