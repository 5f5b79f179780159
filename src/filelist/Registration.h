#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/PathList.h"
#include "base/Progress.h"
#include "filelist/FileList.h"
#include "filelist/PassedOver.h"
#include "platform/FileSystem.h"
#include "settings/OptionValues.h"
#include "tags/SongDetails.h"

/// Reads files into rows of the list.
namespace quillon {

enum class OnError { kEnd, kPassOver };

struct RegisterOptions {
  bool checked = true;  ///< the new rows' check marks
  /// What happens after an error that does not concern the file only, such as a volume that has gone.
  OnError onError = OnError::kEnd;
  TagSources tags = TagSources::kStandard;
};

struct Registered {
  std::size_t duplicates = 0;  ///< files that are listed already
  std::vector<PassedOver> passedOver;
  std::optional<FileError> error;  ///< the error that ended the registration; rows that were added before stay
  /// With TagSources::kStandard: added rows whose tags are read with kAll only, as far as that is known without further
  /// reading. MP3 files without a title whose tag is of version 2.4, and files of types whose files usually have tags.
  std::size_t unreadTags = 0;
};

/// The tags that the options ask for.
[[nodiscard]] TagSources TagSourcesOf(const OptionValues& options);

/// Adds a row for each of these full paths, in their order. `progress` is asked after each one whether to go on.
Registered RegisterFiles(FileList& list, FileReads& files, const PathList& paths, const RegisterOptions& options,
                         Progress& progress, PathStyle style = SystemPathStyle());

/// Reads every listed file again. Edited rename names are lost; rows whose files no longer exist are removed; rows
/// whose files cannot be checked at the moment stay unchanged.
void ReadRowsAnew(FileList& list, FileReads& files, const RegisterOptions& options, Progress& progress,
                  PathStyle style = SystemPathStyle());

/// Reads title and artist, with TagSources::kAll, of the rows that have no title and are of a type with such texts. The
/// rows' names, check marks and selection stay, as do the texts of files that cannot be opened.
void ReadTitlesAnew(FileList& list, FileReads& files, Progress& progress, PathStyle style = SystemPathStyle());

}  // namespace quillon
