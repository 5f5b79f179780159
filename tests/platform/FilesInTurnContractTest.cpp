#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "base/Finally.h"
#include "platform/FileWorld.h"
#include "support/Paths.h"

namespace quillon::test {
namespace {

using What = FileNeeds::What;

/// The same answers are expected of FileReads, one file at a time, and of ReadInTurn.
class FilesInTurnContract : public testing::TestWithParam<WorldKind> {
 protected:
  /// Files of several folders, and what is no file, in a mixed order.
  std::vector<std::string> MakeFiles() {
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < 60; ++i) {
      const std::string folder = "folder " + std::to_string(i / 12) + "/";
      const std::size_t length = std::array<std::size_t, 6>{0, 1, 100, 2048, 2049, 70000}.at(i % 6);
      std::string bytes(length, 'x');
      for (std::size_t at = 0; at < length; ++at) bytes[at] = static_cast<char>('a' + (at * 7 + i) % 23);
      paths.push_back(world_->Write(folder + "file " + std::to_string(i) + ".mid", bytes));
      if (i % 5 == 0) paths.push_back(world_->At(folder + "absent " + std::to_string(i)));
      if (i % 7 == 0) paths.push_back(world_->MakeFolder(folder + "inner " + std::to_string(i)));
      if (i % 11 == 0) paths.push_back(world_->At("no folder/file"));
      if (i % 13 == 0) paths.push_back(world_->At(folder + std::string("a\0b", 3)));
    }
    paths.push_back(world_->At("folder 0/file 0.mid"));
    paths.push_back(world_->At("folder 0/file 1.mid/file"));
    return paths;
  }

  void ExpectSame(FilesInTurn& reading, const std::string& path) {
    SCOPED_TRACE(path);
    FileReads& reads = world_->Reads();
    const std::unique_ptr<ByteSource> expected = reads.OpenFile(path);
    ByteSource* const open = reading.Open();
    ASSERT_EQ(open != nullptr, expected != nullptr);
    if (open != nullptr) {
      EXPECT_EQ(open->Size(), expected->Size());
      EXPECT_EQ(open->IsHiddenOrSystem(), expected->IsHiddenOrSystem());
      for (const std::uint64_t from : {0U, 1U, 5U, 2000U, 2048U, 69990U, 80000U}) {
        for (const std::uint64_t count : {1U, 128U, 2048U, 100000U}) {
          EXPECT_EQ(open->Read(from, count), expected->Read(from, count)) << from << " " << count;
        }
      }
      const std::uint64_t tail = open->Size() - std::min<std::uint64_t>(128, open->Size());
      EXPECT_EQ(open->Read(tail, 128), expected->Read(tail, 128));
    }
    const auto status = reading.Status();
    const auto expectedStatus = reads.Status(path);
    ASSERT_EQ(status.Ok(), expectedStatus.Ok());
    if (!status) {
      EXPECT_EQ(status.Failure(), expectedStatus.Failure());
    } else {
      EXPECT_EQ(status->kind, expectedStatus->kind);
      EXPECT_EQ(status->length, expectedStatus->length);
      EXPECT_EQ(status->modified, expectedStatus->modified);
    }
  }

