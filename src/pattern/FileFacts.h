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

/// Reads the facts from the disk. Rows that are asked for in the list's order, each once, are read before their turn;
/// every file is closed again when its row is known. `files` and `list` must outlive the result, whose copies read
/// together.
[[nodiscard]] ReadFacts FactsFrom(FileReads& files, const FileList& list, Rows rows, TagSources tags);

/// The same, but reads each file once. Copies of the result share what was read.
[[nodiscard]] ReadFacts KeptFacts(ReadFacts read);

}  // namespace quillon
