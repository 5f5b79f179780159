// windows.h has to come first.
// clang-format off
#include <windows.h>
#include <commctrl.h>
#include <initguid.h>
#include <oleacc.h>
// clang-format on

#include <utility>

#include "controls/WxText.h"
#include "gui/SystemView.h"

namespace quillon::test {
namespace {

LRESULT CALLBACK TellEnabling(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR, DWORD_PTR told) {
  if (message == WM_ENABLE) (*reinterpret_cast<std::function<void(bool)>*>(told))(first != FALSE);
  return DefSubclassProc(window, message, first, second);
}

}  // namespace

bool IsAboveOthers(const wxWindow& window) {
  return (GetWindowLongPtrW(window.GetHandle(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

// One pointer for the whole program.
bool ShowsPointer(const wxWindow& /*window*/, wxStockCursor pointer) {
  return static_cast<const void*>(GetCursor()) == wxCursor(pointer).GetHCURSOR();
}

std::string AccessibleName(const wxWindow& control) {
  IAccessible* object = nullptr;
  if (FAILED(AccessibleObjectFromWindow(control.GetHandle(), static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                        reinterpret_cast<void**>(&object)))) {
    return {};
  }
  VARIANT self = {};
  self.vt = VT_I4;
  self.lVal = CHILDID_SELF;
  BSTR name = nullptr;
  object->get_accName(self, &name);
  const wxString text = name == nullptr ? wxString() : wxString(name);
  SysFreeString(name);
  object->Release();
  return FromWx(text);
}

EnablingWatch::EnablingWatch(wxWindow& window, std::function<void(bool enabled)> told)
    : window_(window), told_(std::move(told)) {
  SetWindowSubclass(window_.GetHandle(), &TellEnabling, 0, reinterpret_cast<DWORD_PTR>(&told_));
}

EnablingWatch::~EnablingWatch() {
  RemoveWindowSubclass(window_.GetHandle(), &TellEnabling, 0);
}

wxRect NativeToolRect(const wxToolBar& bar, int id) {
  RECT place = {};
  SendMessageW(bar.GetHandle(), TB_GETRECT, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&place));
  return {bar.ClientToScreen(wxPoint(place.left, place.top)),
          wxSize(place.right - place.left, place.bottom - place.top)};
}

}  // namespace quillon::test
