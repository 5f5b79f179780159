#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "platform/FileWorld.h"

namespace quillon::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FileReadsContract : public testing::TestWithParam<WorldKind> {
 protected:
  Result<std::vector<FolderEntry>, FileError> ReadFolder(std::string_view name) {
    return world_->Reads().ReadFolder(world_->At(name));
  }

  std::vector<std::string> NamesRead(std::string_view folder) {
    std::vector<std::string> names;
    const auto entries = ReadFolder(folder);
    EXPECT_TRUE(entries.Ok());
    if (!entries) return names;
    for (const FolderEntry& entry : *entries) names.push_back(entry.name);
    return names;
  }

  FileStatus::Kind KindOf(std::string_view name) {
    const auto status = world_->Reads().Status(world_->At(name));
    EXPECT_TRUE(status.Ok()) << name;
    return status ? status->kind : FileStatus::Kind::kOther;
  }

  std::unique_ptr<FileWorld> world_ = MakeWorld(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Worlds, FileReadsContract,
                         testing::Values(WorldKind::kSystem, WorldKind::kSystemInTurn, WorldKind::kMemoryLinux,
                                         WorldKind::kMemoryLinuxIgnoringCase, WorldKind::kMemoryWindows),
                         [](const auto& row) { return NameOf(row.param); });

TEST_P(FileReadsContract, FoldersAreListedByNameIgnoringCase) {
  for (const char* name :
       {"b.mid", "C.mid", "a.mid", "B2.mid", "_.mid", "ａ.mid", "Ｂ.mid", "あ.mid", "10.mid", "9.mid"}) {
    world_->Write(std::string("folder/") + name, "");
  }
  EXPECT_THAT(NamesRead("folder"), ElementsAre("10.mid", "9.mid", "a.mid", "b.mid", "B2.mid", "C.mid", "_.mid",
                                               "あ.mid", "ａ.mid", "Ｂ.mid"));
}

TEST_P(FileReadsContract, NamesThatOnlyDifferInCaseAreListedByTheirBytes) {
  if (world_->IgnoresCase()) GTEST_SKIP() << "letter case is ignored here";
  for (const char* name : {"folder/b", "folder/B", "folder/a", "folder/A"}) world_->Write(name, "");
  EXPECT_THAT(NamesRead("folder"), ElementsAre("A", "a", "B", "b"));
}

TEST_P(FileReadsContract, EntriesSayWhetherTheyAreFolders) {
  world_->Write("folder/file.mid", "content");
  world_->MakeFolder("folder/inner");
  const auto entries = ReadFolder("folder");
  ASSERT_TRUE(entries.Ok());
  EXPECT_THAT(*entries, ElementsAre(FolderEntry{"file.mid", false, false}, FolderEntry{"inner", true, false}));
}

TEST_P(FileReadsContract, ATrailingSeparatorMakesNoDifference) {
  const std::string folder = world_->MakeFolder("folder");
  world_->Write("folder/file.mid", "");
  const auto entries = world_->Reads().ReadFolder(folder);
  ASSERT_TRUE(entries.Ok());
  EXPECT_EQ(entries->size(), 1U);
}

TEST_P(FileReadsContract, LinksHaveTheirTargetsKindAndDanglingOnesAreLeftOut) {
  world_->Write("target.mid", "content");
  world_->MakeFolder("inner");
  world_->MakeFolder("folder");
  if (!world_->MakeLink("folder/a-file", "target.mid", false)) GTEST_SKIP() << "no links can be made here";
  ASSERT_TRUE(world_->MakeLink("folder/b-folder", "inner", true));
  ASSERT_TRUE(world_->MakeLink("folder/c-nowhere", "absent", false));
  const auto entries = ReadFolder("folder");
  ASSERT_TRUE(entries.Ok());
  EXPECT_THAT(*entries, ElementsAre(FolderEntry{"a-file", false, true}, FolderEntry{"b-folder", true, true}));
}

TEST_P(FileReadsContract, AnEmptyFolderHasNoEntries) {
  world_->MakeFolder("folder");
  EXPECT_THAT(NamesRead("folder"), IsEmpty());
}

TEST_P(FileReadsContract, AMissingFolderIsUnreachable) {
  world_->Write("file.mid", "");
  const std::vector<std::string> folders = {"absent", "absent/inner", "file.mid", std::string("a\0b", 3)};
  for (const std::string& folder : folders) {
    SCOPED_TRACE(folder);
    const auto entries = ReadFolder(folder);
    ASSERT_FALSE(entries.Ok());
    EXPECT_EQ(entries.Failure().number, file_error::kUnreachable);
    EXPECT_NE(entries.Failure().description, "");
  }
}

TEST_P(FileReadsContract, TheRealPathHasNoLinksInIt) {
  world_->MakeFolder("folder/inner");
  if (!world_->MakeLink("link", "folder", true)) GTEST_SKIP() << "no links can be made here";
  const std::string real = world_->Reads().RealPath(world_->At("folder/inner"));
  EXPECT_NE(real, "");
  EXPECT_EQ(world_->Reads().RealPath(world_->At("link/inner")), real);
}

TEST_P(FileReadsContract, TheRealPathOfAnAbsentFolderIsEmpty) {
  EXPECT_EQ(world_->Reads().RealPath(world_->At("absent")), "");
  EXPECT_EQ(world_->Reads().RealPath(world_->At(std::string_view("a\0b", 3))), "");
}

TEST_P(FileReadsContract, FilesAreReadAtAnyPlace) {
  const std::string path = world_->Write("file.mid", "0123456789");
  const std::unique_ptr<ByteSource> file = world_->Reads().OpenFile(path);
  ASSERT_TRUE(file);
  EXPECT_EQ(file->Size(), 10U);
  EXPECT_FALSE(file->IsHiddenOrSystem());
  EXPECT_EQ(file->Read(0, 4), "0123");
  EXPECT_EQ(file->Read(8, 4), "89");
  EXPECT_EQ(file->Read(3, 2), "34") << "back again";
}

TEST_P(FileReadsContract, ReadingBehindTheEndGivesNothing) {
  const std::string path = world_->Write("file.mid", "0123456789");
  const std::unique_ptr<ByteSource> file = world_->Reads().OpenFile(path);
  ASSERT_TRUE(file);
  std::array<char, 4> buffer = {};
  EXPECT_EQ(file->ReadAt(10, buffer.data(), buffer.size()), 0U);
  EXPECT_EQ(file->ReadAt(~std::uint64_t{0}, buffer.data(), buffer.size()), 0U);
  EXPECT_EQ(file->Read(~std::uint64_t{0}, 4), "");
  EXPECT_EQ(file->Read(0, ~std::uint64_t{0}), "0123456789");
}

TEST_P(FileReadsContract, OnlyFilesAreOpened) {
  world_->MakeFolder("folder");
  const std::vector<std::string> names = {"folder", "absent", "absent/file", std::string("a\0b", 3), ""};
  for (const std::string& name : names) {
    SCOPED_TRACE(name);
    EXPECT_FALSE(world_->Reads().OpenFile(world_->At(name)));
  }
}

TEST_P(FileReadsContract, AnOpenFileIsReadThoughItIsRenamedAndDeleted) {
  const std::string path = world_->Write("file.mid", "0123456789");
  const std::unique_ptr<ByteSource> file = world_->Reads().OpenFile(path);
  ASSERT_TRUE(file);
  EXPECT_EQ(world_->Changes().Rename(path, world_->At("other.mid")), std::nullopt);
  EXPECT_EQ(world_->Changes().Remove(world_->At("other.mid")), std::nullopt);
  EXPECT_EQ(file->Read(0, 10), "0123456789");
}

TEST_P(FileReadsContract, TheStatusIsTheEntrysKind) {
  world_->Write("file.mid", "12345");
  world_->MakeFolder("folder");
  const auto status = world_->Reads().Status(world_->At("file.mid"));
  ASSERT_TRUE(status.Ok());
  EXPECT_EQ(status->kind, FileStatus::Kind::kFile);
  EXPECT_EQ(status->length, 5U);
  EXPECT_EQ(KindOf("folder"), FileStatus::Kind::kFolder);
  EXPECT_EQ(KindOf("folder/"), FileStatus::Kind::kFolder);
  EXPECT_EQ(KindOf("absent"), FileStatus::Kind::kAbsent);
  EXPECT_EQ(KindOf("absent/file"), FileStatus::Kind::kAbsent);
  EXPECT_EQ(KindOf("file.mid/inner"), FileStatus::Kind::kAbsent);
}

TEST_P(FileReadsContract, TheStatusFollowsLinks) {
  world_->Write("file.mid", "12345");
  if (!world_->MakeLink("link", "file.mid", false)) GTEST_SKIP() << "no links can be made here";
  ASSERT_TRUE(world_->MakeLink("dangling", "absent", false));
  const auto status = world_->Reads().Status(world_->At("link"));
  ASSERT_TRUE(status.Ok());
  EXPECT_EQ(status->length, 5U);
  EXPECT_EQ(KindOf("dangling"), FileStatus::Kind::kOther) << "its name is taken";
}

TEST_P(FileReadsContract, TheStatusOfAnInvalidNameIsAnError) {
  const std::vector<std::string> names = {std::string(300, 'x'), std::string("a\0b", 3)};
  for (const std::string& name : names) {
    const auto status = world_->Reads().Status(world_->At(name));
    ASSERT_FALSE(status.Ok());
    EXPECT_EQ(status.Failure().number, file_error::kNotFound);
  }
}

TEST_P(FileReadsContract, AFileIsTheSameByEveryName) {
  world_->Write("file.mid", "content");
  world_->Write("equal.mid", "content");
  FileReads& reads = world_->Reads();
  EXPECT_TRUE(reads.SameFile(world_->At("file.mid"), world_->At("file.mid")));
  EXPECT_TRUE(reads.SameFile(world_->At("file.mid"), world_->At("./file.mid")));
  EXPECT_FALSE(reads.SameFile(world_->At("file.mid"), world_->At("equal.mid")));
  EXPECT_FALSE(reads.SameFile(world_->At("absent"), world_->At("absent")));
  EXPECT_EQ(reads.SameFile(world_->At("file.mid"), world_->At("FILE.mid")), world_->IgnoresCase());
}

TEST_P(FileReadsContract, AFileKeepsItsIdentityWhenItIsRenamed) {
  world_->Write("one.mid", "content");
  world_->Write("other.mid", "content");
  world_->MakeFolder("folder");
  FileReads& reads = world_->Reads();
  const auto before = reads.Identity(world_->At("one.mid"));
  const auto other = reads.Identity(world_->At("other.mid"));
  ASSERT_TRUE(before.Ok());
  ASSERT_TRUE(other.Ok());
  EXPECT_EQ(before->size, 7U);
  EXPECT_NE(before->file, other->file);
  EXPECT_EQ(before->device, other->device);
  ASSERT_TRUE(world_->Changes().Move(world_->At("one.mid"), world_->At("folder/new.mid")));
  EXPECT_EQ(reads.Identity(world_->At("folder/new.mid")), before);
}

TEST_P(FileReadsContract, ANewContentChangesTheIdentity) {
  world_->Write("one.mid", "content");
  const auto before = world_->Reads().Identity(world_->At("one.mid"));
  world_->Write("one.mid", "longer content");
  EXPECT_NE(world_->Reads().Identity(world_->At("one.mid")), before);
}

TEST_P(FileReadsContract, ALinkHasAnIdentityOfItsOwn) {
  world_->Write("file.mid", "content");
  if (!world_->MakeLink("link", "file.mid", false)) GTEST_SKIP() << "no links can be made here";
  ASSERT_TRUE(world_->MakeLink("dangling", "absent", false));
  const auto link = world_->Reads().Identity(world_->At("link"));
  const auto file = world_->Reads().Identity(world_->At("file.mid"));
  ASSERT_TRUE(link.Ok());
  ASSERT_TRUE(file.Ok());
  EXPECT_NE(link->file, file->file);
  EXPECT_TRUE(world_->Reads().Identity(world_->At("dangling")).Ok());
}

TEST_P(FileReadsContract, WhatIsAbsentHasNoIdentity) {
  const std::vector<std::string> names = {"absent", "absent/file", std::string("a\0b", 3)};
  for (const std::string& name : names) {
    SCOPED_TRACE(name);
    const auto identity = world_->Reads().Identity(world_->At(name));
    ASSERT_FALSE(identity.Ok());
    EXPECT_EQ(identity.Failure().number, file_error::kNotFound);
  }
}

TEST_P(FileReadsContract, AFileIsTheSameBehindLinks) {
  world_->Write("file.mid", "content");
  if (!world_->MakeLink("link", "file.mid", false)) GTEST_SKIP() << "no links can be made here";
  EXPECT_TRUE(world_->Reads().SameFile(world_->At("link"), world_->At("file.mid")));
}

}  // namespace
}  // namespace quillon::test
