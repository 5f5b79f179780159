#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <limits>
#include <optional>
#include <string>

#include "platform/ContentOf.h"
#include "platform/FileWorld.h"
#include "platform/TemporaryMark.h"
#include "platform/TemporaryName.h"
#include "platform/WholeFile.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

// The names of a folder's entries, in order.
std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  const auto entries = MakeFileReads()->ReadFolder(folder);
  EXPECT_TRUE(entries.Ok());
  if (!entries) return names;
  for (const FolderEntry& entry : *entries) names.push_back(entry.name);
  return names;
}

using Names = std::vector<std::string>;

// The reason why a file of any size cannot be read; nullopt on success.
std::optional<ReadFailure> FailureOf(const std::string& path) {
  const Result<std::string, ReadFailure> read = ReadWholeFile(path, std::numeric_limits<std::uint64_t>::max());
  return read ? std::nullopt : std::optional(read.Failure());
}

TEST(WholeFile, IsReadWhole) {
  const TempFolder folder;
  const std::string bytes("a\0\r\n\xFF曲", 8);
  EXPECT_EQ(ContentOf(folder.Write("file", bytes)), bytes);
  EXPECT_EQ(ContentOf(folder.Write("empty", "")), "");
}

TEST(WholeFile, AMissingFileIsDistinguishedFromAnUnreadableOne) {
  const TempFolder folder;
  folder.Write("file", "content");
  EXPECT_EQ(FailureOf(folder.At("absent")), ReadFailure::kAbsent);
  EXPECT_EQ(FailureOf(folder.At("no/such/folder")), ReadFailure::kAbsent);
  EXPECT_EQ(FailureOf(folder.At("file/in a file")), ReadFailure::kAbsent);
  EXPECT_EQ(FailureOf(folder.MakeFolder("folder")), ReadFailure::kUnreadable);
  EXPECT_EQ(FailureOf(folder.At("folder")), ReadFailure::kUnreadable);
  EXPECT_EQ(FailureOf(std::string("a\0b", 3)), ReadFailure::kUnreadable);
}

TEST(WholeFile, ADanglingLinkIsAbsent) {
  const auto world = MakeWorld(WorldKind::kSystem);
  if (!world->MakeLink("link.ini", "absent.ini", false)) GTEST_SKIP() << "no links can be made here";
  EXPECT_EQ(FailureOf(world->At("link.ini")), ReadFailure::kAbsent);
}

TEST(WholeFile, ALargerFileIsNotRead) {
  const TempFolder folder;
  const std::string path = folder.Write("file", "0123456789");
  const Result<std::string, ReadFailure> fits = ReadWholeFile(path, 10);
  ASSERT_TRUE(fits);
  EXPECT_EQ(*fits, "0123456789");
  const Result<std::string, ReadFailure> larger = ReadWholeFile(path, 9);
  ASSERT_FALSE(larger);
  EXPECT_EQ(larger.Failure(), ReadFailure::kTooLarge);
}

/// A file that returns fewer bytes than its size.
class FailingFile final : public ByteSource {
 public:
  FailingFile(std::uint64_t size, std::size_t given) : size_(size), given_(given) {}
  [[nodiscard]] std::uint64_t Size() const override { return size_; }
  std::size_t ReadAt(std::uint64_t /*offset*/, char* /*into*/, std::size_t count) override {
    asked = count;
    return std::min(count, given_);
  }

  std::size_t asked = 0;

 private:
  std::uint64_t size_;
  std::size_t given_;
};

TEST(WholeFile, AnEarlyEndIsAnError) {
  for (const std::size_t given : {0U, 9U}) {
    FailingFile file(10, given);
    const Result<std::string, ReadFailure> read = ReadWhole(file, 10);
    ASSERT_FALSE(read);
    EXPECT_EQ(read.Failure(), ReadFailure::kUnreadable);
  }
}

TEST(WholeFile, NothingIsRequestedFromALargerFile) {
  FailingFile file(11, 11);
  EXPECT_FALSE(ReadWhole(file, 10));
  EXPECT_EQ(file.asked, 0U);
}

TEST(WholeFile, ANewFileIsWritten) {
  const TempFolder folder;
  EXPECT_EQ(ReplaceWholeFile(folder.At("設定.ini"), "content"), std::nullopt);
  EXPECT_EQ(folder.Read("設定.ini"), "content");
  EXPECT_EQ(NamesIn(folder.Path()), Names{"設定.ini"}) << "and no temporary file";
}

