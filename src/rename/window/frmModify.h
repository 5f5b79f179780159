#pragma once

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

#include <array>
#include <functional>
#include <memory>
#include <string>

#include "base/Ports.h"
#include "base/Throttle.h"
#include "controls/TextTable.h"
#include "rename/ModifyForm.h"
#include "rename/ModifyPreview.h"
#include "rename/RegexReplace.h"
#include "rename/window/frmModifyPresets.h"
#include "settings/OptionValues.h"

namespace quillon {

enum class OpenedFor { kExecute, kSettings };

/// Runs these rules over the rows that the dialog was opened for.
using RunRules = std::function<void(const OptionValues::Modify& rules)>;

/// The dialog of the modification rules. OK stores them in the options. When opened to execute, it then calls `run`:
/// after the dialog has closed or, when the user chose to keep it open, with the dialog disabled. Without the
/// regular-expression library a plain search is shown and run; the stored choice stays. What the rules would do is
/// shown while the user edits them, worked out while nothing else happens.
class frmModify final : public wxDialog {
 public:
  /// `regex` is null without the library. `preview` is null when there are no rows: then none is shown.
  frmModify(wxWindow* parent, OptionValues& options, OpenedFor purpose, RegexEngine* regex, MessageBoxes& boxes,
            RunRules run, const PresetUse& presets, ModifyPreview* preview);

  int ShowModal() override;

 private:
  struct RuleControls {
    wxCheckBox* chkReplace = nullptr;
    wxTextCtrl* txtObject = nullptr;
    wxTextCtrl* txtReplace = nullptr;
    std::string problem;
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
  wxStaticText* MakeLine(wxWindow* parent, const char* name);
  void AddPreview(wxSizer& column);
  void GiveRoomToPreview();
  void BindEvents();

  void ShowForm(const OptionValues::Modify& form);
  [[nodiscard]] OptionValues::Modify Form() const;
  void UpdateEnabling();

  /// Call it after every change of a control: soon after the last one, the preview starts anew.
  void Changed();
  void Restart();
  void PausePreview();
  void OnIdle(wxIdleEvent& event);
  void ShowPreview();
  void ShowProblems(const OptionValues::Modify& form);
  void ShowProblem(std::size_t rule, const std::string& problem);
  void ShowGrowth(const std::string& note);

  void OnOk(wxCommandEvent& event);
  void OnFocus(wxFocusEvent& event);
  void OnEdit(wxCommandEvent& event);
  void OpenMenu(wxButton& button, wxMenu& menu);
  [[nodiscard]] frmModifyPresets::Form PresetForm();
  void OpenPresets();
  void Refuse(const ModifyRefusal& refusal);
  void FocusKeepingSelection(wxWindow* control);
  void RunWithDialogOpen();

  OptionValues& options_;
  OpenedFor purpose_;
  RegexEngine* regex_;
  MessageBoxes& boxes_;
  RunRules run_;
  frmModifyPresets presets_;
  ModifyPreview* preview_;
  bool runWhenClosed_ = false;
  bool working_ = false;  // on the preview
  Throttle shown_{kProgressInterval};
  wxTimer timRestart_;

  wxWindow* focused_ = nullptr;      // unchanged while another window is the active one
  wxTextCtrl* editedBox_ = nullptr;  // what the edit menu works on

  // Children, owned by the dialog.
  wxButton* mnuEdit_ = nullptr;
  wxButton* mnuPreset_ = nullptr;
  wxButton* mnuHelp_ = nullptr;
  wxCheckBox* chkInjustice_ = nullptr;
  wxTextCtrl* txtRevice_ = nullptr;
  std::array<RuleControls, kReplaceRuleCount> ruleControls_;
  wxStaticText* lblProblem_ = nullptr;
  wxCheckBox* chkRunOnce_ = nullptr;
  wxStaticText* lblGrowth_ = nullptr;
  wxRadioButton* optFindCtrl_No_ = nullptr;
  wxRadioButton* optFindCtrl_S_ = nullptr;
  wxCheckBox* chkIgnoreCase_ = nullptr;
  wxCheckBox* chkNarrow_ = nullptr;
  wxCheckBox* chkWide_ = nullptr;
  wxCheckBox* chkLower_ = nullptr;
  wxCheckBox* chkUpper_ = nullptr;
  wxCheckBox* chkProper_ = nullptr;
  std::unique_ptr<TextTable> lvwPreview_;
  wxStaticText* lblSummary_ = nullptr;
  wxCheckBox* chkNonUnload_ = nullptr;
};

}  // namespace quillon
