#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/ContentOf.h"
#include "platform/FileSystem.h"
#include "platform/Program.h"
#include "platform/WholeFile.h"
#include "platform/linux/ChildProcess.h"
#include "platform/linux/Trash.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

/// GIO reads the user's folders once per process, perhaps already for another test. So each test here is run again in a
/// new process with a private home, which also protects the tester's real trash.
class Trash : public testing::Test {
 protected:
  /// Returns true in the process with the private home. In the original process returns false and takes over that
  /// process's result.
  static bool InOwnHome() {
    if (std::getenv(kMark) != nullptr) return true;
    const TempFolder home;
    const std::string filter = std::string("Trash.") + testing::UnitTest::GetInstance()->current_test_info()->name();
    EXPECT_TRUE(RunTool({"env", "-u", "GTEST_TOTAL_SHARDS", "-u", "GTEST_OUTPUT", "HOME=" + home.Path(),
                         "XDG_DATA_HOME=" + home.At("data"), std::string(kMark) + "=1",
                         ProgramFolder() + ProgramBaseName(), "--gtest_filter=" + filter}))
        << "for details: HOME=... XDG_DATA_HOME=... " << kMark << "=1 with --gtest_filter=" << filter;
    return false;
  }

  static std::string InTrash(const std::string& name) {
    return ContentOf(UserTrashFolder() + name).value_or("absent: " + name);
  }

 private:
  static constexpr const char* kMark = "QUILLON_TEST_HAS_OWN_HOME";
};

TEST_F(Trash, AFileGoesToTheUsersTrashWithANoteOfWhereItWas) {
  if (!InOwnHome()) return;
  const TempFolder folder;
  EXPECT_EQ(MakeFileChanges()->Recycle(folder.Write("music/曲.mid", "content"), 0), 0);
  EXPECT_FALSE(folder.Exists("music/曲.mid"));
  EXPECT_EQ(InTrash("files/曲.mid"), "content");
  EXPECT_THAT(InTrash("info/曲.mid.trashinfo"), testing::HasSubstr("/music/%E6%9B%B2.mid"));
}

TEST_F(Trash, ShowsNoConfirmation) {
  EXPECT_FALSE(MakeFileChanges()->RecycleAsks());
}

TEST_F(Trash, ItsFolderIsFromTheEnvironment) {
  if (!InOwnHome()) return;
  EXPECT_EQ(UserTrashFolder(), std::string(std::getenv("XDG_DATA_HOME")) + "/Trash/");
}

TEST_F(Trash, AcceptsNamesThatAreNotUtf8) {
  if (!InOwnHome()) return;
  const TempFolder folder;
  EXPECT_TRUE(MoveToTrash(folder.Write("\x8B\xC8.mid", "content")));
  EXPECT_EQ(InTrash("files/\x8B\xC8.mid"), "content");
}

TEST_F(Trash, AnAbsentFileIsAnError) {
  if (!InOwnHome()) return;
  const TempFolder folder;
  EXPECT_FALSE(MoveToTrash(folder.At("absent")));
  EXPECT_FALSE(MoveToTrash(std::string("a\0b", 3)));
  EXPECT_EQ(MakeFileChanges()->Recycle(folder.At("absent"), 0), kRecycleNotDone);
}

TEST_F(Trash, WhereThereIsNoTrashTheFileStays) {
  const std::string folder = "/dev/shm/quillon-trash-test-" + std::to_string(::getpid()) + "/";
  std::error_code failed;
  std::filesystem::create_directory(folder, failed);
  if (failed) GTEST_SKIP() << "/dev/shm cannot be written";
  if (InOwnHome()) {
    EXPECT_EQ(ReplaceWholeFile(folder + "song.mid", "content"), std::nullopt);
    EXPECT_EQ(MakeFileChanges()->Recycle(folder + "song.mid", 0), kRecycleNotDone);
    EXPECT_EQ(ContentOf(folder + "song.mid"), "content");
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace quillon::test
