#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/FileWorld.h"
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

TEST(WholeFile, IsReadWhole) {
  const TempFolder folder;
  const std::string bytes("a\0\r\n\xFF曲", 8);
  EXPECT_EQ(ReadWholeFile(folder.Write("file", bytes)), bytes);
  EXPECT_EQ(ReadWholeFile(folder.Write("empty", "")), "");
}

TEST(WholeFile, WhatIsNoFileIsNotRead) {
  const TempFolder folder;
  EXPECT_EQ(ReadWholeFile(folder.At("absent")), std::nullopt);
  EXPECT_EQ(ReadWholeFile(folder.Path()), std::nullopt);
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

TEST(WholeFile, FoldersOnTheWayAreMade) {
  const TempFolder folder;
  EXPECT_EQ(ReplaceWholeFile(folder.At("a/b/c/file.ini"), "content"), std::nullopt);
  EXPECT_EQ(folder.Read("a/b/c/file.ini"), "content");
}

TEST(WholeFile, AFileCannotBeAFolderOnTheWay) {
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

TEST(WholeFile, APathThatCannotBeHeldIsAnError) {
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

TEST(WholeFile, ALinkToAFileThatIsNotThereYetIsFollowed) {
  const auto world = MakeWorld(WorldKind::kSystem);
  world->MakeFolder("real");
  if (!world->MakeLink("link.ini", "real/file.ini", false)) GTEST_SKIP() << "no links can be made here";
  EXPECT_EQ(ReplaceWholeFile(world->At("link.ini"), "new"), std::nullopt);
  EXPECT_EQ(world->Read("real/file.ini"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(world->At("link.ini")));
}

TEST(WholeFile, OnlyFoldersThatTakeFilesCanBeWritten) {
  const TempFolder folder;
  folder.Write("file", "content");
  EXPECT_TRUE(CanWriteFolder(folder.Path()));
  EXPECT_TRUE(CanWriteFolder(folder.Path().substr(0, folder.Path().size() - 1)));
  EXPECT_FALSE(CanWriteFolder(folder.At("absent")));
  EXPECT_FALSE(CanWriteFolder(folder.At("file")));
  EXPECT_FALSE(CanWriteFolder(""));
  EXPECT_EQ(NamesIn(folder.Path()), Names{"file"}) << "the question leaves nothing behind";
}

}  // namespace
}  // namespace quillon::test
