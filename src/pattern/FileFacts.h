#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>

#include "filelist/FileList.h"
#include "platform/FileSystem.h"
#include "tags/SongDetails.h"

namespace quillon {

/// What a name pattern may need of a file that its list row does not say.
struct FileFacts {
  SongDetails song;
  std::int64_t modified = 0;  ///< seconds since 1970-01-01 00:00 UTC; 0 when unknown
};

/// Reads a row's file. What cannot be read is unknown.
using ReadFacts = std::function<FileFacts(const FileRow& row)>;

/// Reads the facts from the disk, for one run over the rows: those that are asked for in the list's order, each once,
/// are read before their turn. A row's own file is closed again when the row is known; the files that were opened
/// before their turn are closed with the result, whose copies read together. `files` and `list` must outlive it.
[[nodiscard]] ReadFacts FactsFrom(FileReads& files, const FileList& list, Rows rows, TagSources tags);

/// Starts reading for a run.
using BeginReading = std::function<ReadFacts()>;

/// The same, but each file is read once, whatever the number of runs.
[[nodiscard]] BeginReading KeptFacts(BeginReading begin);

}  // namespace quillon
