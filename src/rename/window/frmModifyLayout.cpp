#include <wx/display.h>
#include <wx/settings.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include <algorithm>

#include "controls/AccessKeys.h"
#include "controls/OkCancelButtons.h"
#include "controls/TextBox.h"
#include "controls/WxText.h"
#include "platform/desktop/AccessibleName.h"
#include "rename/window/frmModify.h"

namespace quillon {
namespace {

constexpr int kGap = 8;          // DIP
constexpr int kSmallGap = 4;     // DIP
constexpr int kTextWidth = 200;  // DIP, at least
constexpr int kTitleBar = 40;    // DIP, about
// Of text; rows are somewhat higher.
constexpr int kPreviewLines = 10;
constexpr int kFewestPreviewLines = 5;

wxStaticBoxSizer* MakeGroup(wxWindow* parent, int orientation, const char* caption) {
  return new wxStaticBoxSizer(orientation, parent, ToWx(caption));
}

}  // namespace

void frmModify::Build() {
  auto* column = new wxBoxSizer(wxVERTICAL);
  const wxSizerFlags wide = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(kGap));
  column->Add(MakeMenuRow(), wxSizerFlags().Border(wxALL, FromDIP(kSmallGap)));
  column->Add(MakeInvalidBox(), wide);
  column->Add(MakeRulesBox(), wide);
  auto* below = new wxBoxSizer(wxHORIZONTAL);
  below->Add(MakeFindBox(), wxSizerFlags().Expand());
  below->AddSpacer(FromDIP(kGap));
  below->Add(MakeConversionBox(), wxSizerFlags(1).Expand());
  column->Add(below, wide);
  if (preview_ == nullptr) {
    column->AddStretchSpacer();
  } else {
    AddPreview(*column);
  }
  column->Add(MakeButtonRow(), wxSizerFlags().Expand().Border(wxLEFT | wxBOTTOM, FromDIP(kGap)));
  SetSizerAndFit(column);
  if (preview_ != nullptr) GiveRoomToPreview();
  ReachByAccessKeys(*this);
}

wxButton* frmModify::MakeMenuButton(const char* caption, const char* name) {
  auto* button =
      new wxButton(this, wxID_ANY, ToWx(caption), wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT | wxBORDER_NONE);
  button->SetName(name);
  button->SetMinSize(button->GetBestSize() + FromDIP(wxSize(2 * kGap, 0)));
  return button;
}

wxCheckBox* frmModify::MakeCheckBox(wxWindow* parent, const char* caption, const char* name) {
  auto* box = new wxCheckBox(parent, wxID_ANY, ToWx(caption));
  box->SetName(name);
  return box;
}

wxTextCtrl* frmModify::MakeTextBox(wxWindow* parent, const std::string& name) {
  auto* box = new TextBox(parent);
  box->SetName(name);
  box->SetMinSize(wxSize(FromDIP(kTextWidth), -1));
  return box;
}

wxSizer* frmModify::MakeMenuRow() {
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  mnuEdit_ = MakeMenuButton("編集(&E)", "mnuEdit");
  mnuPreset_ = MakeMenuButton("プリセット(&T)", "mnuPreset");
  mnuHelp_ = MakeMenuButton("ヘルプ(&H)", "mnuHelp");
  row->Add(mnuEdit_);
  row->Add(mnuPreset_);
  row->Add(mnuHelp_);
  return row;
}

wxSizer* frmModify::MakeInvalidBox() {
  auto* group = MakeGroup(this, wxHORIZONTAL, "不正な文字の置換");
  chkInjustice_ = MakeCheckBox(group->GetStaticBox(), "不正な文字はすべて置換する(&I)", "chkInjustice");
  txtRevice_ = MakeTextBox(group->GetStaticBox(), "txtRevice");
  SetAccessibleName(txtRevice_->GetHandle(), "不正な文字を置き換える文字");
  group->Add(chkInjustice_, wxSizerFlags().CenterVertical().Border(wxALL, FromDIP(kSmallGap)));
  group->Add(txtRevice_, wxSizerFlags(1).CenterVertical().Border(wxALL, FromDIP(kSmallGap)));
  return group;
}

