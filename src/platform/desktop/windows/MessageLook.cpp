#include "platform/desktop/MessageLook.h"

#include <windows.h>

#include "platform/desktop/IconPixels.h"
#include "platform/desktop/windows/IconReading.h"

namespace quillon {
namespace {

struct Look {
  UINT sound;
  ULONG_PTR picture;  ///< the resource number of a system icon
};

Look LookOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kExclamation: return {MB_ICONWARNING, 32515};
    case MessageIcon::kStop: return {MB_ICONERROR, 32513};
    case MessageIcon::kQuestion: return {MB_ICONQUESTION, 32514};
    case MessageIcon::kInformation: break;
  }
  return {MB_ICONINFORMATION, 32516};
}

}  // namespace

std::optional<Pixels> MessagePicture(MessageIcon icon) {
  const auto name = reinterpret_cast<const wchar_t*>(LookOf(icon).picture);  // NOLINT(performance-no-int-to-ptr)
  HICON const handle = ::LoadIconW(nullptr, name);                           // shared, must not be destroyed
  const std::optional<IconBitmaps> bitmaps = handle != nullptr ? ReadIcon(handle) : std::nullopt;
  return bitmaps ? std::optional(PixelsOfIcon(*bitmaps)) : std::nullopt;
}

void PlayMessageSound(MessageIcon icon) {
  ::MessageBeep(LookOf(icon).sound);
}

}  // namespace quillon
