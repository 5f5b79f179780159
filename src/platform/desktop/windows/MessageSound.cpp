#include "platform/desktop/MessageSound.h"

#include <windows.h>

namespace quillon {

void PlayMessageSound(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kExclamation: ::MessageBeep(MB_ICONWARNING); break;
    case MessageIcon::kStop: ::MessageBeep(MB_ICONERROR); break;
    case MessageIcon::kQuestion: ::MessageBeep(MB_ICONQUESTION); break;
    case MessageIcon::kInformation: ::MessageBeep(MB_ICONINFORMATION); break;
  }
}

}  // namespace quillon
