#include "platform/FilesInTurn.h"

#include <memory>
#include <string>

#include "platform/FileSystem.h"

namespace quillon {
namespace {

/// Reads each file when its turn has come.
class OneByOne final : public FilesInTurn {
 public:
  OneByOne(const PathList& list, FileReads& files) : files_(files), upcoming_(list.begin()) {}

  void Next() override {
    Release();
    (*upcoming_).PathInto(path_);
    ++upcoming_;
  }

  ByteSource* Open() override {
    open_ = files_.OpenFile(path_);
    return open_.get();
  }

  Result<FileStatus, FileError> Status() override { return files_.Status(path_); }

  void Release() override { open_ = nullptr; }

 private:
  FileReads& files_;
  PathList::Iterator upcoming_;
  std::string path_;
  std::unique_ptr<ByteSource> open_;
};

}  // namespace

std::unique_ptr<FilesInTurn> FileReads::ReadInTurn(const PathList& list, const NeedsOf& /*needs*/) {
  return std::make_unique<OneByOne>(list, *this);
}

}  // namespace quillon
