#include "platform/desktop/windows/IconReading.h"

#include <cstddef>

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

/// Reads all rows from the top, with 4 bytes for each pixel. Returns an empty vector on failure.
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

/// An icon without a colour bitmap is black and white: its mask contains the transparency in the upper half and the
/// picture in the lower half.
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

}  // namespace

std::optional<IconBitmaps> ReadIcon(HICON handle) {
  ICONINFO info = {};
  if (::GetIconInfo(handle, &info) == FALSE) return std::nullopt;
  const Bitmap colour(info.hbmColor);
  const Bitmap mask(info.hbmMask);
  return ReadBitmaps(colour.Get(), mask.Get());
}

}  // namespace quillon
