#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <cerrno>
#include <csignal>
#include <string>

#include "platform/FileSystem.h"
#include "platform/WholeFile.h"
#include "platform/linux/ChildProcess.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

int NumberOf(const FileOutcome& outcome) {
  return outcome ? outcome->number : 0;
}

mode_t ModeOf(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0);
  return status.st_mode & 07777u;
}

/// A folder with a file that an ordinary user may read but not change.
class Permissions : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(::chmod(folder_.Path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(folder_.At("locked").c_str(), 0555), 0);
  }
  void TearDown() override { ::chmod(folder_.At("locked").c_str(), 0755); }

  TempFolder folder_;
  std::string file_ = folder_.Write("locked/file", "content");
};

TEST_F(Permissions, ALockedFolderRefusesChanges) {
  const int rename =
      RunAsOrdinaryUser([&] { return NumberOf(MakeFileChanges()->Rename(file_, folder_.At("locked/new"))); });
  EXPECT_EQ(rename, file_error::kAccess);
  EXPECT_EQ(RunAsOrdinaryUser([&] { return NumberOf(MakeFileChanges()->Remove(file_)); }), file_error::kAccess);
  EXPECT_EQ(RunAsOrdinaryUser([&] { return CanWriteFolder(folder_.At("locked")) ? 1 : 0; }), 0);
  EXPECT_EQ(folder_.Read("locked/file"), "content");
}

TEST_F(Permissions, AFolderThatMayNotBeReadIsAnAccessError) {
  ASSERT_EQ(::chmod(folder_.At("locked").c_str(), 0), 0);
  const auto read = [&] {
    const auto entries = MakeFileReads()->ReadFolder(folder_.At("locked"));
    return entries ? 0 : entries.Failure().number;
  };
  const auto status = [&] {
    const auto found = MakeFileReads()->Status(file_);
    return found ? 0 : found.Failure().number;
  };
  EXPECT_EQ(RunAsOrdinaryUser(read), file_error::kAccess);
  EXPECT_EQ(RunAsOrdinaryUser(status), file_error::kAccess);
}

TEST_F(Permissions, AReadOnlyFileIsNotReplaced) {
  const std::string path = folder_.Write("open/file", "old");
  ASSERT_EQ(::chmod(folder_.At("open").c_str(), 0777), 0);
  ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
  EXPECT_EQ(RunAsOrdinaryUser([&] { return NumberOf(ReplaceWholeFile(path, "new")); }), file_error::kAccess);
  EXPECT_EQ(folder_.Read("open/file"), "old");
}

TEST_F(Permissions, AnUnreadableFileIsDistinguishedFromAMissingOne) {
  ASSERT_EQ(::chmod(file_.c_str(), 0200), 0);
  const auto failure = [](const std::string& path) {
    const Result<std::string, ReadFailure> read = ReadWholeFile(path, 100);
    return read ? 50 : static_cast<int>(read.Failure());
  };
  EXPECT_EQ(RunAsOrdinaryUser([&] { return failure(file_); }), static_cast<int>(ReadFailure::kUnreadable));
  EXPECT_EQ(RunAsOrdinaryUser([&] { return failure(file_ + " not there"); }), static_cast<int>(ReadFailure::kAbsent));
}

TEST_F(Permissions, AFileInALockedFolderIsNotReplaced) {
  EXPECT_EQ(RunAsOrdinaryUser([&] { return NumberOf(ReplaceWholeFile(file_, "new")); }), file_error::kAccess);
  EXPECT_EQ(folder_.Read("locked/file"), "content");
}

TEST(WholeFilePermissions, AreKept) {
  const TempFolder folder;
  const std::string path = folder.Write("file", "old");
  for (const mode_t mode : {0600u, 0640u, 0664u, 0755u}) {
    ASSERT_EQ(::chmod(path.c_str(), mode), 0);
    EXPECT_EQ(ReplaceWholeFile(path, "new"), std::nullopt);
    EXPECT_EQ(ModeOf(path), mode);
  }
}

TEST(WholeFilePermissions, OfANewFileAreTheUsersChoice) {
  const TempFolder folder;
  const mode_t old = ::umask(027);
  EXPECT_EQ(ReplaceWholeFile(folder.At("file"), "new"), std::nullopt);
  ::umask(old);
  EXPECT_EQ(ModeOf(folder.At("file")), 0640U);
}

TEST(WholeFileOnAFullDisk, LeavesTheOldContentAndNothingElse) {
  const TempFolder folder;
  const std::string path = folder.Write("file", "old");
  const int number = RunInChild([&] {
    const rlimit limit = {1000, 1000};
    if (::signal(SIGXFSZ, SIG_IGN) == SIG_ERR || ::setrlimit(RLIMIT_FSIZE, &limit) != 0) return kCannotSetUp;
    return NumberOf(ReplaceWholeFile(path, std::string(100000, 'x'))) == file_error::kOwn + EFBIG ? 0 : 1;
  });
  EXPECT_EQ(number, 0);
  EXPECT_EQ(folder.Read("file"), "old");
  const auto entries = MakeFileReads()->ReadFolder(folder.Path());
  ASSERT_TRUE(entries.Ok());
  EXPECT_EQ(entries->size(), 1U);
}

}  // namespace
}  // namespace quillon::test
