// windows.h has to come first.
// clang-format off
#include <windows.h>
#include <shellapi.h>
#include <sherrors.h>
// clang-format on

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/windows/RecycleBin.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

HWND Window(std::intptr_t number) {
  return reinterpret_cast<HWND>(number);
}

// COM interfaces have no virtual destructor; they are freed by Release.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
/// A shell file operation that only records its calls and returns scripted results.
class RecordedOperation final : public IFileOperation {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE Advise(IFileOperationProgressSink*, DWORD*) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE SetOperationFlags(DWORD given) override {
    flags = given;
    return Note("flags", flagsAnswer);
  }
  HRESULT STDMETHODCALLTYPE SetProgressMessage(LPCWSTR) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE SetProgressDialog(IOperationsProgressDialog*) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE SetProperties(IPropertyChangeArray*) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE SetOwnerWindow(HWND given) override {
    owner = given;
    return Note("owner", S_OK);
  }
  HRESULT STDMETHODCALLTYPE ApplyPropertiesToItem(IShellItem*) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE ApplyPropertiesToItems(IUnknown*) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE RenameItem(IShellItem*, LPCWSTR, IFileOperationProgressSink*) override {
    return Unexpected();
  }
  HRESULT STDMETHODCALLTYPE RenameItems(IUnknown*, LPCWSTR) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE MoveItem(IShellItem*, IShellItem*, LPCWSTR, IFileOperationProgressSink*) override {
    return Unexpected();
  }
  HRESULT STDMETHODCALLTYPE MoveItems(IUnknown*, IShellItem*) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE CopyItem(IShellItem*, IShellItem*, LPCWSTR, IFileOperationProgressSink*) override {
    return Unexpected();
  }
  HRESULT STDMETHODCALLTYPE CopyItems(IUnknown*, IShellItem*) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE DeleteItem(IShellItem*, IFileOperationProgressSink*) override {
    return Note("delete", deleteAnswer);
  }
  HRESULT STDMETHODCALLTYPE DeleteItems(IUnknown*) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE NewItem(IShellItem*, DWORD, LPCWSTR, LPCWSTR, IFileOperationProgressSink*) override {
    return Unexpected();
  }
  HRESULT STDMETHODCALLTYPE PerformOperations() override { return Note("perform", performAnswer); }
  HRESULT STDMETHODCALLTYPE GetAnyOperationsAborted(BOOL* answer) override {
    *answer = aborted ? TRUE : FALSE;
    return S_OK;
  }

  HRESULT flagsAnswer = S_OK, deleteAnswer = S_OK, performAnswer = S_OK;
  bool aborted = false;
  DWORD flags = 0;
  HWND owner = nullptr;
  std::vector<std::string> calls;

 private:
  HRESULT Note(const char* call, HRESULT answer) {
    calls.emplace_back(call);
    return answer;
  }
  HRESULT Unexpected() { return Note("unexpected", E_UNEXPECTED); }
};

TEST(RecycleBy, AsksForTheBinWithTheUsersQuestionsAndAWarningBeforeLoss) {
  RecordedOperation shell;
  EXPECT_EQ(RecycleBy(shell, nullptr, Window(0x1234), BinQuestions::kAsTheUserWants), 0);
  EXPECT_THAT(shell.calls, ElementsAre("flags", "owner", "delete", "perform"));
  EXPECT_EQ(shell.owner, Window(0x1234));
  constexpr DWORD kBin = FOFX_RECYCLEONDELETE | FOFX_ADDUNDORECORD | FOF_ALLOWUNDO | FOF_WANTNUKEWARNING;
  EXPECT_EQ(shell.flags, kBin);
  EXPECT_EQ(RecycleBy(shell, nullptr, nullptr, BinQuestions::kOnlyBeforeLoss), 0);
  EXPECT_EQ(shell.flags, kBin | FOF_NOCONFIRMATION);
}

TEST(RecycleBy, NeverPerformsWhatCouldNotBeSetUp) {
  RecordedOperation noFlags;
  noFlags.flagsAnswer = E_INVALIDARG;
  EXPECT_EQ(RecycleBy(noFlags, nullptr, nullptr, BinQuestions::kAsTheUserWants), kRecycleNotDone);
  EXPECT_THAT(noFlags.calls, ElementsAre("flags"));
  RecordedOperation noDeletion;
  noDeletion.deleteAnswer = E_ACCESSDENIED;
  EXPECT_EQ(RecycleBy(noDeletion, nullptr, nullptr, BinQuestions::kAsTheUserWants), kRecycleNotDone);
  EXPECT_THAT(noDeletion.calls, ElementsAre("flags", "delete"));
}

