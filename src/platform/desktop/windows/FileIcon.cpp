#include "platform/desktop/FileIcon.h"

#include <windows.h>

#include <shellapi.h>

#include <cstddef>
#include <cstdlib>

#include "platform/desktop/IconPixels.h"
#include "platform/desktop/windows/IconReading.h"
#include "platform/windows/Wide.h"

namespace quillon {
namespace {

/// The file's name without its folder, which the shell does not need and which may be too long for it. A name that is
/// too long is reduced to its end with the extension.
std::wstring NameForShell(const std::wstring& path) {
  constexpr std::size_t kMostUnits = 200;
  const std::wstring name = path.substr(path.find_last_of(L"\\/:") + 1);
  return name.size() <= kMostUnits ? name : name.substr(name.size() - kMostUnits);
}

/// The nearer one of the system's two sizes.
UINT NearestSize(int size) {
  const int smallWidth = ::GetSystemMetrics(SM_CXSMICON);
  const int largeWidth = ::GetSystemMetrics(SM_CXICON);
  return std::abs(size - smallWidth) <= std::abs(size - largeWidth) ? SHGFI_SMALLICON : SHGFI_LARGEICON;
}

}  // namespace

std::optional<Pixels> SmallFileIcon(const std::string& path, int size) {
  const std::optional<std::wstring> wide = ToWide(path);
  if (!wide || wide->find(L'\0') != std::wstring::npos) return std::nullopt;
  SHFILEINFOW info = {};
  const UINT flags = SHGFI_ICON | SHGFI_USEFILEATTRIBUTES | NearestSize(size);
  const std::wstring name = NameForShell(*wide);
  if (::SHGetFileInfoW(name.c_str(), FILE_ATTRIBUTE_NORMAL, &info, sizeof(info), flags) == 0) return std::nullopt;
  if (info.hIcon == nullptr) return std::nullopt;
  const std::optional<IconBitmaps> icon = ReadIcon(info.hIcon);
  ::DestroyIcon(info.hIcon);
  if (!icon) return std::nullopt;
  return PixelsOfIcon(*icon);
}

}  // namespace quillon
