#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/ContentOf.h"
#include "platform/FileSystem.h"
#include "platform/WholeFile.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

using testing::ElementsAre;

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  const auto entries = MakeFileReads()->ReadFolder(folder);
  EXPECT_TRUE(entries.Ok());
  if (!entries) return names;
  for (const FolderEntry& entry : *entries) names.push_back(entry.name);
  return names;
}

TEST(FileNames, BytesThatAreNotUtf8AreKeptByteForByte) {
  const TempFolder folder;
  const std::string shiftJis = "\x8B\xC8\x96\xBC.mid";
  const std::string other = "\xFF\x80 x.mid";
  EXPECT_EQ(ReplaceWholeFile(folder.Path() + shiftJis, "content"), std::nullopt);
  EXPECT_THAT(NamesIn(folder.Path()), ElementsAre(shiftJis));
  EXPECT_EQ(MakeFileChanges()->Rename(folder.Path() + shiftJis, folder.Path() + other), std::nullopt);
  EXPECT_THAT(NamesIn(folder.Path()), ElementsAre(other));
  EXPECT_EQ(ContentOf(folder.Path() + other), "content");
  EXPECT_EQ(FullPath(folder.Path() + other), folder.Path() + other);
  EXPECT_EQ(MakeFileChanges()->Remove(folder.Path() + other), std::nullopt);
}

TEST(FileNames, SignsThatWindowsForbidsAreOrdinary) {
  const TempFolder folder;
  for (const char* name : {"a\\b", "a:b", "a?b*", "a\nb", "CON", "a|b\"<>"}) {
    SCOPED_TRACE(name);
    const std::string old = folder.Write("old", "content");
    EXPECT_EQ(MakeFileChanges()->Rename(old, folder.Path() + name), std::nullopt);
    EXPECT_EQ(ContentOf(folder.Path() + name), "content");
  }
}

TEST(FileNames, APathWithANulIsNotThatOfTheFileBeforeIt) {
  const TempFolder folder;
  const std::string file = folder.Write("a.mid", "");
  const std::string path = file + std::string("\0b", 2);
  EXPECT_TRUE(MakeFileChanges()->Remove(path));
  EXPECT_TRUE(MakeFileChanges()->Rename(path, folder.At("b.mid")));
  EXPECT_NE(MakeFileChanges()->Recycle(path, 0), 0);
  EXPECT_FALSE(OpenSystemFile(path));
  EXPECT_TRUE(folder.Exists("a.mid"));
}

TEST(FileIdentityOnLinux, TellsTwoTimesWithinASecondApart) {
  const TempFolder folder;
  const std::string path = folder.Write("a.mid", "a");
  std::vector<std::int64_t> modified;
  for (const long nanoseconds : {1L, 2L}) {
    const std::array<timespec, 2> times = {timespec{1'600'000'000, nanoseconds}, timespec{1'600'000'000, nanoseconds}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times.data(), 0), 0);
    const auto identity = MakeFileReads()->Identity(path);
    ASSERT_TRUE(identity.Ok());
    modified.push_back(identity->modified);
  }
  EXPECT_EQ(modified[1] - modified[0], 1);
}

TEST(FileNames, PipesAndDevicesAreNeverOpened) {
  const TempFolder folder;
  ASSERT_EQ(::mkfifo(folder.At("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(OpenSystemFile(folder.At("pipe"))) << "and nobody waits for a writer";
  EXPECT_FALSE(OpenSystemFile("/dev/null"));
  EXPECT_FALSE(OpenSystemFile("/dev/tty"));
}

TEST(FileNames, PipesAreNeitherListedNorFiles) {
  const TempFolder folder;
  ASSERT_EQ(::mkfifo(folder.At("a-pipe").c_str(), 0600), 0);
  ASSERT_EQ(::symlink("a-pipe", folder.At("b-link").c_str()), 0);
  ASSERT_EQ(::symlink("c-loop", folder.At("c-loop").c_str()), 0);
  folder.Write("d-file", "");
  EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("d-file"));
  const auto status = MakeFileReads()->Status(folder.At("a-pipe"));
  ASSERT_TRUE(status.Ok());
  EXPECT_EQ(status->kind, FileStatus::Kind::kOther);
}

TEST(FileNames, CircularLinksAreASpecificError) {
  const TempFolder folder;
  ASSERT_EQ(::symlink("loop", folder.At("loop").c_str()), 0);
  const auto status = MakeFileReads()->Status(folder.At("loop"));
  ASSERT_FALSE(status.Ok());
  EXPECT_GT(status.Failure().number, file_error::kOwn);
  EXPECT_FALSE(OpenSystemFile(folder.At("loop")));
}

TEST(FileNames, AFileThatShrinksIsReadToItsNewEnd) {
  const TempFolder folder;
  const std::string path = folder.Write("file", "0123456789");
  const auto file = OpenSystemFile(path);
  ASSERT_TRUE(file);
  ASSERT_EQ(::truncate(path.c_str(), 4), 0);
  EXPECT_EQ(file->Read(0, 10), "0123");
}

}  // namespace
}  // namespace quillon::test