TEST(RecycleBy, ResultsAreTheShellsAndADeclinedQuestionIsNoFailure) {
  struct Row {
    const char* name;
    HRESULT answer;
    bool aborted;
    std::optional<int> expected;
  };
  const Row rows[] = {
      {"done", S_OK, false, 0},
      {"declined, told by the flag", S_OK, true, 0},
      {"declined, told by both", E_FAIL, true, 0},
      {"declined", COPYENGINE_E_USER_CANCELLED, false, 0},
      {"cancelled", HRESULT_FROM_WIN32(ERROR_CANCELLED), false, 0},
      {"failed", HRESULT_FROM_WIN32(ERROR_SHARING_VIOLATION), false, HRESULT_FROM_WIN32(ERROR_SHARING_VIOLATION)},
      {"a shell without it", E_NOTIMPL, false, std::nullopt},
  };
  for (const Row& row : rows) {
    RecordedOperation shell;
    shell.performAnswer = row.answer;
    shell.aborted = row.aborted;
    EXPECT_EQ(RecycleBy(shell, nullptr, nullptr, BinQuestions::kAsTheUserWants), row.expected) << row.name;
  }
  RecordedOperation lacking;
  lacking.flagsAnswer = E_NOTIMPL;
  EXPECT_EQ(RecycleBy(lacking, nullptr, nullptr, BinQuestions::kAsTheUserWants), std::nullopt);
}

TEST(RecycleAsks, IsTrueBecauseTheShellAsks) {
  EXPECT_TRUE(MakeFileChanges()->RecycleAsks());
}

std::string Content(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return file ? std::string{std::istreambuf_iterator<char>(file), {}} : "absent";
}

/// Under Wine the recycle bin is the Linux desktop's trash, which the environment sets to a folder of these tests. The
/// files are made beside it, because the trash only accepts files of its own volume.
class RecycleBin : public testing::Test {
 protected:
  void SetUp() override {
    const wchar_t* data = ::_wgetenv(L"XDG_DATA_HOME");
    if (data == nullptr || *data != L'/') {
      GTEST_SKIP() << "only under Wine, with XDG_DATA_HOME naming a folder of the tests' own (CTest does so)";
    }
    trash_ = fs::path(L"Z:" + std::wstring(data)) / "Trash";
    folder_ = fs::path(L"Z:" + std::wstring(data)) / ("files-" + std::to_string(::GetTickCount64()));
    folder_.make_preferred();
    fs::create_directories(folder_);
  }

  void TearDown() override {
    std::error_code ignored;
    fs::remove_all(Literal(folder_), ignored);
    fs::remove_all(trash_, ignored);
  }

  [[nodiscard]] fs::path Write(const fs::path& name, const std::string& content) const {
    std::ofstream(folder_ / name, std::ios::binary) << content;
    return folder_ / name;
  }

  /// The literal path, of any length.
  static fs::path Literal(const fs::path& path) { return LR"(\\?\)" + path.wstring(); }

  static int Recycle(const fs::path& path) {
    const std::u8string text = path.u8string();
    return MoveToRecycleBin({text.begin(), text.end()}, 0, BinQuestions::kOnlyBeforeLoss);
  }

  fs::path trash_;
  fs::path folder_;
};

TEST_F(RecycleBin, KeepsWhatIsMovedThere) {
  const fs::path file = Write(L"曲.mid", "content");
  EXPECT_EQ(Recycle(file), 0);
  EXPECT_FALSE(fs::exists(file));
  EXPECT_EQ(Content(trash_ / "files" / L"曲.mid"), "content");
}

TEST_F(RecycleBin, LeavesAFileWhosePathTheShellRejects) {
  const fs::path file = folder_ / std::string(120, 'a') / std::string(120, 'b') / "song.mid";
  fs::create_directories(Literal(file.parent_path()));
  std::ofstream(Literal(file)) << "content";
  ASSERT_EQ(Content(Literal(file)), "content");
  EXPECT_EQ(Recycle(file), kRecycleNotDone);
  EXPECT_EQ(Content(Literal(file)), "content");
}

TEST_F(RecycleBin, NeverRecyclesAnotherFileThatTheShellWouldFind) {
  const fs::path file = Write("song", "content");
  const fs::path dotted = file.wstring() + L".";
  std::ofstream(Literal(dotted)) << "another";
  ASSERT_EQ(Content(Literal(dotted)), "another");
  EXPECT_EQ(Recycle(dotted), kRecycleNotDone);
  EXPECT_EQ(Content(file), "content");
  EXPECT_EQ(Content(Literal(dotted)), "another");
}

TEST(MoveToRecycleBin, ReportsAPathThatTheShellCannotUse) {
  const TempFolder folder;
  const std::string file = folder.Write("song", "content");
  EXPECT_EQ(MoveToRecycleBin("", 0, BinQuestions::kOnlyBeforeLoss), kRecycleNotDone);
  EXPECT_EQ(MoveToRecycleBin(folder.At("absent"), 0, BinQuestions::kOnlyBeforeLoss), kRecycleNotDone);
  EXPECT_EQ(MoveToRecycleBin(std::string("\xFF"), 0, BinQuestions::kOnlyBeforeLoss), kRecycleNotDone);
  EXPECT_TRUE(folder.Exists("song"));
}

}  // namespace
}  // namespace quillon::test
