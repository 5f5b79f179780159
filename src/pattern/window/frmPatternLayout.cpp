#include <wx/button.h>
#include <wx/settings.h>
#include <wx/statbox.h>

#include "controls/AccessKeys.h"
#include "controls/OkCancelButtons.h"
#include "controls/TextBox.h"
#include "controls/WxText.h"
#include "pattern/PatternFields.h"
#include "pattern/window/frmPattern.h"
#include "platform/desktop/AccessibleName.h"

namespace quillon {
namespace {

constexpr int kGap = 8;       // DIP
constexpr int kSmallGap = 4;  // DIP
constexpr int kFieldColumns = 6;
constexpr int kPreviewLines = 12;  // of text; rows are somewhat higher

}  // namespace

void frmPattern::Build() {
  auto* column = new wxBoxSizer(wxVERTICAL);
  const wxSizerFlags line = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, FromDIP(kGap));
  const wxSizerFlags group = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(kGap));
  column->AddSpacer(FromDIP(kGap));
  column->Add(MakePatternRow(), line);
  lblError_ = MakeLine("lblError");
  column->AddSpacer(FromDIP(kSmallGap));
  column->Add(lblError_, line);
  column->AddSpacer(FromDIP(kSmallGap));
  column->Add(MakeFieldButtons(), group);
  auto* below = new wxBoxSizer(wxHORIZONTAL);
  below->Add(MakeCounterBox(), wxSizerFlags().Expand());
  below->AddSpacer(FromDIP(kGap));
  below->Add(MakeInvalidBox(), wxSizerFlags(1).Expand());
  column->Add(below, group);
  AddPreview(*column);
  column->Add(OkCancelButtons(*this, "実行"), wxSizerFlags().Right().Border(wxALL, FromDIP(kGap)));
  SetSizerAndFit(column);
  ReachByAccessKeys(*this);
}

wxStaticText* frmPattern::MakeLine(const char* name) {
  // A blank gives the label the height of one line.
  auto* label =
      new wxStaticText(this, wxID_ANY, " ", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
  label->SetName(name);
  return label;
}

wxSizer* frmPattern::MakePatternRow() {
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(new wxStaticText(this, wxID_ANY, ToWx("書式(&P)")), wxSizerFlags().CenterVertical());
  row->AddSpacer(FromDIP(kGap));
  cboPattern_ = new wxComboBox(this, wxID_ANY);
  cboPattern_->SetName("cboPattern");
  cboPattern_->SetMaxLength(kLongestPattern);
  SetAccessibleName(cboPattern_->GetHandle(), "書式");
  row->Add(cboPattern_, wxSizerFlags(1).CenterVertical());
  return row;
}

wxSizer* frmPattern::MakeFieldButtons() {
  auto* group = new wxStaticBoxSizer(wxVERTICAL, this, ToWx("フィールドの挿入"));
  auto* grid = new wxGridSizer(kFieldColumns, FromDIP(kSmallGap), FromDIP(kSmallGap));
  for (const PatternFieldEntry& entry : PatternFieldEntries()) {
    auto* button = new wxButton(group->GetStaticBox(), wxID_ANY, ToWx(entry.caption), wxDefaultPosition, wxDefaultSize,
                                wxBU_EXACTFIT);
    button->SetName(ToWx(std::string("cmdField_") + entry.name));
    button->SetToolTip(ToWx(entry.text));
    button->Bind(wxEVT_BUTTON, [this, text = ToWx(entry.text)](wxCommandEvent&) { Insert(text); });
    grid->Add(button, wxSizerFlags().Expand());
  }
  group->Add(grid, wxSizerFlags().Expand().Border(wxALL, FromDIP(kSmallGap)));
  return group;
}

wxSpinCtrl* frmPattern::AddSpin(wxSizer& row, wxWindow* parent, const char* caption, const char* name) {
  row.Add(new wxStaticText(parent, wxID_ANY, ToWx(caption)),
          wxSizerFlags().CenterVertical().Border(wxALL, FromDIP(kSmallGap)));
  auto* spin = new wxSpinCtrl(parent, wxID_ANY);
  spin->SetName(name);
  row.Add(spin, wxSizerFlags().CenterVertical().Border(wxALL, FromDIP(kSmallGap)));
  return spin;
}

wxSizer* frmPattern::MakeCounterBox() {
  auto* group = new wxStaticBoxSizer(wxHORIZONTAL, this, ToWx("連番"));
  spnStart_ = AddSpin(*group, group->GetStaticBox(), "開始(&S)", "spnStart");
  spnStart_->SetRange(-kLargestCount, kLargestCount);
  spnStep_ = AddSpin(*group, group->GetStaticBox(), "増分(&I)", "spnStep");
  spnStep_->SetRange(-kLargestCount, kLargestCount);
  spnDigits_ = AddSpin(*group, group->GetStaticBox(), "桁数(&D)", "spnDigits");
  spnDigits_->SetRange(1, kMostCountDigits);
  return group;
}

wxSizer* frmPattern::MakeInvalidBox() {
  auto* group = new wxStaticBoxSizer(wxHORIZONTAL, this, ToWx("ファイル名に使えない文字"));
  wxWindow* parent = group->GetStaticBox();
  cboInvalid_ = new wxChoice(parent, wxID_ANY);
  cboInvalid_->SetName("cboInvalid");
  for (const char* choice : {"そのまま残す", "取り除く", "文字列に置き換える", "全角文字に置き換える"}) {
    cboInvalid_->Append(ToWx(choice));
  }
  SetAccessibleName(cboInvalid_->GetHandle(), "ファイル名に使えない文字");
  txtReplacement_ = new TextBox(parent);
  txtReplacement_->SetName("txtReplacement");
  txtReplacement_->SetMaxLength(kLongestPattern);
  SetAccessibleName(txtReplacement_->GetHandle(), "置き換える文字列");
  group->Add(cboInvalid_, wxSizerFlags().CenterVertical().Border(wxALL, FromDIP(kSmallGap)));
  group->Add(txtReplacement_, wxSizerFlags(1).CenterVertical().Border(wxALL, FromDIP(kSmallGap)));
  return group;
}

void frmPattern::AddPreview(wxSizer& column) {
  const wxSizerFlags line = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, FromDIP(kGap));
  column.Add(new wxStaticText(this, wxID_ANY, ToWx("プレビュー(&V)")), line);
  column.AddSpacer(FromDIP(kSmallGap));
  lvwPreview_ = TextTable::Make(*this, {{"現在の名前", 14}, {"新しい名前", 20}, {"問題", 22}}, preview_.Count(),
                                [this](std::size_t row, std::size_t cell) {
                                  if (cell == 0) return preview_.OldName(row);
                                  return cell == 1 ? preview_.NewName(row) : preview_.Problem(row);
                                });
  wxWindow& list = lvwPreview_->Window();
  list.SetName("lvwPreview");
  // With room for the scroll bar, which would otherwise cover the last column.
  list.SetMinSize(wxSize(list.GetBestSize().x + wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this),
                         kPreviewLines * GetCharHeight()));
  SetAccessibleName(list.GetHandle(), "プレビュー");
  column.Add(&list, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, FromDIP(kGap)));
  column.AddSpacer(FromDIP(kSmallGap));
  lblSummary_ = MakeLine("lblSummary");
  column.Add(lblSummary_, line);
  if (!mode_.automatic) return;
  auto* note = MakeLine("lblAutomatic");
  note->SetLabelText(ToWx(kAppliesAtOnceText));
  column.Add(note, line);
}

}  // namespace quillon
