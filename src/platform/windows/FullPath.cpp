#include <windows.h>

#include "platform/FileSystem.h"
#include "platform/WindowsPath.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/Wide.h"

namespace quillon {

std::string FullPath(const std::string& path) {
  return TidySystemPath(path).value_or(path);
}

std::string LongPath(const std::string& fullPath) {
  const std::string plain = PlainWindowsPath(fullPath);
  // The plain form is tried first: not every system expands short names in literal paths, which longer paths need.
  for (const std::optional<std::wstring>& path : {ToWide(plain), SystemPath(plain)}) {
    const DWORD needed = path ? ::GetLongPathNameW(path->c_str(), nullptr, 0) : 0;
    if (needed == 0) continue;
    std::wstring found(needed, L'\0');
    found.resize(::GetLongPathNameW(path->c_str(), found.data(), needed));
    if (!found.empty()) return PlainWindowsPath(FromWide(found));
  }
  return plain;
}

std::string UserTrashFolder() {
  return {};
}

}  // namespace quillon
