#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "platform/ContentOf.h"
#include "platform/Program.h"
#include "platform/SharedLibrary.h"
#include "platform/linux/ChildProcess.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

constexpr const char* kMark = "QUILLON_TEST_FOLDER";
constexpr const char* kPlanted = "libquillon-planted.so";

/// The dynamic linker reads its search path once, when a process starts. So each test is run again in a new process
/// with its own search path.
class PlantedLibrary : public testing::Test {
 protected:
  /// In the new process, whose LD_LIBRARY_PATH is `searched` ("@" stands for the folder), returns the current folder,
  /// which contains the planted library. In the original process returns nullopt and takes over the new process's
  /// result.
  static std::optional<std::string> InProcessWith(std::string searched) {
    if (const char* folder = std::getenv(kMark)) return folder;
    const TempFolder folder;
    const auto library = ContentOf(ProgramFolder() + SharedLibraryFileName("bregexp"));
    EXPECT_TRUE(library) << "the library does not stand beside the test program";
    folder.Write(kPlanted, library.value_or(""));
    if (searched == "@") searched = folder.Path();
    const std::string filter =
        std::string("PlantedLibrary.") + testing::UnitTest::GetInstance()->current_test_info()->name();
    EXPECT_TRUE(RunTool({"env", "--chdir=" + folder.Path(), "-u", "GTEST_TOTAL_SHARDS", "-u", "GTEST_OUTPUT",
                         "LD_LIBRARY_PATH=" + searched, std::string(kMark) + "=" + folder.Path(),
                         ProgramFolder() + ProgramBaseName(), "--gtest_filter=" + filter}))
        << "for details: run it with " << kMark << " set to a folder that holds " << kPlanted;
    return std::nullopt;
  }
};

TEST_F(PlantedLibrary, IsNotFoundInTheCurrentFolder) {
  if (!InProcessWith("/no-such-folder")) return;
  EXPECT_EQ(FindLibrary(kPlanted), std::nullopt);
}

TEST_F(PlantedLibrary, IsNotFoundByAnEmptySearchPathsEntry) {
  if (!InProcessWith(":/no-such-folder")) return;
  EXPECT_EQ(FindLibrary(kPlanted), std::nullopt);
}

TEST_F(PlantedLibrary, IsNotFoundByARelativeSearchPathsEntry) {
  if (!InProcessWith(".")) return;
  EXPECT_EQ(FindLibrary(kPlanted), std::nullopt);
}

TEST_F(PlantedLibrary, IsFoundInAFolderOfTheSearchPath) {
  const std::optional<std::string> folder = InProcessWith("@");
  if (!folder) return;
  EXPECT_EQ(FindLibrary(kPlanted), *folder);
}

}  // namespace
}  // namespace quillon::test
