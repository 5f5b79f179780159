#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "platform/linux/ChildProcess.h"
#include "platform/linux/FailingCalls.h"
#include "platform/linux/NoReplaceRename.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

struct Way {
  const char* name;
  int (*rename)(const std::string& from, const std::string& to);
};

void PrintTo(const Way& way, std::ostream* out) {
  *out << way.name;
}

/// All ways to rename give the same results.
class NoReplace : public testing::TestWithParam<Way> {
 protected:
  int Rename(const char* from, const char* to) const { return GetParam().rename(folder_.At(from), folder_.At(to)); }

  TempFolder folder_;
};

INSTANTIATE_TEST_SUITE_P(Ways, NoReplace,
                         testing::Values(Way{"OneCall", RenameNoReplace}, Way{"Link", RenameByLink},
                                         Way{"Placeholder", RenameOverPlaceholder}),
                         [](const auto& row) { return row.param.name; });

TEST_P(NoReplace, GivesTheNewName) {
  folder_.Write("old", "content");
  EXPECT_EQ(Rename("old", "new"), 0);
  EXPECT_FALSE(folder_.Exists("old"));
  EXPECT_EQ(folder_.Read("new"), "content");
}

TEST_P(NoReplace, LeavesAnExistingFileAlone) {
  folder_.Write("old", "1");
  folder_.Write("new", "2");
  EXPECT_EQ(Rename("old", "new"), EEXIST);
  EXPECT_EQ(folder_.Read("old"), "1");
  EXPECT_EQ(folder_.Read("new"), "2");
}

TEST_P(NoReplace, LeavesAnExistingFolderAndADanglingLinkAlone) {
  folder_.Write("old", "1");
  folder_.MakeFolder("folder");
  ASSERT_EQ(::symlink("nowhere", folder_.At("link").c_str()), 0);
  EXPECT_EQ(Rename("old", "folder"), EEXIST);
  EXPECT_EQ(Rename("old", "link"), EEXIST);
  EXPECT_EQ(folder_.Read("old"), "1");
}

TEST_P(NoReplace, LeavesNothingBehindWhenTheSourceIsAbsent) {
  EXPECT_EQ(Rename("old", "new"), ENOENT);
  EXPECT_FALSE(folder_.Exists("new"));
}

TEST_P(NoReplace, LeavesNothingBehindWhenTheNewNameIsTooLong) {
  folder_.Write("old", "1");
  EXPECT_EQ(Rename("old", std::string(256, 'x').c_str()), ENAMETOOLONG);
  EXPECT_EQ(folder_.Read("old"), "1");
}

TEST_P(NoReplace, KeepsTheFileItself) {
  const std::string old = folder_.Write("old", "content");
  ASSERT_EQ(::chmod(old.c_str(), 0640), 0);
  struct stat before = {};
  struct stat after = {};
  ASSERT_EQ(::stat(old.c_str(), &before), 0);
  EXPECT_EQ(Rename("old", "new"), 0);
  ASSERT_EQ(::stat(folder_.At("new").c_str(), &after), 0);
  EXPECT_EQ(after.st_ino, before.st_ino);
  EXPECT_EQ(after.st_mode, before.st_mode);
  EXPECT_EQ(after.st_nlink, 1U);
}

TEST_P(NoReplace, RenamesALinkItself) {
  ASSERT_EQ(::symlink("nowhere", folder_.At("old").c_str()), 0);
  EXPECT_EQ(Rename("old", "new"), 0);
  EXPECT_FALSE(folder_.Exists("old"));
  EXPECT_TRUE(folder_.Exists("new"));
}

TEST(RenameOverPlaceholder, MakesNothingOnAnotherVolume) {
  const TempFolder folder;
  const std::string old = folder.Write("old", "content");
  std::string there = "/dev/shm/quillon-test-XXXXXX";
  if (::mkdtemp(there.data()) == nullptr) GTEST_SKIP() << "/dev/shm cannot be written";
  // If nothing can be deleted, an empty file could be left behind.
  struct stat before = {};
  struct stat after = {};
  ASSERT_EQ(::stat(there.c_str(), &before), 0);
  const int failure = RenameOverPlaceholder(old, there + "/new");
  ASSERT_EQ(::stat(there.c_str(), &after), 0);
  std::filesystem::remove_all(there);
  if (failure == 0) GTEST_SKIP() << "/dev/shm is on the same volume";
  EXPECT_EQ(failure, EXDEV);
  EXPECT_EQ(after.st_mtim.tv_sec, before.st_mtim.tv_sec);
  EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec) << "the folder was written to";
  EXPECT_EQ(folder.Read("old"), "content");
}

