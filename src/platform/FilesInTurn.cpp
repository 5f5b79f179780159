#include "platform/FilesInTurn.h"

#include <memory>
#include <string>
#include <utility>

#include "platform/FileOpener.h"
#include "platform/FileSystem.h"

namespace quillon {
namespace {

class FilesByPath final : public FileOpener {
 public:
  explicit FilesByPath(FileReads& files) : files_(files) {}

  Opened Open(const PathList::File& file) override {
    file.PathInto(path_);
    return {files_.OpenFile(path_)};
  }

  Result<FileStatus, FileError> Status(const PathList::File& file) override {
    file.PathInto(path_);
    return files_.Status(path_);
  }

 private:
  FileReads& files_;
  std::string path_;
};

/// Reads each file when its turn has come.
class OneByOne final : public FilesInTurn {
 public:
  OneByOne(const PathList& list, std::unique_ptr<FileOpener> opener)
      : opener_(std::move(opener)), upcoming_(list.begin()) {}

  void Next() override {
    open_ = nullptr;
    file_ = *upcoming_;
    ++upcoming_;
  }

  ByteSource* Open() override {
    open_ = opener_->Open(file_).file;
    return open_.get();
  }

  Result<FileStatus, FileError> Status() override { return opener_->Status(file_); }

 private:
  std::unique_ptr<FileOpener> opener_;
  PathList::Iterator upcoming_;
  PathList::File file_;
  std::unique_ptr<ByteSource> open_;
};

}  // namespace

std::unique_ptr<FilesInTurn> MakeOneByOne(const PathList& list, std::unique_ptr<FileOpener> opener) {
  return std::make_unique<OneByOne>(list, std::move(opener));
}

std::unique_ptr<FilesInTurn> FileReads::ReadInTurn(const PathList& list, const NeedsOf& /*needs*/) {
  return MakeOneByOne(list, std::make_unique<FilesByPath>(*this));
}

}  // namespace quillon
