#pragma once

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include <array>
#include <functional>
#include <string>

#include "base/Ports.h"
#include "rename/ModifyForm.h"
#include "settings/OptionValues.h"

namespace quillon {

enum class OpenedFor { kExecute, kSettings };

/// Runs these rules over the rows that the dialog was opened for.
using RunRules = std::function<void(const OptionValues::Modify& rules)>;

/// The dialog of the modification rules. OK stores them in `rules`. When opened to execute, it then calls `run`: after
/// the dialog has closed or, when the user chose to keep it open, with the dialog disabled. Without the
/// regular-expression library a plain search is shown and run; the stored choice stays.
class frmModify final : public wxDialog {
 public:
  frmModify(wxWindow* parent, OptionValues::Modify& rules, OpenedFor purpose, bool regexAvailable, MessageBoxes& boxes,
            RunRules run);

  int ShowModal() override;

 private:
  struct RuleControls {
    wxCheckBox* chkReplace = nullptr;
    wxTextCtrl* txtObject = nullptr;
    wxTextCtrl* txtReplace = nullptr;
  };

  // The layout, in the order of the Tab key.
  void Build();
  wxSizer* MakeMenuRow();
  wxSizer* MakeInvalidBox();
  wxSizer* MakeRulesBox();
  void AddRule(wxFlexGridSizer& grid, wxWindow* parent, std::size_t index);
  wxSizer* MakeFindBox();
  wxSizer* MakeConversionBox();
  wxSizer* MakeButtonRow();
  wxButton* MakeMenuButton(const char* caption, const char* name);
  wxCheckBox* MakeCheckBox(wxWindow* parent, const char* caption, const char* name);
  wxTextCtrl* MakeTextBox(wxWindow* parent, const std::string& name);
  void BindEvents();

  void ShowForm(const OptionValues::Modify& form);
  [[nodiscard]] OptionValues::Modify Form() const;
  void UpdateEnabling();

  void OnOk(wxCommandEvent& event);
  void OnFocus(wxFocusEvent& event);
  void OnEdit(wxCommandEvent& event);
  void OpenMenu(wxButton& button, wxMenu& menu);
  void Refuse(const ModifyRefusal& refusal);
  void FocusKeepingSelection(wxWindow* control);
  void RunWithDialogOpen();

  OptionValues::Modify& rules_;
  OpenedFor purpose_;
  bool regexAvailable_;
  MessageBoxes& boxes_;
  RunRules run_;
  bool runWhenClosed_ = false;

  wxWindow* focused_ = nullptr;      // unchanged while another window is the active one
  wxTextCtrl* editedBox_ = nullptr;  // what the edit menu works on

  // Children, owned by the dialog.
  wxButton* mnuEdit_ = nullptr;
  wxButton* mnuHelp_ = nullptr;
  wxCheckBox* chkInjustice_ = nullptr;
  wxTextCtrl* txtRevice_ = nullptr;
  std::array<RuleControls, kReplaceRuleCount> ruleControls_;
  wxRadioButton* optFindCtrl_No_ = nullptr;
  wxRadioButton* optFindCtrl_S_ = nullptr;
  wxCheckBox* chkIgnoreCase_ = nullptr;
  wxCheckBox* chkNarrow_ = nullptr;
  wxCheckBox* chkWide_ = nullptr;
  wxCheckBox* chkLower_ = nullptr;
  wxCheckBox* chkUpper_ = nullptr;
  wxCheckBox* chkProper_ = nullptr;
  wxCheckBox* chkNonUnload_ = nullptr;
  wxButton* cmdOK_ = nullptr;
};

}  // namespace quillon
