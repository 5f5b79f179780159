#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>

#include "platform/ContentOf.h"
#include "platform/Program.h"
#include "platform/SharedLibrary.h"
#include "support/Process.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPlanted = "QUILLON-PLANTED.DLL";
constexpr const wchar_t* kMark = L"QUILLON_TEST_KEEPS_TO_OWN_LIBRARIES";

/// The current folder contains a library; PATH is set by the test, and the program's folder does not contain that
/// library.
class PlantedLibrary : public testing::Test {
 protected:
  void SetUp() override {
    const auto library = ContentOf(ProgramFolder() + SharedLibraryFileName("bregexp"));
    ASSERT_TRUE(library) << "the library does not stand beside the test program";
    folder_.Write(kPlanted, *library);
    fs::current_path(folder_.Path());
  }

  void TearDown() override {
    fs::current_path(before_);
    ::SetEnvironmentVariableW(L"PATH", path_.c_str());
  }

  static void SetPath(const std::string& path) { ::SetEnvironmentVariableA("PATH", path.c_str()); }

  /// Loads the library by name only.
  static bool LoadsByName() {
    const HMODULE library = ::LoadLibraryA(kPlanted);
    if (library != nullptr) ::FreeLibrary(library);
    return library != nullptr;
  }

  const TempFolder folder_;

 private:
  const fs::path before_ = fs::current_path();
  const std::wstring path_ = ::_wgetenv(L"PATH");
};

TEST_F(PlantedLibrary, IsNotFoundInTheCurrentFolder) {
  EXPECT_EQ(FindLibrary(kPlanted), std::nullopt);
}

TEST_F(PlantedLibrary, IsNotFoundByEntriesOfPathThatDependOnTheCurrentFolder) {
  for (const char* entry : {"", ";", ".", ".\\", "folder\\..", "C:", "C:.", "\\", "\"\""}) {
    SetPath(entry + std::string(";C:\\no-such-folder;"));
    EXPECT_EQ(FindLibrary(kPlanted), std::nullopt) << entry;
  }
}

TEST_F(PlantedLibrary, IsFoundInAFolderOfPath) {
  const std::string folder = folder_.Path().substr(0, folder_.Path().size() - 1);
  for (const std::string& entry : {folder, folder + '\\', folder + '/'}) {
    SetPath(".;;relative;C:\\no-such-folder;" + entry + ";C:\\windows");
    EXPECT_EQ(FindLibrary(kPlanted), folder_.Path()) << entry;
  }
  EXPECT_TRUE(SharedLibrary(folder_.At(kPlanted)).Loaded());
}

// Runs in a separate process, because the setting cannot be undone.
TEST_F(PlantedLibrary, IsNotLoadedByItsNameOnceTheProgramKeepsToItsOwn) {
  if (::_wgetenv(kMark) == nullptr) {
    ::SetEnvironmentVariableW(kMark, L"1");
    const std::string filter =
        std::string("PlantedLibrary.") + testing::UnitTest::GetInstance()->current_test_info()->name();
    const ProcessResult result = RunProcess(ProgramFolder() + ProgramBaseName() + ".exe", {"--gtest_filter=" + filter});
    ::SetEnvironmentVariableW(kMark, nullptr);
    EXPECT_EQ(result.exitCode, 0) << result.output;
    return;
  }
  EXPECT_TRUE(LoadsByName()) << "from the current folder, as ever";
  KeepToOwnAndSystemLibraries();
  EXPECT_FALSE(LoadsByName());
  SetPath(folder_.Path());
  EXPECT_FALSE(LoadsByName());
  EXPECT_TRUE(SharedLibrary(folder_.At(kPlanted)).Loaded()) << "by its full path";
}

}  // namespace
}  // namespace quillon::test
