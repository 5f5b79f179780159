#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "desktop/OtherInstance.h"
#include "platform/desktop/SingleInstance.h"

namespace quillon {
namespace {

constexpr const char* kTitle = "Quillon のテスト";
constexpr const wchar_t* kWideTitle = L"Quillon のテスト";
constexpr const char* kClass = "QuillonTestWindow";
constexpr const wchar_t* kWideClass = L"QuillonTestWindow";

/// Without a display Wine has windows, but does not minimise them.
constexpr const char* kNoDisplay = "needs a display, on which windows can be minimised";

/// A minimised window with the window class that the first instance's main window is expected to have.
class MainWindow {
 public:
  explicit MainWindow(const std::wstring& title) {
    WNDCLASSW description = {};
    description.lpfnWndProc = ::DefWindowProcW;
    description.hInstance = ::GetModuleHandleW(nullptr);
    description.lpszClassName = kWideClass;
    ::RegisterClassW(&description);
    window_ = Create(title.c_str(), nullptr);
    ::ShowWindow(window_, SW_SHOWMINNOACTIVE);
    Process();
  }
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;
  ~MainWindow() {
    ::DestroyWindow(window_);
    ::UnregisterClassW(kWideClass, ::GetModuleHandleW(nullptr));
  }

  static HWND Create(const wchar_t* title, HWND owner) {
    return ::CreateWindowExW(0, kWideClass, title, WS_OVERLAPPEDWINDOW, 10, 10, 200, 100, owner, nullptr,
                             ::GetModuleHandleW(nullptr), nullptr);
  }

  /// Waits until the window manager has put the window in the foreground. Returns false after five seconds.
  static bool ComesForward(HWND window) {
    for (int i = 0; i < 500 && ::GetForegroundWindow() != window; ++i) {
      Process();
      ::Sleep(10);
    }
    return ::GetForegroundWindow() == window;
  }

  /// Lets the window manager finish what it does on its own, such as giving another window the focus.
  static void Settle() {
    for (int i = 0; i < 50; ++i) {
      Process();
      ::Sleep(10);
    }
  }

  /// Processes the messages posted to this thread's windows.
  static void Process() {
    MSG message = {};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) ::DispatchMessageW(&message);
  }

  [[nodiscard]] HWND Get() const { return window_; }
  [[nodiscard]] bool Minimised() const { return ::IsIconic(window_) != FALSE; }

 private:
  HWND window_ = nullptr;
};

TEST(SingleInstance, TheSecondIsNotTheFirst) {
  const auto first = MakeSingleInstance(kTitle, kClass);
  const auto second = MakeSingleInstance(kTitle, kClass);
  EXPECT_TRUE(first->IsFirst());
  EXPECT_FALSE(second->IsFirst());
}

TEST(SingleInstance, AProcessFindsTheOtherOne) {
  EXPECT_EQ(test::RunOtherInstance(kTitle, kClass).output, test::kFirst);
  const auto first = MakeSingleInstance(kTitle, kClass);
  EXPECT_EQ(test::RunOtherInstance(kTitle, kClass).output, test::kLater);
}

TEST(SingleInstance, TheNextIsFirstAfterAllHaveEnded) {
  auto first = MakeSingleInstance(kTitle, kClass);
  first.reset();
  EXPECT_TRUE(MakeSingleInstance(kTitle, kClass)->IsFirst());
}

TEST(SingleInstance, AnotherProgramHasItsOwnFirst) {
  const auto first = MakeSingleInstance(kTitle, kClass);
  EXPECT_TRUE(MakeSingleInstance("with \\ backslash", kClass)->IsFirst());
}

TEST(SingleInstance, TheFirstsWindowIsRestored) {
  const auto first = MakeSingleInstance(kTitle, kClass);
  const MainWindow window(kWideTitle);
  if (!window.Minimised()) GTEST_SKIP() << kNoDisplay;
  EXPECT_EQ(test::RunOtherInstance(kTitle, kClass).output, test::kLater);
  MainWindow::Process();
  EXPECT_FALSE(window.Minimised());
  EXPECT_TRUE(MainWindow::ComesForward(window.Get()));
}

TEST(SingleInstance, AMaximisedWindowStaysMaximised) {
  const auto first = MakeSingleInstance(kTitle, kClass);
  const MainWindow window(kWideTitle);
  ::ShowWindow(window.Get(), SW_MAXIMIZE);
  MainWindow::Process();
  if (::IsZoomed(window.Get()) == FALSE) GTEST_SKIP() << kNoDisplay;
  EXPECT_EQ(test::RunOtherInstance(kTitle, kClass).output, test::kLater);
  MainWindow::Process();
  EXPECT_TRUE(::IsZoomed(window.Get()));
  EXPECT_TRUE(MainWindow::ComesForward(window.Get()));
}

TEST(SingleInstance, AnyClassWillDoWhenNoneIsGiven) {
  const auto first = MakeSingleInstance(kTitle, "");
  const MainWindow window(kWideTitle);
  if (!window.Minimised()) GTEST_SKIP() << kNoDisplay;
  EXPECT_EQ(test::RunOtherInstance(kTitle, "").output, test::kLater);
  MainWindow::Process();
  EXPECT_FALSE(window.Minimised());
}

TEST(SingleInstance, AnOpenDialogComesForwardAndItsOwnerIsRestored) {
  const auto first = MakeSingleInstance(kTitle, kClass);
  const MainWindow window(kWideTitle);
  ::ShowWindow(window.Get(), SW_RESTORE);
  const HWND dialog = MainWindow::Create(L"dialog", window.Get());
  ::ShowWindow(dialog, SW_SHOWNORMAL);
  ::EnableWindow(window.Get(), FALSE);
  ::ShowWindow(window.Get(), SW_MINIMIZE);
  MainWindow::Settle();
  if (!window.Minimised()) GTEST_SKIP() << kNoDisplay;
  EXPECT_EQ(test::RunOtherInstance(kTitle, kClass).output, test::kLater);
  MainWindow::Process();
  EXPECT_FALSE(window.Minimised());
  EXPECT_TRUE(::IsWindowVisible(dialog));
  EXPECT_TRUE(MainWindow::ComesForward(dialog));
}

TEST(SingleInstance, AWindowOfAnotherTitleOrClassIsLeftAlone) {
  const auto first = MakeSingleInstance(kTitle, kClass);
  const MainWindow window(std::wstring(kWideTitle) + L" ");
  if (!window.Minimised()) GTEST_SKIP() << kNoDisplay;
  EXPECT_EQ(test::RunOtherInstance(kTitle, kClass).exitCode, 0);
  ::SetWindowTextW(window.Get(), kWideTitle);
  EXPECT_EQ(test::RunOtherInstance(kTitle, "AnotherClass").exitCode, 0);
  MainWindow::Process();
  EXPECT_TRUE(window.Minimised());
}

TEST(SingleInstance, AFirstWithoutAWindowIsNoFailure) {
  const auto first = MakeSingleInstance(kTitle, kClass);
  const test::ProcessResult other = test::RunOtherInstance(kTitle, kClass);
  EXPECT_EQ(other.exitCode, 0);
  EXPECT_EQ(other.output, test::kLater);
}

}  // namespace
}  // namespace quillon
