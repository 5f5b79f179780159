#include "dialogs/window/frmDirShow.h"

#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/sizer.h>

#include <algorithm>
#include <utility>

#include "controls/Pictures.h"
#include "controls/Twips.h"
#include "controls/WxText.h"
#include "dialogs/ListedFolders.h"
#include "platform/desktop/AccessibleName.h"

namespace quillon {
namespace {

constexpr int kWidth = 6300;   // twips
constexpr int kHeight = 4500;  // twips

enum MenuId : int { mnuOpen = wxID_HIGHEST + 1, mnuClose, mnuReload };

long StyleOver(const wxWindow* parent) {
  const bool onTop = parent != nullptr && parent->HasFlag(wxSTAY_ON_TOP);
  // A minimised window could not be found again, because it has no button in the task bar.
  return (wxDEFAULT_FRAME_STYLE & ~wxMINIMIZE_BOX) | wxFRAME_FLOAT_ON_PARENT | (onTop ? wxSTAY_ON_TOP : 0);
}

}  // namespace

frmDirShow::frmDirShow(wxWindow* parent, const FileList& list,
                       std::function<void(const std::string& folder, wxWindow& owner)> open)
    : wxFrame(parent, wxID_ANY, ToWx("フォルダ一覧"), wxDefaultPosition, wxDefaultSize, StyleOver(parent)),
      list_(list),
      open_(std::move(open)) {
  SetName("frmDirShow");
  SetExtraStyle(wxWS_EX_BLOCK_EVENTS);  // the main window must not handle this window's keys and menus
  SetIcons(ProgramIcons());
  MakeMenus();
  MakeList();
  BindEvents();
  Reload();
  SetClientSize(wxSize(ToPixels(*this, kWidth), ToPixels(*this, kHeight)));
  CentreOnParent();
  lstDirShow_->SetFocus();
}

void frmDirShow::MakeMenus() {
  auto* const folder = new wxMenu;
  folder->Append(mnuOpen, ToWx("開く(&O)\tCtrl+O"));
  folder->AppendSeparator();
  folder->Append(mnuClose, ToWx("閉じる(&C)\tCtrl+W"));
  auto* const view = new wxMenu;
  view->Append(mnuReload, ToWx("更新(&R)\tF5"));
  auto* const bar = new wxMenuBar;
  bar->Append(folder, ToWx("フォルダ(&F)"));
  bar->Append(view, ToWx("表示(&V)"));
  SetMenuBar(bar);
}

void frmDirShow::MakeList() {
  auto* const panel = new wxPanel(this);
  lstDirShow_ = new wxListBox(panel, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr,
                              wxLB_SINGLE | wxLB_NEEDED_SB | wxLB_HSCROLL);
  lstDirShow_->SetName("lstDirShow");
  SetAccessibleName(lstDirShow_->GetHandle(), "フォルダ一覧");
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(lstDirShow_, wxSizerFlags(1).Expand());
  panel->SetSizer(whole);
}

void frmDirShow::BindEvents() {
  const auto onMenu = [this](MenuId id, void (frmDirShow::*act)()) {
    Bind(
        wxEVT_MENU, [this, act](wxCommandEvent&) { (this->*act)(); }, id);
  };
  onMenu(mnuOpen, &frmDirShow::OpenSelected);
  onMenu(mnuReload, &frmDirShow::Reload);
  Bind(
      wxEVT_MENU, [this](wxCommandEvent&) { Close(); }, mnuClose);
  lstDirShow_->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { OpenSelected(); });
  Bind(wxEVT_CHAR_HOOK, &frmDirShow::OnCharHook, this);
}

void frmDirShow::Reload() {
  const int before = lstDirShow_->GetSelection();
  const std::string selected = before == wxNOT_FOUND ? "" : folders_.at(static_cast<std::size_t>(before));
  folders_ = ListedFolders(list_);
  wxArrayString shown;
  for (const std::string& folder : folders_) shown.Add(ToWx(folder));
  lstDirShow_->Set(shown);
  if (folders_.empty()) return;
  const auto found = std::find(folders_.begin(), folders_.end(), selected);
  const int place = std::clamp(before, 0, static_cast<int>(folders_.size()) - 1);
  lstDirShow_->SetSelection(found == folders_.end() ? place : static_cast<int>(found - folders_.begin()));
}

void frmDirShow::OpenSelected() {
  const int selected = lstDirShow_->GetSelection();
  if (selected != wxNOT_FOUND) open_(folders_.at(static_cast<std::size_t>(selected)), *this);
}

void frmDirShow::OnCharHook(wxKeyEvent& event) {
  const int key = event.HasAnyModifiers() ? WXK_NONE : event.GetKeyCode();
  if (key == WXK_ESCAPE) {
    Close();
  } else if (key == WXK_RETURN || key == WXK_NUMPAD_ENTER) {
    OpenSelected();
  } else {
    event.Skip();
  }
}

}  // namespace quillon
