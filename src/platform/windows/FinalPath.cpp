#include "platform/windows/FinalPath.h"

#include <windows.h>

namespace quillon {

std::wstring FinalPath(const Handle& file) {
  const DWORD needed = ::GetFinalPathNameByHandleW(file.Get(), nullptr, 0, FILE_NAME_NORMALIZED);
  std::wstring path(needed, L'\0');
  path.resize(::GetFinalPathNameByHandleW(file.Get(), path.data(), needed, FILE_NAME_NORMALIZED));
  return path;
}

}  // namespace quillon
