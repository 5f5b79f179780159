#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/MemoryFileSystem.h"

namespace quillon::test {
namespace {

using testing::ElementsAre;

MemoryFileSystem LinuxFiles() {
  return MemoryFileSystem({PathStyle::kLinux, false});
}

TEST(MemoryFileSystem, CallsFailOnDemand) {
  MemoryFileSystem files = LinuxFiles();
  files.AddFile("/a/song", "content");
  const FileError error{file_error::kAccess, "locked"};
  for (const FileCall call : {FileCall::kReadFolder, FileCall::kOpenFile, FileCall::kStatus, FileCall::kRename,
                              FileCall::kMove, FileCall::kRemove, FileCall::kRecycle, FileCall::kRealPath}) {
    files.Fail(call, "/a/song", error);
  }
  files.Fail(FileCall::kReadFolder, "/a", error);
  EXPECT_EQ(files.ReadFolder("/a").Failure(), error);
  EXPECT_FALSE(files.OpenFile("/a/song"));
  EXPECT_EQ(files.Status("/a/song").Failure(), error);
  EXPECT_EQ(files.RealPath("/a/song"), "");
  EXPECT_EQ(files.Rename("/a/song", "/a/new"), error);
  EXPECT_EQ(files.Move("/a/song", "/b/song").Failure(), error);
  EXPECT_EQ(files.Remove("/a/song"), error);
  EXPECT_EQ(files.Recycle("/a/song", 0), file_error::kAccess);
  EXPECT_EQ(files.BytesOf("/a/song"), "content");
}

TEST(MemoryFileSystem, OtherPathsDoNotFail) {
  MemoryFileSystem files = LinuxFiles();
  files.AddFile("/a/song");
  files.AddFile("/a/other");
  files.Fail(FileCall::kRename, "/a/song", {file_error::kAccess, "locked"});
  EXPECT_EQ(files.Rename("/a/other", "/a/new"), std::nullopt);
}

TEST(MemoryFileSystem, CallsAreLogged) {
  MemoryFileSystem files = LinuxFiles();
  files.AddFile("/a/song");
  EXPECT_EQ(files.Rename("/a/song", "/a/new"), std::nullopt);
  EXPECT_TRUE(files.Status("/a/new").Ok());
  EXPECT_TRUE(files.Exists("/a/new"));
  EXPECT_THAT(files.Calls(), ElementsAre(MemoryFileSystem::LoggedCall{FileCall::kRename, "/a/song", "/a/new"},
                                         MemoryFileSystem::LoggedCall{FileCall::kStatus, "/a/new", ""}));
  EXPECT_EQ(files.CountOf(FileCall::kRename), 1U);
  EXPECT_EQ(files.CountOf(FileCall::kRemove), 0U);
}

TEST(MemoryFileSystem, RecycledFilesAreRemovedAndRecorded) {
  MemoryFileSystem files = LinuxFiles();
  files.AddFile("/a/song");
  EXPECT_EQ(files.Recycle("/a/song", 0), 0);
  EXPECT_FALSE(files.Exists("/a/song"));
  EXPECT_THAT(files.Recycled(), ElementsAre("/a/song"));
  EXPECT_NE(files.Recycle("/a/song", 0), 0) << "no longer there";
}

TEST(MemoryFileSystem, DeclinedRecyclingReportsSuccessAndKeepsTheFile) {
  MemoryFileSystem files = LinuxFiles();
  files.AddFile("/a/song");
  files.DeclineRecycling();
  EXPECT_EQ(files.Recycle("/a/song", 0), 0);
  EXPECT_TRUE(files.Exists("/a/song"));
  EXPECT_EQ(files.Recycle("/a/song", 0), 0);
  EXPECT_FALSE(files.Exists("/a/song")) << "declined only once";
}

TEST(MemoryFileSystem, PipesAreNeitherFilesNorFolders) {
  MemoryFileSystem files = LinuxFiles();
  files.AddPipe("/a/pipe");
  files.AddFile("/a/song");
  EXPECT_FALSE(files.OpenFile("/a/pipe"));
  const auto status = files.Status("/a/pipe");
  ASSERT_TRUE(status.Ok());
  EXPECT_EQ(status->kind, FileStatus::Kind::kOther);
  const auto entries = files.ReadFolder("/a");
  ASSERT_TRUE(entries.Ok());
  EXPECT_EQ(entries->size(), 1U);
}

TEST(MemoryFileSystem, HiddenFilesAreReportedAsHidden) {
  MemoryFileSystem files({PathStyle::kWindows, true});
  files.AddFile("C:\\a\\song", "content");
  files.Hide("C:\\A\\SONG");
  const auto file = files.OpenFile("C:\\a\\song");
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->IsHiddenOrSystem());
}

TEST(MemoryFileSystem, LinksToAParentFolderAreResolved) {
  MemoryFileSystem files = LinuxFiles();
  files.AddFile("/a/b/song");
  files.AddLink("/a/b/up", "/a");
  EXPECT_EQ(files.RealPath("/a/b/up"), "/a");
  EXPECT_EQ(files.RealPath("/a/b/up/b"), "/a/b");
  EXPECT_TRUE(files.SameFile("/a/b/up/b/song", "/a/b/song"));
  files.AddLink("/loop", "/loop");
  EXPECT_FALSE(files.OpenFile("/loop"));
}

TEST(MemoryFileSystem, RealPathsOfWindowsBeginWithTheDrive) {
  MemoryFileSystem files({PathStyle::kWindows, true});
  files.AddFolder("C:\\Users\\User");
  EXPECT_EQ(files.RealPath("c:\\users\\user\\"), "C:\\Users\\User");
}

}  // namespace
}  // namespace quillon::test
