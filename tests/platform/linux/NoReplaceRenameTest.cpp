#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ostream>
#include <string>

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

/// Whatever a file system makes necessary, the answers are the same.
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

TEST_P(NoReplace, LeavesAnExistingFolderAndADeadLinkAlone) {
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

}  // namespace
}  // namespace quillon::test
