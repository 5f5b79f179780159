#include "pattern/FileFacts.h"

#include <utility>

namespace quillon {

ReadFacts FactsFrom(FileReads& files) {
  return [&files](const FileItem& row) {
    const Result<FileStatus, FileError> status = files.Status(row.location);
    return FileFacts{.song = {}, .modified = status ? status->modified : 0};
  };
}

ReadFacts KeptFacts(ReadFacts read) {
  const auto kept = std::make_shared<std::unordered_map<std::string, FileFacts>>();
  return [kept, read = std::move(read)](const FileItem& row) {
    const auto found = kept->find(row.location);
    if (found != kept->end()) return found->second;
    return kept->emplace(row.location, read(row)).first->second;
  };
}

}  // namespace quillon
