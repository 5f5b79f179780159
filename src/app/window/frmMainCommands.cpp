#include <wx/accel.h>
#include <wx/menu.h>
#include <wx/settings.h>
#include <wx/statusbr.h>
#include <wx/toolbar.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "app/window/frmMain.h"
#include "controls/AccessKeys.h"
#include "controls/GuardedApp.h"
#include "controls/Pictures.h"
#include "controls/StatusBar.h"
#include "controls/TextBox.h"
#include "controls/WxText.h"
#include "controls/basLoadFileIcon.h"
#include "platform/desktop/AccessibleName.h"
#include "platform/desktop/ToolBarArrows.h"

/// The main window's commands: menus, tool bar, status bar, keys, and the events of its controls.
namespace quillon {
namespace {

constexpr int kFirstId = wxID_HIGHEST + 100;
constexpr int kToolPicture = 24;  // DIP

constexpr int kModePanel = 0;
constexpr int kPlayerPanel = 1;
constexpr int kFirstCountPanel = 2;
constexpr int kPanels = 5;

constexpr int kPanelMargin = 12;  // DIP
constexpr int kGrip = 28;         // DIP
constexpr int kTextEdges = 6;     // DIP: beside a panel's text

wxString MenuText(const CommandEntry& entry) {
  const wxString caption = ToWx(entry.caption);
  return *entry.shortcut == '\0' ? caption : caption + '\t' + entry.shortcut;
}

void AppendCommand(wxMenu& menu, Command command) {
  if (command == Command::kSeparator) {
    menu.AppendSeparator();
    return;
  }
  const wxItemKind kind = EntryOf(command).isOn != nullptr ? wxITEM_CHECK : wxITEM_NORMAL;
  menu.Append(frmMain::IdOf(command), MenuText(EntryOf(command)), "", kind);
}

wxMenu* MakeMenu(std::span<const Command> commands) {
  auto* menu = new wxMenu;
  for (const Command command : commands) {
    if (command != SortCommands().front()) {
      AppendCommand(*menu, command);
      continue;
    }
    auto* sort = new wxMenu;
    for (const Command sortCommand : SortCommands()) AppendCommand(*sort, sortCommand);
    menu->AppendSubMenu(sort, ToWx(kSortCaption));
  }
  return menu;
}

}  // namespace

int frmMain::IdOf(Command command) {
  return kFirstId + static_cast<int>(command);
}

Command frmMain::CommandOf(int id) {
  return static_cast<Command>(id - kFirstId);
}

void frmMain::MakeMenus() {
  auto* bar = new wxMenuBar;
  for (const MenuEntries& menu : MenuBarEntries()) bar->Append(MakeMenu(menu.commands), ToWx(menu.caption));
  SetMenuBar(bar);
}

// The keys that a text box undoes and redoes with are its own, not the menu's.
void frmMain::KeepBoxKeys(wxKeyEvent& event) {
  const bool undoes = event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'Z';
  const bool redoes = event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'Y';
  auto* const box = dynamic_cast<wxTextCtrl*>(FindFocus());
  if (box == nullptr || !box->IsEditable() || (!undoes && !redoes)) {
    event.Skip();
  } else if (undoes) {
    box->Undo();
  } else if (auto* const redoing = dynamic_cast<TextBox*>(box)) {
    redoing->Redo();  // the system's own would undo
  }
}

void frmMain::ShowToolBarLabels(bool shown) {
  GetMenuBar()->Check(IdOf(Command::mnuToolLabels), shown);
  wxToolBar* const old = GetToolBar();
  SetToolBar(nullptr);
  old->Destroy();
  MakeToolBar(shown);
  UpdateCommands();
  OnPanelSize();
  controls_.panel->Refresh();
}

void frmMain::MakeToolBar(bool labels) {
  wxToolBar* bar = CreateToolBar(wxTB_HORIZONTAL | wxTB_FLAT | (labels ? wxTB_TEXT : 0));
  bar->SetName("Toolbar");
  const wxColour ink = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT);
  const wxColour grey = wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT);
  for (const ToolBarButton& button : ToolBarButtons()) {
    if (button.command == Command::kSeparator) {
      bar->AddSeparator();
      continue;
    }
    const bool dropDown = button.all != Command::kSeparator;
    const int id = IdOf(button.command);
    bar->AddTool(id, ToWx(labels ? button.shortLabel : button.label), Picture(button.picture, kToolPicture, ink),
                 GreyPicture(button.picture, kToolPicture, grey), dropDown ? wxITEM_DROPDOWN : wxITEM_NORMAL,
                 ToWx(button.label));
    if (!dropDown) continue;
    auto* menu = new wxMenu;
    menu->Append(IdOf(button.all), ToWx(button.allCaption));
    bar->SetDropdownMenu(id, menu);
  }
  bar->Realize();
  NameToolBarArrows();
}

