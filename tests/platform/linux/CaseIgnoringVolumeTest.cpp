#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/ContentOf.h"
#include "platform/FileSystem.h"
#include "platform/WholeFile.h"
#include "platform/linux/ChildProcess.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

int RenameOnFat(const std::string& folder) {
  if (ReplaceWholeFile(folder + "song.mid", "content")) return 1;
  if (MakeFileChanges()->Rename(folder + "song.mid", folder + "SONG.mid")) return 2;
  const auto entries = MakeFileReads()->ReadFolder(folder);
  if (!entries || entries->size() != 1 || entries->front().name != "SONG.mid") return 3;
  return ContentOf(folder + "SONG.mid") == "content" ? 0 : 4;
}

TEST(CaseIgnoringVolume, AllowsAChangeOfLetterCase) {
  const TempFolder folder;
  const std::string image = folder.Write("image", "");
  const std::string mounted = folder.MakeFolder("mounted");
  std::filesystem::resize_file(image, 4 << 20);
  const int result = RunInChild([&] {
    if (!RunTool({"mkfs.vfat", image})) return kCannotSetUp;
    if (!MountPrivately("tmpfs", "none", mounted, "size=8m")) return kCannotSetUp;
    // mount finds a free loop device itself. The mount ends with the process's namespace.
    if (!RunTool({"mount", "-o", "loop", image, mounted})) return kCannotSetUp;
    return RenameOnFat(mounted);
  });
  if (result == kCannotSetUp) GTEST_SKIP() << "no FAT volume can be made and mounted here";
  EXPECT_EQ(result, 0);
}

}  // namespace
}  // namespace quillon::test
