#pragma once

#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/Throttle.h"
#include "controls/TextTable.h"
#include "pattern/PatternForm.h"
#include "pattern/PatternPreview.h"
#include "settings/ApplyMode.h"
#include "settings/OptionValues.h"

namespace quillon {

/// The dialog for renaming by a pattern: the pattern, its counter, and a preview that is worked out while nothing else
/// happens. OK stores the form in the options; the caller then runs Rules().
class frmPattern final : public wxDialog {
 public:
  /// The options and the preview must outlive the dialog.
  frmPattern(wxWindow* parent, OptionValues& options, const ApplyMode& mode, PatternPreview& preview,
             std::function<void()> showHelp);

  /// Precondition: the dialog has ended with OK.
  [[nodiscard]] const PatternRules& Rules() const { return *rules_; }

 private:
  // The layout, in the order of the Tab key.
  void Build();
  wxSizer* MakePatternRow();
  wxSizer* MakeFieldButtons();
  wxSizer* MakeCounterBox();
  wxSizer* MakeInvalidBox();
  void AddPreview(wxSizer& column);
  wxSpinCtrl* AddSpin(wxSizer& row, wxWindow* parent, const char* caption, const char* name);
  wxStaticText* MakeLine(const char* name);
  void BindEvents();

  void ShowForm(const PatternForm& form);
  [[nodiscard]] PatternForm Form() const;
  void Insert(const wxString& field);
  void Changed();
  void Restart();
  void ShowError(const std::string& text);
  void OnIdle(wxIdleEvent& event);
  void OnOk(wxCommandEvent& event);
  void Refuse(const PatternRefusal& refusal);

  OptionValues& options_;
  const ApplyMode& mode_;
  PatternPreview& preview_;
  std::function<void()> showHelp_;
  std::optional<PatternRules> rules_;
  bool working_ = false;
  Throttle shown_{kProgressInterval};
  wxTimer timRestart_;
  // Where a field goes: the selection of the pattern's box, which some systems lose with the focus.
  long from_ = 0;
  long to_ = 0;

  // Children, owned by the dialog.
  wxComboBox* cboPattern_ = nullptr;
  wxStaticText* lblError_ = nullptr;
  wxSpinCtrl* spnStart_ = nullptr;
  wxSpinCtrl* spnStep_ = nullptr;
  wxSpinCtrl* spnDigits_ = nullptr;
  wxChoice* cboInvalid_ = nullptr;
  wxTextCtrl* txtReplacement_ = nullptr;
  std::unique_ptr<TextTable> lvwPreview_;
  wxStaticText* lblSummary_ = nullptr;
};

}  // namespace quillon