void frmMain::NameToolBarArrows() {
  std::vector<std::string> arrows;
  for (const ToolBarButton& button : ToolBarButtons()) {
    if (button.command != Command::kSeparator && button.all != Command::kSeparator) {
      arrows.push_back(std::string(button.label) + "のメニュー");
    }
  }
  SetAccessibleArrows(GetToolBar()->GetHandle(), arrows);
  DrawToolBarArrows(GetToolBar()->GetHandle());
}

// Draws the pictures again in the text colours of the desktop's new theme.
void frmMain::RefreshPictures() {
  const wxColour ink = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT);
  const wxColour grey = wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT);
  for (const ToolBarButton& button : ToolBarButtons()) {
    if (button.command == Command::kSeparator) continue;
    GetToolBar()->SetToolNormalBitmap(IdOf(button.command), Picture(button.picture, kToolPicture, ink));
    GetToolBar()->SetToolDisabledBitmap(IdOf(button.command), GreyPicture(button.picture, kToolPicture, grey));
  }
  playerPanel_->RefreshPictures();
  hint_->UseColours();
}

void frmMain::MakeStatusBar() {
  // Texts are shortened in the middle, because a path's end names the file. No wxSTB_SHOW_TIPS: the bar has its own
  // tool tip.
  wxStatusBar* bar = CreateStatusBar(kPanels, wxSTB_SIZEGRIP | wxSTB_ELLIPSIZE_MIDDLE);
  bar->SetName("StatusBar");
  bar->SetToolTip(ToWx("適応モードの表示をクリックすると、モードが切り替わります"));
  SetStatusBarPane(-1);  // menu help would overwrite a panel
  modeWarning_ = std::make_unique<ModeWarning>(*bar, kModePanel, [this] { SwitchMode(); });
}

// The player's panel takes what the others leave. The counts' panels are as wide as their texts.
void frmMain::ShowCounts(const std::array<std::string, 3>& counts) {
  wxStatusBar& bar = *GetStatusBar();
  const int margin = bar.FromDIP(kPanelMargin);
  const auto widthOf = [&](std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }, '0');
    return bar.GetTextExtent(ToWx(text)).x + margin;
  };
  const std::array<int, kPanels> widths = {modeWarning_->WidthFor(ToWx(kAutoApplyText)), -1, widthOf(counts[0]),
                                           widthOf(counts[1]), widthOf(counts[2]) + bar.FromDIP(kGrip)};
  if (widths != panelWidths_) {
    bar.SetStatusWidths(kPanels, widths.data());
    GrowForCounts();
  }
  panelWidths_ = widths;
  for (std::size_t i = 0; i < counts.size(); ++i) ShowStatus(counts[i], kFirstCountPanel + static_cast<int>(i));
}

wxStatusBar* frmMain::OnCreateStatusBar(int number, long style, wxWindowID /*id*/, const wxString& /*name*/) {
  wxStatusBar* const bar = MakeStatusBarOnBaseline(*this, style);
  bar->SetFieldsCount(number);
  return bar;
}

// The width at which every panel shows its whole text while no file is selected.
int frmMain::StatusBarWidth() const {
  const wxStatusBar& bar = *GetStatusBar();
  int width = bar.GetTextExtent(ToWx(PlayerText(PlayerState::kIdle, {}))).x + 2 * bar.FromDIP(kPanelMargin) +
              bar.FromDIP(kGrip);
  for (int i = 0; i < kPanels; ++i) width += std::max(bar.GetStatusWidth(i), 0);
  return width;
}

// By how much the bar is too narrow for that now.
int frmMain::MissingStatusWidth() const {
  const wxStatusBar& bar = *GetStatusBar();
  wxRect player;
  wxRect last;
  if (!bar.GetFieldRect(kPlayerPanel, player) || !bar.GetFieldRect(kPanels - 1, last)) return 0;
  const int text = bar.GetTextExtent(ToWx(PlayerText(PlayerState::kIdle, {}))).x + bar.FromDIP(kTextEdges);
  const int beyond = std::max(last.GetRight() + 1 - bar.GetClientSize().x, 0);
  return text - player.width + beyond;
}

lvwFiles::Handlers frmMain::ListHandlers() {
  lvwFiles::Handlers handlers;
  handlers.selectionChanged = [this] { app_->SelectionChanged(); };
  handlers.typed = [this](int index) { app_->RowTyped(index); };
  handlers.activated = [this](int index) { app_->RowActivated(index); };
  handlers.headerClicked = [this](Column column) { app_->HeaderClicked(column); };
  handlers.renamed = [this](int index, const std::string& name) { app_->LabelEdited(index, name); };
  handlers.menuWanted = [this](wxPoint screen) { ShowRowMenu(screen); };
  handlers.keyPressed = [this](wxKeyEvent& event) { return UseListKey(event); };
  handlers.dropped = [this](const wxArrayString& paths) { app_->LoadPaths(PathsFromWx(paths)); };
  handlers.dragged = [this](bool over) { hint_->ShowFrame(over); };
  handlers.iconOf = [](const FileRow& row, int pixels) {
    return LoadFileIcon(row.Location(), row.type.Text(), pixels);
  };
  return handlers;
}