wxSizer* frmModify::MakeRulesBox() {
  auto* group = MakeGroup(this, wxVERTICAL, "任意文字列の置換");
  wxWindow* parent = group->GetStaticBox();
  auto* grid = new wxFlexGridSizer(3, FromDIP(kSmallGap), FromDIP(kGap));
  grid->AddGrowableCol(1);
  grid->AddGrowableCol(2);
  grid->AddSpacer(0);
  grid->Add(new wxStaticText(parent, wxID_ANY, ToWx("検索する文字列")));
  grid->Add(new wxStaticText(parent, wxID_ANY, ToWx("置換する文字列")));
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) AddRule(*grid, parent, i);
  group->Add(grid, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kSmallGap)));
  const wxSizerFlags line = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(kSmallGap));
  lblProblem_ = MakeLine(parent, "lblProblem");
  group->Add(lblProblem_, line);
  auto* repetition = new wxBoxSizer(wxHORIZONTAL);
  chkRunOnce_ = MakeCheckBox(parent, "一度だけ実行する(&K)", "chkRunOnce");
  lblGrowth_ = MakeLine(parent, "lblGrowth");
  repetition->Add(chkRunOnce_, wxSizerFlags().CenterVertical());
  repetition->AddSpacer(FromDIP(kGap));
  repetition->Add(lblGrowth_, wxSizerFlags(1).CenterVertical());
  group->Add(repetition, line);
  return group;
}

wxStaticText* frmModify::MakeLine(wxWindow* parent, const char* name) {
  // A blank gives the label the height of one line.
  auto* label = new wxStaticText(parent, wxID_ANY, " ", wxDefaultPosition, wxDefaultSize,
                                 wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
  label->SetName(name);
  return label;
}

void frmModify::AddPreview(wxSizer& column) {
  auto* label = new wxStaticText(this, wxID_ANY, ToWx("プレビュー(&V)"));
  lvwPreview_ = TextTable::Make(*this, {{"現在のリネーム名", 18}, {"新しいリネーム名", 23}}, 0,
                                [this](std::size_t row, std::size_t cell) {
                                  // While rows are removed, the system may still ask for them.
                                  if (row >= preview_->ShownCount()) return std::string();
                                  const ModifyPreview::Row& shown = preview_->Shown(row);
                                  if (cell == 0) return shown.oldName;
                                  return shown.note.empty() ? shown.newName : "（" + shown.note + "）";
                                });
  wxWindow& list = lvwPreview_->Window();
  list.SetName("lvwPreview");
  // With room for the scroll bar, which would otherwise cover the last column.
  list.SetMinSize(wxSize(list.GetBestSize().x + wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this),
                         kFewestPreviewLines * GetCharHeight()));
  SetAccessibleName(list.GetHandle(), "プレビュー");
  lblSummary_ = MakeLine(this, "lblSummary");  // made after the list, so that the label "プレビュー" names the list
  auto* heading = new wxBoxSizer(wxHORIZONTAL);
  heading->Add(label);
  heading->AddSpacer(FromDIP(kGap));
  heading->Add(lblSummary_, wxSizerFlags(1));
  column.Add(heading, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, FromDIP(kGap)));
  column.AddSpacer(FromDIP(kSmallGap));
  column.Add(&list, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(kGap)));
}

/// Large text leaves little room for the list on small screens.
void frmModify::GiveRoomToPreview() {
  const int room = wxDisplay(GetParent()).GetClientArea().height - GetSize().y - FromDIP(kTitleBar);
  const int wanted = (kPreviewLines - kFewestPreviewLines) * GetCharHeight();
  if (room > 0) SetSize(GetSize() + wxSize(0, std::min(room, wanted)));
}

