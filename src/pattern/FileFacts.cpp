#include "pattern/FileFacts.h"

#include <utility>

#include "tags/SongReader.h"

namespace quillon {

ReadFacts FactsFrom(FileReads& files, TagSources tags) {
  return [&files, tags](const FileRow& row) {
    FileFacts facts;
    const std::string location = row.Location();
    if (const Result<FileStatus, FileError> status = files.Status(location)) facts.modified = status->modified;
    if (const std::unique_ptr<ByteSource> file = files.OpenFile(location)) {
      facts.song = ReadSongDetails(*file, row.type, tags);
    }
    return facts;
  };
}

ReadFacts KeptFacts(ReadFacts read) {
  const auto kept = std::make_shared<std::unordered_map<std::string, FileFacts>>();
  return [kept, read = std::move(read)](const FileRow& row) {
    const std::string location = row.Location();
    const auto found = kept->find(location);
    if (found != kept->end()) return found->second;
    return kept->emplace(location, read(row)).first->second;
  };
}

}  // namespace quillon
