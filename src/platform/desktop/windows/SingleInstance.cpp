#include "platform/desktop/SingleInstance.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "platform/windows/Handle.h"
#include "platform/windows/Wide.h"

namespace quillon {
namespace {

/// The name is local to the session, that is to one user at one screen. Backslashes are replaced, because they would
/// separate a namespace prefix.
std::wstring MutexName(std::wstring title) {
  std::replace(title.begin(), title.end(), L'\\', L'_');
  return L"Local\\" + title + L".single-instance";
}

struct NamedMutex {
  Handle handle;
  bool wasThere;
};

NamedMutex TakeMutex(const std::wstring& name) {
  ::SetLastError(ERROR_SUCCESS);
  Handle handle(::CreateMutexW(nullptr, FALSE, name.c_str()));
  const DWORD error = ::GetLastError();
  // Opening the mutex of an instance with more rights fails with "access denied".
  return {std::move(handle), error == ERROR_ALREADY_EXISTS || error == ERROR_ACCESS_DENIED};
}

class MutexInstance final : public SingleInstance {
 public:
  MutexInstance(std::wstring title, std::wstring windowClass)
      : title_(std::move(title)), windowClass_(std::move(windowClass)), mutex_(TakeMutex(MutexName(title_))) {}

  [[nodiscard]] bool IsFirst() const override { return !mutex_.wasThere; }

  /// All these calls accept a null window. A later instance has no window yet, so it cannot find itself. None of the
  /// calls waits for the first instance, which may be busy.
  void BringFirstForward() override {
    if (IsFirst()) return;
    const HWND window = ::FindWindowW(windowClass_.empty() ? nullptr : windowClass_.c_str(), title_.c_str());
    const HWND popup = ::GetLastActivePopup(window);
    // A minimised owner must be restored along with its dialog, but without activating it, so that the dialog stays in
    // front.
    if (popup != window && ::IsIconic(window) != FALSE) ::ShowWindowAsync(window, SW_SHOWNOACTIVATE);
    ::SetForegroundWindow(popup);
    // Only a minimised window is restored, so that a maximised one stays maximised.
    if (::IsIconic(popup) != FALSE) ::ShowWindowAsync(popup, SW_RESTORE);
  }

  void OnRaise(std::function<void()> /*raise*/) override {}

 private:
  std::wstring title_;
  std::wstring windowClass_;
  NamedMutex mutex_;
};

}  // namespace

std::unique_ptr<SingleInstance> MakeSingleInstance(const std::string& title, const std::string& windowClass) {
  return std::make_unique<MutexInstance>(ToWide(title).value_or(L""), ToWide(windowClass).value_or(L""));
}

}  // namespace quillon
