#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/Progress.h"
#include "filelist/FileList.h"
#include "filelist/PassedOver.h"
#include "platform/FileSystem.h"

/// Reads files into rows of the list.
namespace quillon {

enum class OnError { kEnd, kPassOver };

struct RegisterOptions {
  bool checked = true;  ///< the new rows' check marks
  /// What becomes of an error that is no obstacle of a file's own, such as a volume that has gone.
  OnError onError = OnError::kEnd;
};

struct Registered {
  std::size_t duplicates = 0;  ///< files that are listed already
  std::vector<PassedOver> passedOver;
  std::optional<FileError> error;  ///< the registration ended here; rows that were added before stay
};

/// Adds a row for each of these full paths, in their order. `progress` is asked after each one.
Registered RegisterFiles(FileList& list, FileReads& files, std::vector<std::string> paths,
                         const RegisterOptions& options, Progress& progress, PathStyle style = SystemPathStyle());

/// Reads every listed file anew: edited rename names are lost, rows of files that are gone leave, rows whose files
/// cannot be looked at just now stay as they are.
void ReadRowsAnew(FileList& list, FileReads& files, const RegisterOptions& options, Progress& progress,
                  PathStyle style = SystemPathStyle());

}  // namespace quillon
