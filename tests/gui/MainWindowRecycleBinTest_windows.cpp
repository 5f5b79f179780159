#include <windows.h>

#include <wx/timer.h>

#include <cstdlib>
#include <filesystem>

#include "gui/MainWindow.h"

/// Deleting into the recycle bin from the main window. Under Wine the bin is the trash of the Linux desktop, whose
/// folder is set by the environment; only files on the same volume can go there.
namespace quillon::test {
namespace {

/// Answers the shell's own question as soon as it is open.
class ShellQuestion final : public wxTimer {
 public:
  ShellQuestion(const wxWindow& owner, WORD answer) : owner_(owner.GetHandle()), answer_(answer) { Start(kPause); }

  void Notify() override {
    EnumThreadWindows(GetCurrentThreadId(), &AnswerIn, reinterpret_cast<LPARAM>(this));
    if (answered) Stop();
  }

  bool answered = false;

 private:
  static constexpr int kPause = 50;  // milliseconds

  static BOOL CALLBACK AnswerIn(HWND window, LPARAM instance) {
    auto& question = *reinterpret_cast<ShellQuestion*>(instance);
    if (GetWindow(window, GW_OWNER) != question.owner_ || GetDlgItem(window, question.answer_) == nullptr) return TRUE;
    question.answered = PostMessageW(window, WM_COMMAND, question.answer_, 0) != FALSE;
    return FALSE;
  }

  HWND owner_;
  WORD answer_;
};

class RecycleBinOfMainWindow : public MainWindowTest {
 protected:
  void SetUp() override {
    const wchar_t* const data = _wgetenv(L"XDG_DATA_HOME");
    if (data == nullptr || *data != L'/') {
      GTEST_SKIP() << "only under Wine, with XDG_DATA_HOME naming a folder of the tests' own (CTest does so)";
    }
    data_ = std::filesystem::path(L"Z:" + std::wstring(data));
    files_ = data_ / ("files-" + std::to_string(GetTickCount64()));
    files_.make_preferred();
    std::filesystem::create_directories(files_);
    const std::string path = WriteMidi("a.mid", "First");
    std::filesystem::copy_file(ToPath(path), files_ / "a.mid");
  }

  void TearDown() override {
    MainWindowTest::TearDown();
    std::error_code ignored;
    std::filesystem::remove_all(files_, ignored);
    std::filesystem::remove_all(data_ / "Trash", ignored);
  }

  void OpenFiles() {
    OptionValues options = Options();
    options.list.deleteTo = DeleteTo::kRecycleBin;
    Open(options, {files_.string()});
  }

  /// Deletes the selected file; the shell's question is the only one.
  void DeleteAnswering(WORD answer) {
    ShellQuestion question(Frame(), answer);
    Post(Command::mnuThisDel);
    EXPECT_TRUE(Until([&] { return question.answered; })) << "no question over the main window";
    Drain();
  }

  std::filesystem::path data_;
  std::filesystem::path files_;
};

TEST_F(RecycleBinOfMainWindow, TakesTheFileOnceTheUserAgreesInTheShellsOwnBox) {
  OpenFiles();
  ASSERT_EQ(List().Count(), 1);
  DeleteAnswering(IDNO);
  EXPECT_TRUE(std::filesystem::exists(files_ / "a.mid"));
  EXPECT_EQ(List().Count(), 1) << "declined, and no word about it";
  DeleteAnswering(IDYES);
  EXPECT_FALSE(std::filesystem::exists(files_ / "a.mid"));
  EXPECT_TRUE(std::filesystem::exists(data_ / "Trash" / "files" / "a.mid"));
  EXPECT_EQ(List().Count(), 0);
}

}  // namespace
}  // namespace quillon::test
