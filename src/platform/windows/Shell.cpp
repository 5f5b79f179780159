#include "platform/Shell.h"

#include <windows.h>

#include <shellapi.h>

#include <optional>

#include "platform/windows/Wide.h"

namespace quillon {

int OpenWithShell(const std::string& target, std::uintptr_t ownerWindow) {
  const std::optional<std::wstring> wide = ToWide(target);
  if (target.empty() || !wide) return kShellFileNotFound;
  // The handle travels as a number, so that no header outside knows the type; the answer is a number in a handle's
  // type.
  const auto owner = reinterpret_cast<HWND>(ownerWindow);  // NOLINT(performance-no-int-to-ptr)
  const HINSTANCE answer = ::ShellExecuteW(owner, L"open", wide->c_str(), nullptr, nullptr, SW_SHOW);
  return static_cast<int>(reinterpret_cast<std::intptr_t>(answer));
}

}  // namespace quillon
