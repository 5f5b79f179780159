#include "pattern/FileFacts.h"

#include <utility>

#include "media/BlockReader.h"
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
    if (!reading_) Begin();
    const std::string location = row.Location();
    if (upcoming_ == paths_.end() || (*upcoming_).Path() != location) {
      return FactsOf(files_.Status(location), files_.OpenFile(location).get(), row.type, tags_);
    }
    ++upcoming_;
    reading_->Next();
    FileFacts facts = FactsOf(reading_->Status(), reading_->Open(), row.type, tags_);
    reading_->Release();  // its name may be changed now
    return facts;
  }

 private:
  // Not before a file is needed: many patterns need none.
  void Begin() {
    for (int index = 1; index <= list_.Count(); ++index) {
      const FileRow row = list_.Row(index);
      if (list_.IsIn(rows_, index)) paths_.Add(row.folder, row.name);
    }
    upcoming_ = paths_.begin();
    reading_ = files_.ReadInTurn(paths_, [](const PathList::File&) {
      return FileNeeds{.what = FileNeeds::What::kContents, .head = BlockReader::kBlockLength, .statusToo = true};
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