void frmMain::BindEvents() {
  const int first = IdOf(Command::kSeparator);
  Bind(
      wxEVT_MENU, [this](wxCommandEvent& event) { Run(CommandOf(event.GetId())); }, first, first + kLastCommand);
  ReachByAccessKeys(*this);
  Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent& event) {
    UpdateCommands();
    event.Skip();
  });
  Bind(wxEVT_CHAR_HOOK, &frmMain::KeepBoxKeys, this);
  Bind(wxEVT_CLOSE_WINDOW, &frmMain::OnClose, this);
  Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent& event) {
    event.Skip();
    CallAfter([this] { columns_->StartAnew(); });
  });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    RefreshPictures();
    event.Skip();
  });
  GetStatusBar()->Bind(wxEVT_LEFT_DOWN, &frmMain::OnStatusBarClick, this);
  controls_.panel->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    OnPanelSize();
    event.Skip();
  });
  BindRenameBox();
  BindPlayer();
}

void frmMain::BindRenameBox() {
  wxTextCtrl& box = *controls_.txtAlterTitle;
  box.Bind(wxEVT_TEXT, [this](wxCommandEvent& event) {
    event.Skip();  // the box itself keeps what it can undo
    app_->RenameBoxChanged();
  });
  box.Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { app_->RenameBoxEntered(); });
  // The text is selected when the focus comes from another control, but not when it comes back from another window:
  // typing then goes on at the caret.
  controls_.panel->Bind(wxEVT_CHILD_FOCUS, [this](wxChildFocusEvent& event) {
    event.Skip();
    if (std::exchange(focused_, event.GetWindow()) == event.GetWindow()) return;
    if (event.GetWindow() == controls_.txtAlterTitle) app_->RenameBoxFocused();
  });
  box.Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
    // A message box must not open while the focus is changing, and GTK only reports afterwards that it left the window.
    if (app_->RenameBoxNeedsName()) {
      CallAfter([this] {
        if (IsActive()) app_->AskForName();
      });
    }
    event.Skip();
  });
  box.Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
    app_->RenameBoxClicked();
    event.Skip();
  });
}

void frmMain::BindPlayer() {
  controls_.cmdPlay->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { app_->Player().cmdPlay(); });
  controls_.cmdStop->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { app_->Player().cmdStop(); });
  controls_.chkRepeat->Bind(wxEVT_TOGGLEBUTTON, [this](wxCommandEvent& event) { app_->SetRepeat(event.IsChecked()); });
}

BarHeights frmMain::Bars() const {
  return {GetToolBar()->GetSize().y, GetStatusBar()->GetSize().y};
}

// While the window is minimised, or has not got its size yet, there is nothing to lay out.
void frmMain::OnPanelSize() {
  const wxSize size = controls_.panel->GetClientSize();
  const wxSize smallest = SmallestSize(*this);
  if (IsIconized() || size.x < smallest.x / 2 || size.y < smallest.y * 2 / 3) return;
  LayOut(controls_, Bars());
  columns_->Follow(GetSize() == givenSize_);
  maximized_ = IsMaximized();
  if (settled_ && shadow_ == 0) CallAfter(&frmMain::AddShadow);  // it was maximised from the start
  app_->WindowResized();
}

void frmMain::Run(Command command) {
  const bool ofBox = command == Command::mnuEditUndo || command == Command::mnuEditRedo;
  if (lvwFiles_->IsEditing() && ofBox) return;  // the keys of the edited name
  if (lvwFiles_->IsEditing()) {                 // the command runs after the typed name has been accepted
    FocusList();
    CallAfter([this, command] { CallAfter([this, command] { RunNow(command); }); });
  } else {
    RunNow(command);
  }
}

void frmMain::RunNow(Command command) {
  // The click has already toggled the menu's mark; this shows the real state.
  const CommandEntry& entry = EntryOf(command);
  if (entry.isOn != nullptr) GetMenuBar()->Check(IdOf(command), entry.isOn(app_->Options()));
  const RunningCommand running(PlainCaption(command));
  app_->Execute(command);
  UpdateCommands();
}

