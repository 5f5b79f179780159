#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <string>

#include "platform/FileSystem.h"
#include "platform/linux/ChildProcess.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

FileNeeds Contents(const PathList::File&) {
  return {FileNeeds::What::kContents, 2048};
}

/// Folders in folders, until their path and a name of the longest kind are too long for the system. Returns the path.
std::string DeepFolder(const TempFolder& top) {
  const std::string name(200, 'd');
  std::string path = top.Path();
  int folder = ::open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
  while (path.size() + name.size() + 1 < PATH_MAX - 20) {
    ::mkdirat(folder, name.c_str(), 0700);
    const int below = ::openat(folder, name.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    ::close(folder);
    folder = below;
    path += name + "/";
  }
  for (int i = 0; i < 20; ++i) {
    const std::string file = std::to_string(100 + i) + std::string(240, 'f');
    ::close(::openat(folder, file.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
  }
  ::close(folder);
  return path;
}

TEST(FilesInTurnOnLinux, APathThatIsTooLongLeadsNowhereThoughItsFolderCanBeOpened) {
  const TempFolder top;
  const std::string folder = DeepFolder(top);
  PathList list;
  for (int i = 0; i < 20; ++i) list.Add(folder, std::to_string(100 + i) + std::string(240, 'f'));
  for (const bool ahead : {true, false}) {
    const auto files = MakeFileReads({.readAhead = ahead});
    ASSERT_TRUE(files->ReadFolder(folder).Ok());
    const auto reading = files->ReadInTurn(list, Contents);
    for (std::size_t i = 0; i < list.size(); ++i) {
      reading->Next();
      EXPECT_FALSE(reading->Open());
      const auto status = reading->Status();
      ASSERT_FALSE(status.Ok());
      EXPECT_EQ(status.Failure().number, file_error::kNotFound);
    }
  }
}

class FewDescriptors : public testing::TestWithParam<rlim_t> {};
INSTANTIATE_TEST_SUITE_P(Limits, FewDescriptors, testing::Values(12, 16, 24, 48, 64, 80));

PathList WriteFiles(const TempFolder& folder) {
  PathList list;
  for (int i = 0; i < 500; ++i) {
    folder.Write(std::to_string(i), std::string(5000, 'x'));
    list.Add(folder.Path(), std::to_string(i));
  }
  return list;
}

/// How many of the files can be opened and read.
int ReadFiles(const PathList& list) {
  const auto files = MakeFileReads();
  const auto reading = files->ReadInTurn(list, Contents);
  int opened = 0;
  for (std::size_t i = 0; i < list.size(); ++i) {
    reading->Next();
    ByteSource* const open = reading->Open();
    if (open != nullptr && open->Read(3000, 10) == "xxxxxxxxxx") ++opened;
  }
  return opened;
}

TEST_P(FewDescriptors, AreEnough) {
  const TempFolder folder;
  const PathList list = WriteFiles(folder);
  rlimit before = {};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
  rlimit few = before;
  few.rlim_cur = GetParam();
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
  const int opened = ReadFiles(list);
  ::setrlimit(RLIMIT_NOFILE, &before);
  EXPECT_EQ(opened, 500);
}

TEST(FilesInTurnOnLinux, NothingIsMissingWhenOtherFilesHaveTakenTheDescriptors) {
  const TempFolder folder;
  const PathList list = WriteFiles(folder);
  const int result = RunInChild([&] {
    const rlimit limit = {80, 80};
    if (::setrlimit(RLIMIT_NOFILE, &limit) != 0) return kCannotSetUp;
    int last = -1;
    for (int taken = 0; taken >= 0; taken = ::open("/dev/null", O_RDONLY | O_CLOEXEC)) last = std::max(last, taken);
    for (int i = 0; i < 4; ++i) ::close(last - i);
    return ReadFiles(list) == 500 ? 0 : 1;
  });
  EXPECT_EQ(result, 0);
}

}  // namespace
}  // namespace quillon::test
