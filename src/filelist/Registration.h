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
  /// What happens after an error that does not concern the file only, such as a volume that has gone.
  OnError onError = OnError::kEnd;
};

struct Registered {
  std::size_t duplicates = 0;  ///< files that are listed already
  std::vector<PassedOver> passedOver;
  std::optional<FileError> error;  ///< the error that ended the registration; rows that were added before stay
};

/// Adds a row for each of these full paths, in their order. `progress` is asked after each one whether to go on.
Registered RegisterFiles(FileList& list, FileReads& files, std::vector<std::string> paths,
                         const RegisterOptions& options, Progress& progress, PathStyle style = SystemPathStyle());

/// Reads every listed file again. Edited rename names are lost; rows whose files no longer exist are removed; rows
/// whose files cannot be checked at the moment stay unchanged.
void ReadRowsAnew(FileList& list, FileReads& files, const RegisterOptions& options, Progress& progress,
                  PathStyle style = SystemPathStyle());

}  // namespace quillon