void frmMain::ShowRowMenu(wxPoint screen) {
  const std::unique_ptr<wxMenu> menu(MakeMenu(RowMenuCommands()));
  menu->SetTitle("");
  for (const Command command : RowMenuCommands()) {
    if (command != Command::kSeparator) menu->Enable(IdOf(command), app_->IsEnabled(command));
  }
  PopupMenu(menu.get(), ScreenToClient(screen));
}

// Handles the row menu's keys while the list has the focus, and the menu bar's, some of which the native list would use
// itself (Ctrl+P goes up in GTK's).
bool frmMain::UseListKey(const wxKeyEvent& event) {
  int modifiers = wxACCEL_NORMAL;
  if (event.ControlDown()) modifiers |= wxACCEL_CTRL;
  if (event.ShiftDown()) modifiers |= wxACCEL_SHIFT;
  if (event.AltDown()) modifiers |= wxACCEL_ALT;
  const auto isPressed = [&](Command command) {
    const CommandEntry& entry = EntryOf(command);
    wxAcceleratorEntry key;
    return *entry.shortcut != '\0' && key.FromString(wxString('\t') + entry.shortcut) && key.GetFlags() == modifiers &&
           key.GetKeyCode() == event.GetKeyCode();
  };
  const auto runs = [&](std::span<const Command> commands) {
    const auto found = std::find_if(commands.begin(), commands.end(), isPressed);
    if (found == commands.end()) return false;
    CallAfter([this, command = *found] { Run(command); });
    return true;
  };
  if (runs(RowMenuCommands())) return true;
  if (modifiers == wxACCEL_NORMAL) return false;
  const std::span<const MenuEntries> menus = MenuBarEntries();
  return std::any_of(menus.begin(), menus.end(), [&](const MenuEntries& menu) { return runs(menu.commands); });
}

void frmMain::OnStatusBarClick(wxMouseEvent& event) {
  wxRect panel;
  if (GetStatusBar()->GetFieldRect(kModePanel, panel) && panel.Contains(event.GetPosition())) {
    SwitchMode();
  }
  event.Skip();
}

void frmMain::SwitchMode() {
  CallAfter([this] {
    const RunningCommand running(PlainCaption(Command::mnuApplyMode));
    app_->ModePanelClicked();
  });
}

void frmMain::ShowStatus(const std::string& text, int panel) {
  if (FromWx(GetStatusBar()->GetStatusText(panel)) == text) return;
  SetStatusText(ToWx(text), panel);
  std::string all;
  for (int i = 0; i < kPanels; ++i) all += (i == 0 ? "" : " / ") + FromWx(GetStatusBar()->GetStatusText(i));
  SetAccessibleStatus(GetStatusBar()->GetHandle(), all);
}

void frmMain::SetPlayerText(const std::string& text) {
  ShowStatus(text, kPlayerPanel);
}

void frmMain::SetModeText(const std::string& text) {
  ShowStatus(text, kModePanel);
  modeWarning_->Show(text == kAutoApplyText ? ToWx(text) : wxString());
  GetStatusBar()->Update();  // before a box about the mode opens
  ScheduleUpdate();          // the mode enables and disables commands
}

void frmMain::RowChanged(int index) {
  lvwFiles_->RowChanged(index);
  ScheduleUpdate();
}

void frmMain::RowsChanged() {
  lvwFiles_->RowsChanged();
  ScheduleUpdate();
}

void frmMain::MarksChanged() {
  lvwFiles_->MarksChanged();
  ScheduleUpdate();
}

void frmMain::ScheduleUpdate() {
  if (updateScheduled_) return;
  updateScheduled_ = true;
  CallAfter([this] {
    updateScheduled_ = false;
    UpdateCounts();
    UpdateCommands();
    app_->RefreshFindLine();
  });
}

void frmMain::ShowHint() {
  hint_->Show(app_->List().Count() == 0 && !controls_.lblNowloading->IsShown());
}

void frmMain::UpdateCounts() {
  ShowHint();
  ShowCounts({PendingCountText(app_->List()), CheckCountText(app_->List()), ItemCountText(app_->List())});
}

void frmMain::UpdateCommands() {
  wxMenuBar& menus = *GetMenuBar();
  for (int i = 1; i <= kLastCommand; ++i) {
    const auto command = static_cast<Command>(i);
    wxMenuItem* item = menus.FindItem(IdOf(command));
    if (item != nullptr && item->IsEnabled() != app_->IsEnabled(command)) item->Enable(app_->IsEnabled(command));
  }
  const CommandState state = StateOf(app_->List(), app_->Mode());
  for (const ToolBarButton& button : ToolBarButtons()) {
    if (button.command == Command::kSeparator) continue;
    // A button stays enabled while its drop-down menu's command is enabled.
    const Command any = button.all != Command::kSeparator ? button.all : button.command;
    GetToolBar()->EnableTool(IdOf(button.command), quillon::IsEnabled(any, state));
  }
}

}  // namespace quillon
