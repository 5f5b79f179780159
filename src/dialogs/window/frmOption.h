#pragma once

#include <wx/dialog.h>
#include <wx/notebook.h>
#include <wx/sizer.h>

#include <functional>
#include <map>
#include <span>
#include <string>

#include "dialogs/OptionForm.h"

namespace quillon {

/// The options dialog: the pages of OptionPages, which show a form and pass the user's input to it. It ends with the
/// form's cmdOK or cmdCancel.
class frmOption final : public wxDialog {
 public:
  /// `modifyOption` shows the dialog of the modification rules over the given window, `showHelp` (F1) the help file.
  frmOption(wxWindow* parent, OptionForm& form, std::function<void(wxWindow&)> modifyOption,
            std::function<void()> showHelp);

 private:
  void Build();
  wxWindow* MakePage(const OptionPage& page, const std::string& name);
  wxSizer* MakeFrame(wxWindow* page, const OptionFrame& frame);
  wxWindow* MakeControl(wxWindow* parent, const OptionControl& control, bool firstOption);
  wxWindow* MakeTextBox(wxWindow* parent, const OptionControl& control);
  wxWindow* MakeNote(wxWindow* parent, const OptionControl& control);
  void Fill(wxSizer& column, wxWindow* parent, std::span<const OptionControl> controls);
  void BindEvents();

  void OnClick(wxCommandEvent& event);
  void OnText(wxCommandEvent& event);
  void ShowForm();
  void End(int answer);

  OptionForm& form_;
  std::function<void(wxWindow&)> modifyOption_;
  std::function<void()> showHelp_;
  wxNotebook* tabStrip_ = nullptr;             // a child, owned by the dialog
  std::map<std::string, wxWindow*> controls_;  // likewise
};

}  // namespace quillon
