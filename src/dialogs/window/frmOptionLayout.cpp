#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/display.h>
#include <wx/panel.h>
#include <wx/radiobut.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include <algorithm>

#include "controls/AccessKeys.h"
#include "controls/OkCancelButtons.h"
#include "controls/TextBox.h"
#include "controls/WrappedToFit.h"
#include "controls/WxText.h"
#include "dialogs/window/frmOption.h"
#include "platform/desktop/AccessibleName.h"
#include "platform/desktop/TabStrip.h"
#include "settings/basINIControl.h"

/// Builds the options dialog from its table: a page's frames are below one another, and so are a frame's controls; a
/// text box or a button is at the right of its check box.
namespace quillon {
namespace {

constexpr int kGap = 8;           // DIP
constexpr int kSmallGap = 4;      // DIP
constexpr int kIndent = 20;       // DIP
constexpr int kTextWidth = 200;   // DIP, at least
constexpr int kAroundNote = 100;  // DIP
constexpr int kNoteLine = 40;     // characters, at most

bool StandsBeside(const OptionControl& control) {
  return control.kind == OptionKind::kTextBox || control.kind == OptionKind::kButton;
}

}  // namespace

void frmOption::Build() {
  tabStrip_ = new wxNotebook(this, wxID_ANY);
  tabStrip_->SetName("TabStrip");
  int number = 0;
  for (const OptionPage& page : OptionPages()) {
    tabStrip_->AddPage(MakePage(page, "fraTab" + std::to_string(number++)), ToWx(page.caption));
  }
  wxSize size = tabStrip_->GetBestSize();  // fits the pages
  size.IncTo(wxSize(WidthOfAllTabs(tabStrip_->GetHandle()), 0));
  tabStrip_->SetMinSize(size);
  wxSizer* const buttons = OkCancelButtons(*this);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(tabStrip_, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kGap)));
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(buttons);
  row->AddSpacer(FromDIP(kSmallGap));
  column->Add(row, wxSizerFlags().Right().Border(wxBOTTOM, FromDIP(kGap)));
  SetSizerAndFit(column);
  ReachByAccessKeys(*this);
}

wxWindow* frmOption::MakePage(const OptionPage& page, const std::string& name) {
  auto* panel = new wxPanel(tabStrip_);
  panel->SetName(name);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->AddSpacer(FromDIP(kGap));
  for (const OptionFrame& frame : page.frames) {
    column->Add(MakeFrame(panel, frame), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(kGap)));
  }
  panel->SetSizer(column);
  return panel;
}

wxSizer* frmOption::MakeFrame(wxWindow* page, const OptionFrame& frame) {
  auto* sizer = new wxStaticBoxSizer(wxVERTICAL, page, ToWx(frame.caption));
  if (*frame.toolTip != '\0') sizer->GetStaticBox()->SetToolTip(ToWx(frame.toolTip));
  auto* column = new wxBoxSizer(wxVERTICAL);
  Fill(*column, sizer->GetStaticBox(), frame.controls);
  sizer->Add(column, wxSizerFlags().Expand().Border(wxALL, FromDIP(kSmallGap)));
  return sizer;
}

void frmOption::Fill(wxSizer& column, wxWindow* parent, std::span<const OptionControl> controls) {
  wxFlexGridSizer* grid = nullptr;  // for rows of two controls
  bool optionSeen = false;
  for (std::size_t i = 0; i < controls.size(); ++i) {
    const OptionControl& control = controls[i];
    wxWindow* const made = MakeControl(parent, control, !optionSeen);
    optionSeen = optionSeen || control.kind == OptionKind::kOptionButton;
    const bool paired = StandsBeside(control) || (i + 1 < controls.size() && StandsBeside(controls[i + 1]));
    if (paired && grid == nullptr) {
      grid = new wxFlexGridSizer(2, FromDIP(kGap), FromDIP(kGap));
      grid->AddGrowableCol(1);
      auto* row = new wxBoxSizer(wxHORIZONTAL);
      row->AddSpacer(i > 0 ? FromDIP(kIndent) : 0);  // below the check box that switches all of them
      row->Add(grid, wxSizerFlags(1));
      column.Add(row, wxSizerFlags().Expand().Border(wxALL, FromDIP(kSmallGap)));
    }
    if (!paired) {
      column.Add(made, wxSizerFlags().Border(wxALL, FromDIP(kSmallGap)));
    } else if (control.kind == OptionKind::kTextBox) {
      grid->Add(made, wxSizerFlags().Expand().CenterVertical());
    } else {
      grid->Add(made, wxSizerFlags().CenterVertical());
    }
  }
}

wxWindow* frmOption::MakeControl(wxWindow* parent, const OptionControl& control, bool firstOption) {
  wxWindow* made = nullptr;
  switch (control.kind) {
    case OptionKind::kCheckBox: made = new wxCheckBox(parent, wxID_ANY, ToWx(control.caption)); break;
    case OptionKind::kTextBox: made = MakeTextBox(parent, control); break;
    case OptionKind::kOptionButton:
      made = new wxRadioButton(parent, wxID_ANY, ToWx(control.caption), wxDefaultPosition, wxDefaultSize,
                               firstOption ? wxRB_GROUP : 0);
      break;
    case OptionKind::kButton: made = new wxButton(parent, wxID_ANY, ToWx(control.caption)); break;
    case OptionKind::kNote: made = MakeNote(parent, control); break;
  }
  made->SetName(control.name);
  if (*control.toolTip != '\0') made->SetToolTip(ToWx(control.toolTip));
  controls_[control.name] = made;
  return made;
}

// The box gets an accessible name, because the check box beside it is only visible.
wxWindow* frmOption::MakeTextBox(wxWindow* parent, const OptionControl& control) {
  auto* const box = new TextBox(parent);
  box->SetMaxLength(IniFile::kLongestValue);  // a longer text would be cut off at the next start
  box->SetMinSize(wxSize(FromDIP(kTextWidth), -1));
  const wxString caption = dynamic_cast<wxCheckBox*>(controls_.at(control.checkBox))->GetLabelText();
  SetAccessibleName(box->GetHandle(), FromWx(caption.BeforeFirst('(')) + "の拡張子");
  return box;
}

wxWindow* frmOption::MakeNote(wxWindow* parent, const OptionControl& control) {
  // Limited by the width that the screen allows the dialog, however large the font is.
  const int screen = wxDisplay(GetParent()).GetClientArea().width;
  const int width = std::min(kNoteLine * parent->GetTextExtent(ToWx("あ")).x, screen - FromDIP(kAroundNote));
  return new wxStaticText(parent, wxID_ANY, WrappedToFit(*parent, control.caption, width));
}

}  // namespace quillon