void frmModify::AddRule(wxFlexGridSizer& grid, wxWindow* parent, std::size_t index) {
  const std::string digit = std::to_string(index);
  RuleControls& rule = ruleControls_.at(index);
  rule.chkReplace = MakeCheckBox(parent, ("&" + std::to_string(index + 1)).c_str(), ("chkReplace" + digit).c_str());
  rule.txtObject = MakeTextBox(parent, "txtObject" + digit);
  rule.txtReplace = MakeTextBox(parent, "txtReplace" + digit);
  // The headings and the number beside the boxes are only visible.
  const std::string number = std::to_string(index + 1);
  SetAccessibleName(rule.chkReplace->GetHandle(), "置換 " + number);
  SetAccessibleName(rule.txtObject->GetHandle(), "検索する文字列 " + number);
  SetAccessibleName(rule.txtReplace->GetHandle(), "置換する文字列 " + number);
  grid.Add(rule.chkReplace, wxSizerFlags().CenterVertical());
  grid.Add(rule.txtObject, wxSizerFlags().Expand());
  grid.Add(rule.txtReplace, wxSizerFlags().Expand());
}

wxSizer* frmModify::MakeFindBox() {
  auto* group = MakeGroup(this, wxVERTICAL, "検索方法");
  wxWindow* parent = group->GetStaticBox();
  optFindCtrl_No_ =
      new wxRadioButton(parent, wxID_ANY, ToWx("通常検索(&N)"), wxDefaultPosition, wxDefaultSize, wxRB_GROUP);
  optFindCtrl_No_->SetName("optFindCtrl_No");
  optFindCtrl_S_ = new wxRadioButton(parent, wxID_ANY, ToWx("正規表現で検索(&S)"));
  optFindCtrl_S_->SetName("optFindCtrl_S");
  chkIgnoreCase_ = MakeCheckBox(parent, "大文字小文字を無視(&C)", "chkIgnoreCase");
  const wxSizerFlags line = wxSizerFlags().Border(wxALL, FromDIP(kSmallGap));
  group->Add(optFindCtrl_No_, line);
  group->Add(optFindCtrl_S_, line);
  group->Add(chkIgnoreCase_, line);
  return group;
}

wxSizer* frmModify::MakeConversionBox() {
  auto* group = MakeGroup(this, wxHORIZONTAL, "変換");
  wxWindow* parent = group->GetStaticBox();
  chkNarrow_ = MakeCheckBox(parent, "全角を半角へ変換(&N)", "chkNarrow");
  chkWide_ = MakeCheckBox(parent, "半角を全角へ変換(&W)", "chkWide");
  chkLower_ = MakeCheckBox(parent, "大文字を小文字へ変換(&L)", "chkLower");
  chkUpper_ = MakeCheckBox(parent, "小文字を大文字へ変換(&U)", "chkUpper");
  chkProper_ = MakeCheckBox(parent, "文字の先頭を大文字へ変換(&P)", "chkProper");
  const wxSizerFlags line = wxSizerFlags().Border(wxALL, FromDIP(kSmallGap));
  auto* width = new wxBoxSizer(wxVERTICAL);
  width->Add(chkNarrow_, line);
  width->Add(chkWide_, line);
  auto* letterCase = new wxBoxSizer(wxVERTICAL);
  letterCase->Add(chkLower_, line);
  letterCase->Add(chkUpper_, line);
  letterCase->Add(chkProper_, line);
  group->Add(width);
  group->AddSpacer(FromDIP(kGap));
  group->Add(letterCase);
  return group;
}

wxSizer* frmModify::MakeButtonRow() {
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  chkNonUnload_ = MakeCheckBox(this, "実行後も閉じない(&O)", "chkNonUnload");
  wxSizer* const buttons = OkCancelButtons(*this, purpose_ == OpenedFor::kExecute ? "実行" : "OK");
  row->Add(chkNonUnload_, wxSizerFlags().CenterVertical());
  row->AddStretchSpacer();
  row->Add(buttons, wxSizerFlags().CenterVertical());
  row->AddSpacer(FromDIP(kSmallGap));
  return row;
}

}  // namespace quillon
