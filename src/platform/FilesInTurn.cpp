#include "platform/FilesInTurn.h"

#include "platform/FileSystem.h"

namespace quillon {
namespace {

/// Each file is opened when its turn has come.
class FilesWithoutForecast final : public FilesInTurn {
 public:
  FilesWithoutForecast(FileReads& files, const PathList& list) : files_(files), next_(list.begin()) {}

  void Next() override {
    open_ = nullptr;
    (*next_).PathInto(path_);
    ++next_;
  }

  ByteSource* Open() override {
    open_ = files_.OpenFile(path_);
    return open_.get();
  }

  Result<FileStatus, FileError> Status() override { return files_.Status(path_); }

 private:
  FileReads& files_;
  PathList::Iterator next_;
  std::string path_;
  std::unique_ptr<ByteSource> open_;
};

}  // namespace

std::unique_ptr<FilesInTurn> FileReads::ReadInTurn(const PathList& list, NeedsOf /*needs*/) {
  return std::make_unique<FilesWithoutForecast>(*this, list);
}

}  // namespace quillon
