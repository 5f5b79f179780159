#include "rename/window/frmModifyPresets.h"

#include <wx/dialog.h>
#include <wx/filedlg.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <utility>

#include "controls/AccessKeys.h"
#include "controls/DialogPattern.h"
#include "controls/OkCancelButtons.h"
#include "controls/Pictures.h"
#include "controls/TextBox.h"
#include "controls/WxText.h"
#include "platform/desktop/AccessibleName.h"
#include "rename/BuiltInPresets.h"

namespace quillon {
namespace {

constexpr int kGap = 12;         // DIP
constexpr int kSmallGap = 4;     // DIP
constexpr int kNameWidth = 320;  // DIP

class PresetMenuMaker {
 public:
  PresetMenu Make(PresetCommands& commands) {
    const std::vector<std::string> names = commands.Names();
    auto menu = std::make_unique<wxMenu>();
    for (const std::string& name : names) AddName(*menu, name, "", [&commands, name] { commands.Load(name); });
    if (names.empty()) menu->Append(wxID_ANY, ToWx("（保存したプリセットなし）"))->Enable(false);
    AddBuiltIn(*menu, commands);
    menu->AppendSeparator();
    Add(*menu, ToWx("直前の規則に戻す(&B)"), [&commands] { commands.GoBack(); })->Enable(commands.CanGoBack());
    menu->AppendSeparator();
    Add(*menu, ToWx("現在の規則を保存(&S)..."), [&commands] { commands.Save(); });
    AddNames(*menu, "名前の変更(&R)", names, "...", [&commands](const std::string& name) { commands.Rename(name); });
    AddNames(*menu, "削除(&D)", names, "", [&commands](const std::string& name) { commands.Remove(name); });
    menu->AppendSeparator();
    Add(*menu, ToWx("読み込み（インポート）(&I)..."), [&commands] { commands.Import(); });
    AddNames(*menu, "書き出し（エクスポート）(&E)", names, "...",
             [&commands](const std::string& name) { commands.Export(name); });
    return {std::move(menu), std::move(actions_)};
  }

 private:
  wxMenuItem* Add(wxMenu& menu, const wxString& caption, std::function<void()> action) {
    actions_.push_back(std::move(action));
    return menu.Append(PresetMenu::kFirstEntry + static_cast<int>(actions_.size()) - 1, caption);
  }

  void AddName(wxMenu& menu, const std::string& name, const char* end, std::function<void()> action) {
    Add(menu, wxControl::EscapeMnemonics(ToWx(name)) + end, std::move(action));
  }

  void AddBuiltIn(wxMenu& menu, PresetCommands& commands) {
    auto list = std::make_unique<wxMenu>();
    for (const Preset& preset : BuiltInPresets()) {
      AddName(*list, preset.name, "", [&commands, &preset] { commands.LoadBuiltIn(preset); });
    }
    menu.AppendSubMenu(list.release(), ToWx("標準のプリセット(&P)"));
  }

  // One entry for each preset, below an entry that names the command.
  void AddNames(wxMenu& menu, const char* caption, const std::vector<std::string>& names, const char* end,
                const std::function<void(const std::string&)>& action) {
    auto list = std::make_unique<wxMenu>();
    for (const std::string& name : names) AddName(*list, name, end, [action, name] { action(name); });
    menu.AppendSubMenu(list.release(), ToWx(caption))->Enable(!names.empty());
  }

  std::vector<std::function<void()>> actions_;
};

class NameDialog final : public wxDialog {
 public:
  NameDialog(wxWindow& parent, const std::string& title, const std::string& present)
      : wxDialog(&parent, wxID_ANY, ToWx(title)) {
    SetName("frmPresetName");
    SetIcons(ProgramIcons());
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(new wxStaticText(this, wxID_ANY, ToWx("プリセットの名前(&N)")));
    txtName_ = new TextBox(this);
    txtName_->SetName("txtPresetName");
    txtName_->SetMinSize(wxSize(FromDIP(kNameWidth), -1));
    SetAccessibleName(txtName_->GetHandle(), "プリセットの名前");
    txtName_->ChangeValue(ToWx(present));
    txtName_->SelectAll();
    column->Add(txtName_, wxSizerFlags().Expand().Border(wxTOP | wxBOTTOM, FromDIP(kSmallGap)));
    column->Add(OkCancelButtons(*this), wxSizerFlags().Right().Border(wxTOP, FromDIP(kSmallGap)));
    auto* border = new wxBoxSizer(wxVERTICAL);
    border->Add(column, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kGap)));
    SetSizerAndFit(border);
    ReachByAccessKeys(*this);
    CentreOnParent();
    txtName_->SetFocus();
  }

  [[nodiscard]] std::string Typed() const { return FromWx(txtName_->GetValue()); }

 private:
  TextBox* txtName_;
};

}  // namespace

PresetMenu MakePresetMenu(PresetCommands& commands) {
  return PresetMenuMaker().Make(commands);
}

frmModifyPresets::frmModifyPresets(wxWindow& dialog, const PresetUse& use, bool regexAvailable, MessageBoxes& boxes,
                                   Form form)
    : dialog_(dialog),
      form_(std::move(form)),
      commands_(use.presets, *this, boxes, {.regexAvailable = regexAvailable, .confirms = use.confirms}) {}

// The entry runs when the menu has closed, because it may open a dialog.
void frmModifyPresets::Open(const wxButton& button) {
  const PresetMenu menu = MakePresetMenu(commands_);
  const wxPoint below = dialog_.ScreenToClient(button.ClientToScreen(wxPoint(0, button.GetSize().y)));
  const int chosen = dialog_.GetPopupMenuSelectionFromUser(*menu.menu, below) - PresetMenu::kFirstEntry;
  if (chosen >= 0) menu.actions.at(static_cast<std::size_t>(chosen))();
}

std::optional<std::string> frmModifyPresets::AskName(const std::string& title, const std::string& present) {
  NameDialog dialog(dialog_, title, present);
  return dialog.ShowModal() == wxID_OK ? std::optional(dialog.Typed()) : std::nullopt;
}

std::string frmModifyPresets::FileToImport() {
  return ChooseFile("読み込み（インポート）", "", wxFD_OPEN | wxFD_FILE_MUST_EXIST);
}

std::string frmModifyPresets::FileToExport(const std::string& suggestion) {
  return ChooseFile("書き出し（エクスポート）", suggestion, wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
}

std::string frmModifyPresets::ChooseFile(const char* title, const std::string& suggestion, long style) {
  wxString filters;
  filters << ToWx("設定ファイル") << '|' << ToWx(DialogPattern("*.ini")) << '|';
  filters << ToWx("すべてのファイル") << '|' << ToWx(DialogPattern("*.*"));
  wxFileDialog dialog(&dialog_, ToWx(title), "", ToWx(suggestion), filters, style);
  return dialog.ShowModal() == wxID_OK ? PathFromWx(dialog.GetPath()) : std::string();
}

}  // namespace quillon
