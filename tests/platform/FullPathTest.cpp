#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "platform/FileSystem.h"
#include "platform/FileWorld.h"

namespace quillon::test {
namespace {

bool IsWindows() {
  return SystemPathStyle() == PathStyle::kWindows;
}

// Converts a path with "/" to this system's syntax, with a drive on Windows.
std::string Native(std::string path) {
  if (!IsWindows()) return path;
  std::replace(path.begin(), path.end(), '/', '\\');
  return path.front() == '\\' ? "C:" + path : path;
}

std::string CurrentFolder() {
  const std::u8string folder = std::filesystem::current_path().u8string();
  return {folder.begin(), folder.end()};
}

TEST(FullPath, FullPathsAreTidied) {
  struct Row {
    const char* path;
    const char* full;
  };
  for (const Row& row : {Row{"/absent/b", "/absent/b"},
                         {"/absent//b", "/absent/b"},
                         {"/absent/./b/.", "/absent/b"},
                         {"/absent/b/", "/absent/b/"},
                         {"/absent/b//", "/absent/b/"},
                         {"/absent/../b", "/b"},
                         {"/../b", "/b"},
                         {"/", "/"},
                         {"/absent/..", "/"},
                         {"/absent/曲 名/a b. ", "/absent/曲 名/a b. "}}) {
    SCOPED_TRACE(row.path);
    EXPECT_EQ(FullPath(Native(row.path)), Native(row.full));
  }
}

TEST(FullPath, RelativePathsStartAtTheCurrentFolder) {
  const std::string here = CurrentFolder();
  EXPECT_EQ(FullPath("song.mid"), here + Native("/song.mid").substr(IsWindows() ? 2 : 0));
  EXPECT_EQ(FullPath("a/../song.mid"), FullPath("song.mid"));
  EXPECT_EQ(FullPath("./a//b"), FullPath("a/b"));
  EXPECT_EQ(FullPath("."), here);
}

TEST(FullPath, AnEmptyPathStaysEmpty) {
  EXPECT_EQ(FullPath(""), "");
}

TEST(FullPath, LinksStayButTheirParentIsTheRealOne) {
  const auto world = MakeWorld(WorldKind::kSystem);
  world->MakeFolder("real/inner");
  world->Write("real/song.mid", "");
  if (IsWindows() || !world->MakeLink("link", "real/inner", true)) GTEST_SKIP() << "no links, or resolved as text";
  const std::string folder = world->Reads().RealPath(world->At(""));
  EXPECT_EQ(FullPath(folder + "/link/song.mid"), folder + "/link/song.mid");
  EXPECT_EQ(FullPath(folder + "/link/../song.mid"), folder + "/real/song.mid");
}

}  // namespace
}  // namespace quillon::test
