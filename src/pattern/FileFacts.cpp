#include "pattern/FileFacts.h"

#include <utility>

#include "paths/basFileControl.h"
#include "tags/SongReader.h"

namespace quillon {

namespace {

FileFacts FactsOf(const Result<FileStatus, FileError>& status, ByteSource* file, const FileType& type,
                  TagSources tags) {
  FileFacts facts;
  if (status) facts.modified = status->modified;
  if (file != nullptr) facts.song = ReadSongDetails(*file, type, tags);
  return facts;
}

class FactsInTurn {
 public:
  FactsInTurn(FileReads& files, const FileList& list, Rows rows, TagSources tags)
      : files_(files), list_(list), rows_(rows), tags_(tags) {}

  FileFacts Of(const FileRow& row) {
    const std::string location = row.Location();
    if (!reading_) Begin(location);
    if (upcoming_ == paths_.end() || (*upcoming_).Path() != location) {
      const auto file = IsReadForRow(row.type, tags_) ? files_.OpenFile(location) : nullptr;
      return FactsOf(files_.Status(location), file.get(), row.type, tags_);
    }
    ++upcoming_;
    reading_->Next();
    ByteSource* const file = IsReadForRow(row.type, tags_) ? reading_->Open() : nullptr;
    FileFacts facts = FactsOf(reading_->Status(), file, row.type, tags_);
    reading_->Release();  // its name may be changed now
    if (upcoming_ == paths_.end()) reading_ = nullptr;
    return facts;
  }

 private:
  // Not before a file is needed: many patterns need none, and the first rows may be known.
  void Begin(const std::string& first) {
    paths_ = {};
    bool found = false;
    for (int index = 1; index <= list_.Count(); ++index) {
      if (!list_.IsIn(rows_, index)) continue;
      const FileRow row = list_.Row(index);
      found = found || row.Location() == first;
      if (found) paths_.Add(row.folder, row.name);
    }
    upcoming_ = paths_.begin();
    reading_ = files_.ReadInTurn(paths_, [tags = tags_](const PathList::File& file) {
      FileNeeds needs = NeedsForRow(GetMediaType(Extension(file.name)), tags);
      needs.statusToo = true;
      return needs;
    });
  }

  FileReads& files_;
  const FileList& list_;
  Rows rows_;
  TagSources tags_;
  PathList paths_;
  PathList::Iterator upcoming_;
  std::unique_ptr<FilesInTurn> reading_;
};

}  // namespace

ReadFacts FactsFrom(FileReads& files, const FileList& list, Rows rows, TagSources tags) {
  const auto facts = std::make_shared<FactsInTurn>(files, list, rows, tags);
  return [facts](const FileRow& row) { return facts->Of(row); };
}

BeginReading KeptFacts(BeginReading begin) {
  const auto kept = std::make_shared<std::unordered_map<std::string, FileFacts>>();
  return [kept, begin = std::move(begin)]() -> ReadFacts {
    return [kept, read = begin()](const FileRow& row) {
      const std::string location = row.Location();
      const auto found = kept->find(location);
      if (found != kept->end()) return found->second;
      return kept->emplace(location, read(row)).first->second;
    };
  };
}

}  // namespace quillon