TEST(RenameByLink, RemovesTheNewNameWhenTheOldOneCannotBeDeleted) {
  const TempFolder folder;
  const std::string old = folder.Write("locked/file", "content");
  ASSERT_EQ(::chmod(old.c_str(), 0666), 0);
  ASSERT_EQ(::chmod(folder.Path().c_str(), 0777), 0);
  ASSERT_EQ(::chmod(folder.At("locked").c_str(), 0555), 0);
  EXPECT_EQ(RunAsOrdinaryUser([&] { return RenameByLink(old, folder.At("new")); }), EACCES);
  ASSERT_EQ(::chmod(folder.At("locked").c_str(), 0755), 0);
  EXPECT_EQ(folder.Read("locked/file"), "content");
  EXPECT_FALSE(folder.Exists("new"));
}

/// `calls`, and renameat2 in addition.
std::vector<FailingCall> WithoutOneCall(int error, std::vector<FailingCall> calls = {}) {
  calls.push_back({SYS_renameat2, error});
  return calls;
}

/// Renames "old" to "new" in a process in which these calls fail.
int RenameWhere(const TempFolder& folder, const std::vector<FailingCall>& calls,
                int (*rename)(const std::string& from, const std::string& to) = RenameNoReplace) {
  return RunInChild([&] { return MakeFail(calls) ? rename(folder.At("old"), folder.At("new")) : kCannotSetUp; });
}

class RenameOnOtherSystems : public testing::Test {
 protected:
  void SetUp() override {
    if (RunInChild([] { return MakeFail({}) ? 0 : kCannotSetUp; }) != 0) GTEST_SKIP() << kNoFailingCalls;
    folder_.Write("old", "content");
  }

  void ExpectMoved(int result) const {
    EXPECT_EQ(result, 0);
    EXPECT_FALSE(folder_.Exists("old"));
    EXPECT_EQ(folder_.Read("new"), "content");
  }

  TempFolder folder_;
};

TEST_F(RenameOnOtherSystems, WithoutTheOneCallGoesByALink) {
  for (const int error : {EINVAL, ENOSYS}) {
    ExpectMoved(RenameWhere(folder_, WithoutOneCall(error, FailingRename(EIO))));
    ASSERT_EQ(::rename(folder_.At("new").c_str(), folder_.At("old").c_str()), 0);
  }
}

TEST_F(RenameOnOtherSystems, WithoutLinksEitherGoesOverAPlaceholder) {
  for (const int error : {EPERM, ENOSYS, EOPNOTSUPP}) {
    ExpectMoved(RenameWhere(folder_, WithoutOneCall(EINVAL, FailingLink(error))));
    ASSERT_EQ(::rename(folder_.At("new").c_str(), folder_.At("old").c_str()), 0);
  }
}

TEST_F(RenameOnOtherSystems, NeitherWayReplacesAFile) {
  folder_.Write("new", "other");
  EXPECT_EQ(RenameWhere(folder_, WithoutOneCall(EINVAL)), EEXIST);
  EXPECT_EQ(RenameWhere(folder_, WithoutOneCall(EINVAL, FailingLink(EPERM))), EEXIST);
  EXPECT_EQ(folder_.Read("old"), "content");
  EXPECT_EQ(folder_.Read("new"), "other");
}

TEST_F(RenameOnOtherSystems, OtherErrorsAreTheResult) {
  EXPECT_EQ(RenameWhere(folder_, WithoutOneCall(EIO)), EIO);
  EXPECT_EQ(RenameWhere(folder_, WithoutOneCall(EINVAL, FailingLink(EIO))), EIO);
  EXPECT_EQ(folder_.Read("old"), "content");
  EXPECT_FALSE(folder_.Exists("new"));
}

TEST_F(RenameOnOtherSystems, APlaceholderThatTheFileCouldNotReplaceIsRemoved) {
  for (const char* const content : {"content", ""}) {
    folder_.Write("old", content);
    EXPECT_EQ(RenameWhere(folder_, FailingRename(EIO), RenameOverPlaceholder), EIO);
    EXPECT_EQ(folder_.Read("old"), content);
    EXPECT_FALSE(folder_.Exists("new")) << content;
  }
}

TEST_F(RenameOnOtherSystems, APlaceholderThatIsNotKnownIsRemoved) {
  EXPECT_EQ(RenameWhere(folder_, FailingFstat(EIO), RenameOverPlaceholder), EIO);
  EXPECT_EQ(folder_.Read("old"), "content");
  EXPECT_FALSE(folder_.Exists("new"));
}

}  // namespace
}  // namespace quillon::test