TEST(WholeFile, AnOldFileIsReplacedByShorterAndLongerContent) {
  const TempFolder folder;
  const std::string path = folder.Write("file.ini", "the old content");
  const std::string large(3 << 20, 'x');
  for (const std::string& bytes : {std::string("new"), std::string(), large, std::string("a\0b", 3)}) {
    EXPECT_EQ(ReplaceWholeFile(path, bytes), std::nullopt);
    EXPECT_EQ(folder.Read("file.ini"), bytes);
    EXPECT_EQ(NamesIn(folder.Path()), Names{"file.ini"});
  }
}

TEST(WholeFile, MissingFoldersAreCreated) {
  const TempFolder folder;
  EXPECT_EQ(ReplaceWholeFile(folder.At("a/b/c/file.ini"), "content"), std::nullopt);
  EXPECT_EQ(folder.Read("a/b/c/file.ini"), "content");
}

TEST(WholeFile, AFileInsteadOfAParentFolderIsAnError) {
  const TempFolder folder;
  folder.Write("a", "content");
  const FileOutcome outcome = ReplaceWholeFile(folder.At("a/b/file.ini"), "new");
  ASSERT_TRUE(outcome);
  EXPECT_EQ(folder.Read("a"), "content");
}

TEST(WholeFile, AFolderIsNotReplaced) {
  const TempFolder folder;
  folder.MakeFolder("file.ini");
  const FileOutcome outcome = ReplaceWholeFile(folder.At("file.ini"), "new");
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->number, file_error::kAccess);
  EXPECT_EQ(NamesIn(folder.Path()), Names{"file.ini"});
}

TEST(WholeFile, AnInvalidPathIsAnError) {
  const FileOutcome outcome = ReplaceWholeFile(std::string("a\0b", 3), "new");
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->number, file_error::kNotFound);
}

TEST(WholeFile, ALinkIsFollowedAndStays) {
  const auto world = MakeWorld(WorldKind::kSystem);
  world->Write("real/file.ini", "old");
  if (!world->MakeLink("link.ini", "real/file.ini", false)) GTEST_SKIP() << "no links can be made here";
  EXPECT_EQ(ReplaceWholeFile(world->At("link.ini"), "new"), std::nullopt);
  EXPECT_EQ(world->Read("real/file.ini"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(world->At("link.ini")));
  EXPECT_EQ(world->Names("real"), Names{"file.ini"});
}

TEST(WholeFile, ADanglingLinkIsFollowed) {
  const auto world = MakeWorld(WorldKind::kSystem);
  world->MakeFolder("real");
  if (!world->MakeLink("link.ini", "real/file.ini", false)) GTEST_SKIP() << "no links can be made here";
  EXPECT_EQ(ReplaceWholeFile(world->At("link.ini"), "new"), std::nullopt);
  EXPECT_EQ(world->Read("real/file.ini"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(world->At("link.ini")));
}

TEST(WholeFile, CanWriteOnlyFoldersThatAcceptFiles) {
  const TempFolder folder;
  folder.Write("file", "content");
  EXPECT_TRUE(CanWriteFolder(folder.Path()));
  EXPECT_TRUE(CanWriteFolder(folder.Path().substr(0, folder.Path().size() - 1)));
  EXPECT_FALSE(CanWriteFolder(folder.At("absent")));
  EXPECT_FALSE(CanWriteFolder(folder.At("file")));
  EXPECT_FALSE(CanWriteFolder(""));
  EXPECT_EQ(NamesIn(folder.Path()), Names{"file"}) << "the question leaves nothing behind";
}

TEST(WholeFile, LeftoversOfAKilledSaveAreDeletedByTheNextOne) {
  const TempFolder folder;
  const std::string path = folder.Write("file.ini", "old");
  const std::string name = ".quillon-0123456789ab";
  folder.Write(name, "half");
  folder.Write(MarkName(name), kMarkText);
  std::filesystem::last_write_time(folder.At(MarkName(name)),
                                   std::filesystem::file_time_type::clock::now() - std::chrono::hours(25));
  EXPECT_EQ(ReplaceWholeFile(path, "new"), std::nullopt);
  EXPECT_EQ(folder.Read("file.ini"), "new");
  EXPECT_FALSE(folder.Exists(name));
  EXPECT_FALSE(folder.Exists(MarkName(name)));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1) << "and it leaves nothing itself";
}

}  // namespace
}  // namespace quillon::test
