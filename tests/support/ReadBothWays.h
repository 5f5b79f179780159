#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "platform/PreparedFile.h"
#include "support/MediaBuilders.h"

namespace quillon::test {

/// Opens a file that another object owns.
class OpenerOf final : public FileOpener {
 public:
  explicit OpenerOf(ByteSource& file) : file_(file) {}

  [[nodiscard]] Opened Open(const PathList::File& /*file*/) override { return {std::make_unique<Lent>(file_)}; }
  [[nodiscard]] Result<FileStatus, FileError> Status(const PathList::File& /*file*/) override {
    return FileStatus{.kind = FileStatus::Kind::kFile, .length = file_.Size()};
  }

 private:
  class Lent final : public ByteSource {
   public:
    explicit Lent(ByteSource& file) : file_(file) {}
    [[nodiscard]] std::uint64_t Size() const override { return file_.Size(); }
    [[nodiscard]] bool IsHiddenOrSystem() const override { return file_.IsHiddenOrSystem(); }
    std::size_t ReadAt(std::uint64_t offset, char* into, std::size_t count) override {
      return file_.ReadAt(offset, into, count);
    }

   private:
    ByteSource& file_;
  };

  ByteSource& file_;
};

/// `read` of this file, which may not give anything else when what the program needs of it has been read ahead.
template <class Read>
auto ReadBothWays(ByteSource& file, const FileNeeds& needs, Read read) {
  auto direct = read(file);
  if (needs.what != FileNeeds::What::kContents) return direct;
  OpenerOf opener(file);
  PreparedFile ahead;
  ahead.Prepare(opener, {}, needs);
  EXPECT_TRUE(ahead.IsOpen());
  EXPECT_EQ(read(ahead), direct) << "read ahead";
  return direct;
}

/// The same for a file with these bytes.
template <class Read>
auto ReadBothWays(const std::string& bytes, const FileNeeds& needs, Read read) {
  MemorySource file(bytes);
  return ReadBothWays(file, needs, read);
}

}  // namespace quillon::test
