#pragma once

#include <wx/checkbox.h>
#include <wx/msgdlg.h>

#include "base/Ports.h"

namespace quillon {

/// A message box with the icon that the message asks for: neither GTK's own boxes nor those of Windows that have
/// buttons of our words show all four. Its buttons are Japanese in every locale; Ctrl+C copies what it says. With
/// details it has a part that folds out; in a batch it offers to tell no more failures.
class MessageDialog final : public wxMessageDialogBase {
 public:
  MessageDialog(wxWindow* owner, const FailureMessage& content);

  /// The user wants no more boxes of this kind.
  [[nodiscard]] bool TellsNoMore() const { return chkTellNoMore_ != nullptr && chkTellNoMore_->GetValue(); }

  int ShowModal() override;

 private:
  void AddText(wxSizer& column);
  void AddDetails(wxSizer& column);
  void AddButtons(wxSizer& column);
  void OnKey(wxKeyEvent& event);

  FailureMessage content_;
  wxCheckBox* chkTellNoMore_ = nullptr;
};

}  // namespace quillon
