#include "controls/OkCancelButtons.h"

#include <wx/button.h>

#include "controls/WxText.h"

namespace quillon {

wxSizer* OkCancelButtons(wxWindow& dialog, const char* ok) {
  auto* cmdOK = new wxButton(&dialog, wxID_OK, ToWx(ok));
  cmdOK->SetName("cmdOK");
  auto* cmdCancel = new wxButton(&dialog, wxID_CANCEL, ToWx("キャンセル"));
  cmdCancel->SetName("cmdCancel");
  auto* buttons = new wxStdDialogButtonSizer();
  buttons->AddButton(cmdOK);
  buttons->AddButton(cmdCancel);
  buttons->Realize();
  cmdOK->SetDefault();
  return buttons;
}

}  // namespace quillon
