#include <cstdlib>
#include <filesystem>

#include "gui/MainWindow.h"
#include "platform/FileSystem.h"
#include "platform/Program.h"
#include "support/Process.h"

/// Deleting into the desktop's trash from the main window.
namespace quillon::test {
namespace {

/// GIO looks up the user's folders once per process, so each test runs again in a new process with its own home folder.
/// The tester's real trash stays as it is.
class RecycleBinOfMainWindow : public MainWindowTest {
 protected:
  static constexpr const char* kMark = "QUILLON_TEST_HAS_OWN_HOME";

  /// True in the process with its own home. The other process runs that one and takes over its result.
  static bool InOwnHome() {
    if (std::getenv(kMark) != nullptr) return true;
    const TempFolder home;
    const std::string filter =
        std::string("RecycleBinOfMainWindow.") + testing::UnitTest::GetInstance()->current_test_info()->name();
    const ProcessResult result = RunProcess(
        "/usr/bin/env", {"-u", "GTEST_TOTAL_SHARDS", "-u", "GTEST_SHARD_INDEX", "-u", "GTEST_OUTPUT",
                         "HOME=" + home.Path(), "XDG_DATA_HOME=" + home.At("data"), std::string(kMark) + "=1",
                         ProgramFolder() + ProgramBaseName(), "--gtest_filter=" + filter});
    EXPECT_EQ(result.exitCode, 0) << result.output;
    EXPECT_NE(result.output.find("[  PASSED  ] 1 test."), std::string::npos) << result.output;
    return false;
  }

  static bool IsInTrash(const std::string& name) {
    return std::filesystem::exists(std::filesystem::path(UserTrashFolder()) / "files" / name);
  }

  static OptionValues WithTrash() {
    OptionValues options = Options();
    options.list.deleteTo = DeleteTo::kRecycleBin;
    return options;
  }
};

TEST_F(RecycleBinOfMainWindow, TakesTheFileOnceTheUserAgrees) {
  if (!InOwnHome()) return;
  WriteMidi("a.mid", "First");
  WriteMidi("b.mid", "Second");
  OpenFolder(WithTrash());
  const Message question{"ファイル削除", folder.At("a.mid") + "\n\nこのファイルをごみ箱に移動してもよろしいですか",
                         MessageIcon::kQuestion, MessageButtons::kYesNo};
  dialogs.Answer(false);
  Run(Command::mnuThisDel);
  EXPECT_EQ(dialogs.TakeShown(), std::vector<Message>{question});
  EXPECT_TRUE(folder.Exists("a.mid"));
  EXPECT_EQ(List().Count(), 2);

  dialogs.Answer();
  Run(Command::mnuThisDel);
  EXPECT_EQ(dialogs.TakeShown(), std::vector<Message>{question});
  EXPECT_FALSE(folder.Exists("a.mid"));
  EXPECT_TRUE(IsInTrash("a.mid"));
  EXPECT_EQ(Names(), std::vector<std::string>{"b"});
}

TEST_F(RecycleBinOfMainWindow, IsNotAskedForWhenTheOptionsSaySo) {
  if (!InOwnHome()) return;
  WriteMidi("a.mid", "First");
  OptionValues options = WithTrash();
  options.list.confirmDeletion = false;
  OpenFolder(options);
  Run(Command::mnuThisDel);
  EXPECT_TRUE(IsInTrash("a.mid"));
  EXPECT_EQ(List().Count(), 0);
}

}  // namespace
}  // namespace quillon::test
