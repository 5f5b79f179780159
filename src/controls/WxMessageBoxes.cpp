#include "controls/WxMessageBoxes.h"

#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/msgdlg.h>

#include "controls/TopmostDialog.h"
#include "controls/WxText.h"

namespace quillon {
namespace {

long StyleOf(const Message& message) {
  long style = wxCENTRE;
  switch (message.icon) {
    case MessageIcon::kExclamation: style |= wxICON_EXCLAMATION; break;
    case MessageIcon::kStop: style |= wxICON_ERROR; break;
    case MessageIcon::kInformation: style |= wxICON_INFORMATION; break;
    case MessageIcon::kQuestion: style |= wxICON_QUESTION; break;
  }
  switch (message.buttons) {
    case MessageButtons::kOk: return style | wxOK;
    case MessageButtons::kOkCancel: return style | wxOK | wxCANCEL;
    case MessageButtons::kYesNo: return style | wxYES_NO;
  }
  return style;
}

}  // namespace

bool WxMessageBoxes::Show(const Message& message) {
  wxString text = ToWx(message.text);
  text.Replace("\r\n", "\n");
  wxWindow* const owner = TopmostDialog(parent_);
  wxMessageDialog dialog(owner, text, ToWx(message.caption), StyleOf(message));
  if (message.buttons == MessageButtons::kYesNo) {
    dialog.SetYesNoLabels(ToWx("はい(&Y)"), ToWx("いいえ(&N)"));
  } else if (message.buttons == MessageButtons::kOkCancel) {
    dialog.SetOKCancelLabels("OK", ToWx("キャンセル"));
  } else {
    dialog.SetOKLabel("OK");
  }
  // Windows gives the focus to another program when a box over a disabled window closes.
  const bool disabled = owner != nullptr && !owner->IsThisEnabled();
  if (disabled) owner->Enable();
  const int answer = dialog.ShowModal();
  if (disabled) owner->Disable();
  return answer == wxID_YES || answer == wxID_OK;
}

}  // namespace quillon
