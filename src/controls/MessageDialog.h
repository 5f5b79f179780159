#pragma once

#include <wx/checkbox.h>
#include <wx/msgdlg.h>

#include <string>

#include "base/Ports.h"

namespace quillon {

/// A message box with any of the four message icons; GTK's boxes, and those of Windows with custom buttons, do not show
/// all of them. Its buttons are Japanese in every locale; Ctrl+C copies its text. Details are shown in a collapsible
/// part; in a batch it offers to show no further failures. A question may have a third button, which ends it with
/// wxID_MORE.
class MessageDialog final : public wxMessageDialogBase {
 public:
  /// `further` is the caption of the third button; empty for none.
  MessageDialog(wxWindow* owner, const FailureMessage& content, std::string further = {});

  /// True when the user asked for no further failures to be shown.
  [[nodiscard]] bool TellsNoMore() const { return chkTellNoMore_ != nullptr && chkTellNoMore_->GetValue(); }

  int ShowModal() override;

 private:
  void AddText(wxSizer& column);
  void AddDetails(wxSizer& column);
  void AddButtons(wxSizer& column);
  void OnKey(wxKeyEvent& event);

  FailureMessage content_;
  std::string further_;
  wxCheckBox* chkTellNoMore_ = nullptr;
};

}  // namespace quillon
