#include "platform/desktop/FileIcon.h"

#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>

#include "platform/desktop/IconPixels.h"
#include "platform/windows/Wide.h"

namespace quillon {
namespace {

class Bitmap {
 public:
  explicit Bitmap(HBITMAP handle) : handle_(handle) {}
  Bitmap(const Bitmap&) = delete;
  Bitmap& operator=(const Bitmap&) = delete;
  ~Bitmap() {
    if (handle_ != nullptr) ::DeleteObject(handle_);
  }

  [[nodiscard]] HBITMAP Get() const { return handle_; }

 private:
  HBITMAP handle_;
};

/// All rows from the top with 4 bytes for each pixel. Empty for a failure.
std::vector<std::uint8_t> ReadBits(HBITMAP bitmap, int width, int height) {
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  std::vector<std::uint8_t> bits(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
  HDC const screen = ::GetDC(nullptr);
  const int rows = ::GetDIBits(screen, bitmap, 0, static_cast<UINT>(height), bits.data(), &info, DIB_RGB_COLORS);
  ::ReleaseDC(nullptr, screen);
  if (rows != height) bits.clear();
  return bits;
}

/// An icon without a colour bitmap is black and white: its mask holds the transparent parts above the picture.
std::optional<IconBitmaps> ReadBitmaps(HBITMAP colour, HBITMAP mask) {
  BITMAP shape = {};
  if (::GetObjectW(colour != nullptr ? colour : mask, sizeof(shape), &shape) == 0) return std::nullopt;
  if (shape.bmWidth <= 0 || shape.bmHeight <= 0) return std::nullopt;
  IconBitmaps icon;
  icon.width = shape.bmWidth;
  if (colour != nullptr) {
    icon.height = shape.bmHeight;
    icon.colour = ReadBits(colour, icon.width, icon.height);
    icon.mask = ReadBits(mask, icon.width, icon.height);
  } else {
    icon.height = shape.bmHeight / 2;
    icon.mask = ReadBits(mask, icon.width, icon.height * 2);
    const auto half = icon.mask.begin() + static_cast<std::ptrdiff_t>(icon.mask.size() / 2);
    icon.colour.assign(half, icon.mask.end());
    icon.mask.erase(half, icon.mask.end());
  }
  if (icon.colour.empty() || icon.colour.size() != icon.mask.size()) return std::nullopt;
  return icon;
}

std::optional<Pixels> PixelsOf(HICON handle) {
  ICONINFO info = {};
  if (::GetIconInfo(handle, &info) == FALSE) return std::nullopt;
  const Bitmap colour(info.hbmColor);
  const Bitmap mask(info.hbmMask);
  const std::optional<IconBitmaps> icon = ReadBitmaps(colour.Get(), mask.Get());
  if (!icon) return std::nullopt;
  return PixelsOfIcon(*icon);
}

/// The file's name without its folder, which the shell does not ask about and which may be longer than it takes. Of a
/// name that is too long, the end with the extension.
std::wstring NameForShell(const std::wstring& path) {
  constexpr std::size_t kMostUnits = 200;
  const std::wstring name = path.substr(path.find_last_of(L"\\/:") + 1);
  return name.size() <= kMostUnits ? name : name.substr(name.size() - kMostUnits);
}

/// Of the system's two sizes the nearer one.
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
  std::optional<Pixels> pixels = PixelsOf(info.hIcon);
  ::DestroyIcon(info.hIcon);
  return pixels;
}

}  // namespace quillon
