#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/FileSystem.h"
#include "platform/WholeFile.h"
#include "platform/linux/ChildProcess.h"
#include "platform/linux/Trash.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

// GIO looks up the user's folders once per process, so each test has a process with a home of its own.
int InOwnHome(const TempFolder& home, const std::function<int()>& work) {
  return RunInChild([&] {
    ::setenv("HOME", home.Path().c_str(), 1);
    ::setenv("XDG_DATA_HOME", home.At("data").c_str(), 1);
    return work();
  });
}

TEST(Trash, AFileGoesToTheUsersTrashWithANoteOfWhereItWas) {
  const TempFolder home;
  const std::string path = home.Write("music/曲.mid", "content");
  const int result = InOwnHome(home, [&] { return MakeFileChanges()->Recycle(path, 0) == 0 ? 0 : 1; });
  EXPECT_EQ(result, 0);
  EXPECT_FALSE(home.Exists("music/曲.mid"));
  EXPECT_EQ(home.Read("data/Trash/files/曲.mid"), "content");
  EXPECT_THAT(home.Read("data/Trash/info/曲.mid.trashinfo"), testing::HasSubstr("/music/%E6%9B%B2.mid"));
}

TEST(Trash, ItsFolderIsTheOneWeKnow) {
  const TempFolder home;
  const std::string path = home.Write("song.mid", "content");
  const int result = InOwnHome(home, [&] {
    if (UserTrashFolder() != home.At("data/Trash/")) return 1;
    if (MakeFileChanges()->Recycle(path, 0) != 0) return 2;
    return ReadWholeFile(UserTrashFolder() + "files/song.mid") == "content" ? 0 : 3;
  });
  EXPECT_EQ(result, 0);
}

TEST(Trash, NamesThatAreNotUtf8AreNoObstacle) {
  const TempFolder home;
  const std::string path = home.Write("\x8B\xC8.mid", "content");
  EXPECT_EQ(InOwnHome(home, [&] { return MoveToTrash(path) == 0 ? 0 : 1; }), 0);
  EXPECT_EQ(home.Read("data/Trash/files/\x8B\xC8.mid"), "content");
}

TEST(Trash, AnAbsentFileIsAnError) {
  const TempFolder home;
  const int result = InOwnHome(home, [&] { return MoveToTrash(home.At("absent")) >= kTrashErrorOffset ? 0 : 1; });
  EXPECT_EQ(result, 0);
  EXPECT_GE(MoveToTrash(std::string("a\0b", 3)), kTrashErrorOffset);
}

TEST(Trash, WhereThereIsNoTrashTheFileStays) {
  const std::string folder = "/dev/shm/quillon-trash-test-" + std::to_string(::getpid()) + "/";
  std::error_code failed;
  std::filesystem::create_directory(folder, failed);
  if (failed) GTEST_SKIP() << "/dev/shm cannot be written";
  ASSERT_EQ(ReplaceWholeFile(folder + "song.mid", "content"), std::nullopt);
  const TempFolder home;
  const int result =
      InOwnHome(home, [&] { return MakeFileChanges()->Recycle(folder + "song.mid", 0) >= kTrashErrorOffset ? 0 : 1; });
  EXPECT_EQ(ReadWholeFile(folder + "song.mid"), "content");
  std::filesystem::remove_all(folder);
  EXPECT_EQ(result, 0);
}

}  // namespace
}  // namespace quillon::test
