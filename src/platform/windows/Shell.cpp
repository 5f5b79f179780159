#include "platform/Shell.h"

#include <windows.h>

#include <shellapi.h>
#include <shlwapi.h>

#include <array>
#include <optional>

#include "platform/windows/Wide.h"

namespace quillon {

int OpenWithShell(const std::string& target, std::uintptr_t ownerWindow) {
  const std::optional<std::wstring> wide = ToWide(target);
  if (target.empty() || !wide) return kShellFileNotFound;
  // The handle is passed as a number, so that portable headers need not know its type. The result is a number, although
  // its type is a handle's.
  const auto owner = reinterpret_cast<HWND>(ownerWindow);  // NOLINT(performance-no-int-to-ptr)
  const HINSTANCE answer = ::ShellExecuteW(owner, L"open", wide->c_str(), nullptr, nullptr, SW_SHOW);
  return static_cast<int>(reinterpret_cast<std::intptr_t>(answer));
}

std::string FileTypeDescription(const std::string& extension) {
  constexpr DWORD kLongest = 256;
  const std::optional<std::wstring> dotted = ToWide("." + extension);
  std::array<wchar_t, kLongest> words = {};
  DWORD length = kLongest;
  const bool known = !extension.empty() && dotted &&
                     ::AssocQueryStringW(ASSOCF_INIT_IGNOREUNKNOWN, ASSOCSTR_FRIENDLYDOCNAME, dotted->c_str(), nullptr,
                                         words.data(), &length) == S_OK;
  return known ? FromWide(words.data()) : std::string();
}

}  // namespace quillon