  std::unique_ptr<FileWorld> world_ = MakeWorld(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Worlds, FilesInTurnContract,
                         testing::Values(WorldKind::kSystem, WorldKind::kSystemInTurn, WorldKind::kMemoryLinux,
                                         WorldKind::kMemoryWindows),
                         [](const auto& row) { return NameOf(row.param); });

TEST_P(FilesInTurnContract, AnswersAsForSingleFiles) {
  const std::vector<std::string> paths = MakeFiles();
  const PathList list = ListOf(paths, world_->Style());
  const std::vector<FileNeeds> all = {{What::kNothing},
                                      {What::kStatus},
                                      {What::kContents, 2048},
                                      {What::kContents, 2048, 128, "abc"},
                                      {What::kContents, 70000}};
  for (const FileNeeds& needs : all) {
    const auto reading = world_->Reads().ReadInTurn(list, [&](const PathList::File&) { return needs; });
    for (const std::string& path : paths) {
      reading->Next();
      ExpectSame(*reading, path);
    }
  }
}

TEST_P(FilesInTurnContract, LinksAreFollowed) {
  const std::string target = world_->Write("there/target.mid", "content");
  if (!world_->MakeLink("link 0", "there/target.mid", false)) GTEST_SKIP() << "no links can be made here";
  std::vector<std::string> paths = {world_->At("link 0")};
  for (int i = 1; i < 12; ++i) {
    const std::string name = "link " + std::to_string(i);
    ASSERT_TRUE(world_->MakeLink(name, i % 2 == 0 ? "there/target.mid" : "nowhere", false));
    paths.push_back(world_->At(name));
  }
  const PathList list = ListOf(paths, world_->Style());
  for (const What what : {What::kStatus, What::kContents}) {
    const auto reading = world_->Reads().ReadInTurn(list, [&](const PathList::File&) { return FileNeeds{what, 2048}; });
    for (const std::string& path : paths) {
      reading->Next();
      ExpectSame(*reading, path);
    }
  }
}

TEST_P(FilesInTurnContract, FewFilesAndNone) {
  const auto needs = [](const PathList::File&) { return FileNeeds{What::kContents, 2048}; };
  const PathList none;
  EXPECT_TRUE(world_->Reads().ReadInTurn(none, needs));
  const std::string path = world_->Write("file.mid", "content");
  const PathList one = ListOf({path}, world_->Style());
  const auto reading = world_->Reads().ReadInTurn(one, needs);
  reading->Next();
  ExpectSame(*reading, path);
}

class FilesInTurnRaces : public FilesInTurnContract {};

INSTANTIATE_TEST_SUITE_P(Worlds, FilesInTurnRaces, testing::Values(WorldKind::kSystem, WorldKind::kSystemInTurn),
                         [](const auto& row) { return NameOf(row.param); });

/// Files that change while they are read: each is read as one of its contents, or not at all.
TEST_P(FilesInTurnRaces, FilesThatChangeMeanwhileAreReadAsTheyWereAtSomeTime) {
  const std::string shorter(100, 's');
  const std::string longer(5000, 'l');
  std::vector<std::string> names;
  std::vector<std::string> paths;
  for (int i = 0; i < 400; ++i) {
    names.push_back("folder " + std::to_string(i / 50) + "/" + std::to_string(i));
    paths.push_back(world_->Write(names.back(), shorter));
  }
  const PathList list = ListOf(paths, world_->Style());
  std::atomic<bool> ends = false;
  std::thread other([&] {
    for (std::size_t i = 0; !ends; ++i) {
      const std::string& name = names[i * 37 % names.size()];
      const std::string& path = paths[i * 37 % names.size()];
      switch (i % 3) {
        case 0: world_->Write(name, longer); break;
        case 1: static_cast<void>(world_->Changes().Remove(path)); break;
        default: world_->Write(name, shorter);
      }
    }
  });
  const Finally ended([&] {
    ends = true;
    other.join();
  });
  for (int round = 0; round < 3; ++round) {
    const auto reading = world_->Reads().ReadInTurn(list, [](const PathList::File&) {
      return FileNeeds{What::kContents, 2048, 128};
    });
    for (std::size_t i = 0; i < paths.size(); ++i) {
      reading->Next();
      ByteSource* const open = reading->Open();
      if (open == nullptr) continue;
      ASSERT_LE(open->Size(), longer.size());
      const std::string bytes = open->Read(0, longer.size());
      ASSERT_LE(bytes.size(), open->Size());
      // Written over in place, a file may be seen half-way.
      ASSERT_EQ(bytes.find_first_not_of(std::string("sl\0", 3)), std::string::npos);
    }
  }
}

}  // namespace
}  // namespace quillon::test
