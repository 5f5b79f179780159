#include "platform/desktop/AccessibleName.h"

// windows.h has to come first.
// clang-format off
#include <windows.h>
#include <initguid.h>
#include <oleacc.h>
// clang-format on

#include "platform/windows/Wide.h"

namespace quillon {

void SetAccessibleName(void* control, const std::string& name) {
  IAccPropServices* services = nullptr;
  if (FAILED(::CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                                reinterpret_cast<void**>(&services)))) {
    return;
  }
  services->SetHwndPropStr(static_cast<HWND>(control), static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME,
                           ToWide(name).value_or(std::wstring()).c_str());
  services->Release();
}

// Windows' dialogs, status bar, tool bar and list provide this by themselves.

void SetAccessibleStatus(void*, const std::string&) {}

void SetAccessibleAlert(void*) {}

void SetAccessibleArrows(void*, const std::vector<std::string>&) {}

void SetAccessibleHeaders(void*, const std::vector<std::string>&) {}

}  // namespace quillon
