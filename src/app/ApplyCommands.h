#pragma once

#include <string>

#include "app/Screen.h"
#include "platform/FileSystem.h"
#include "rename/basQuillon.h"

namespace quillon {

/// Applies rename names to the files, and tells what came of it. Check marks follow the options.
class ApplyCommands {
 public:
  ApplyCommands(const Session& session, RenameEngine& engine, FileReads& files, const Screen& screen);

  /// Applies the row with this 1-based index. A failure is told unless the options say otherwise.
  ApplyCode ApplyRenameName(int index);

  /// The same for several rows, and a message that sums it up.
  BatchOutcome ApplyRenameBatch(Rows rows);

  void mnuThisUpdate();
  void mnuAllUpdate();
  void mnuUpdate();

 private:
  enum class Failures { kAsOptionsSay, kAlwaysTold };
  /// What the user has answered to the boxes of a batch.
  struct Batch {
    bool tells = true;       ///< of failing rows
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
