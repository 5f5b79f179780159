#include "app/window/frmMain.h"

#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/display.h>
#include <wx/filedlg.h>
#include <wx/menu.h>
#include <wx/toolbar.h>
#include <wx/utils.h>

#include <algorithm>
#include <exception>
#include <optional>
#include <utility>

#include "controls/AlwaysOnTop.h"
#include "controls/DialogPattern.h"
#include "controls/FolderChooser.h"
#include "controls/Pictures.h"
#include "controls/TopmostDialog.h"
#include "controls/Twips.h"
#include "controls/WxText.h"
#include "dialogs/ListedFolders.h"
#include "dialogs/window/frmOption.h"
#include "dialogs/window/frmVerInfo.h"
#include "pattern/window/frmPattern.h"
#include "platform/Shell.h"
#include "platform/desktop/AccessibleName.h"
#include "platform/desktop/ScreenMetrics.h"
#include "platform/desktop/WindowFrame.h"
#include "rename/window/frmModify.h"

namespace quillon {
namespace {

constexpr std::chrono::milliseconds kShowDuringLoadAfter(500);
constexpr int kTitleBar = 12;        // DIP: half of its height
constexpr int kFirstListSize = 200;  // DIP

/// Moves a remembered rectangle onto a screen that exists now: into the screen that shows the middle of its title bar,
/// or to `centred` when there is none.
wxRect MovedOntoScreen(wxRect window, int halfTitleBar, wxPoint centred) {
  const int screen = wxDisplay::GetFromPoint(window.GetTopLeft() + wxPoint(window.width / 2, halfTitleBar));
  if (screen == wxNOT_FOUND) return {centred, window.GetSize()};
  const wxRect area = wxDisplay(static_cast<unsigned>(screen)).GetClientArea();
  window.x = std::max(area.x, std::min(window.x, area.x + area.width - window.width));
  window.y = std::max(area.y, std::min(window.y, area.y + area.height - window.height));
  return window;
}

}  // namespace

int frmMain::OpenForWindow(const std::string& target, wxWindow& owner) {
  return OpenWithShell(target, reinterpret_cast<std::uintptr_t>(owner.GetHandle()));
}

frmMain::frmMain(OptionValues options, Application::Paths paths, Opener open)
    : wxFrame(nullptr, wxID_ANY, kMainTitle),
      open_(std::move(open)),
      boxes_(this),
      device_(MakeMediaDevice()),
      files_(MakeFileReads()),
      disk_(MakeFileChanges()),
      frmWait_(this),
      presets_(paths.settings) {
  SetName("frmMain");
  SetIcons(ProgramIcons());
  MakeMenus();
  MakeToolBar(false);
  MakeStatusBar();
  MakeControls();
  pending_ = std::make_unique<YieldingMessages>([this] { BeforeYield(); });
  Application::Ports ports = {
      .window = {.main = *this,
                 .state = *this,
                 .panels = *this,
                 .renameBox = *renameBox_,
                 .information = *information_,
                 .tagsBar = *tagsBar_,
                 .findLine = *findLine_},
      .dialogs = {.boxes = boxes_,
                  .pending = *pending_,
                  .loading = {.search = *search_, .progress = *loading_, .folders = *this},
                  .waiting = frmWait_},
      .player = {.device = *device_, .panel = *playerPanel_, .movie = *movie_},
      .system = {.files = *files_,
                 .changes = *disk_,
                 .openWithShell = [this](const std::string& target) { return open_(target, *this); },
                 .ownerWindow = reinterpret_cast<std::uintptr_t>(GetHandle())}};
  app_ = std::make_unique<Application>(std::move(options), std::move(paths), std::move(ports));
  lvwFiles_ = lvwFiles::Make(*controls_.panel, app_->List(), ListHandlers());
  columns_ = std::make_unique<frmMainColumns>(*lvwFiles_);
  controls_.list = &lvwFiles_->Window();
  controls_.list->MoveBeforeInTabOrder(controls_.fraFileInfo);
  hint_ = std::make_unique<ListHint>(*controls_.panel, [this] { return lvwFiles_->MakeDropTarget(); });
  controls_.hint = hint_.get();
  controls_.list->SetSize(FromDIP(wxSize(kFirstListSize, kFirstListSize)));  // GTK warns about smaller sizes
  NameControls();
  app_->List().SetObserver(this);
  ApplySettings();
  BindEvents();
  app_->Start();
  UpdateCounts();
  UpdateCommands();
}

frmMain::~frmMain() {
  app_->List().SetObserver(nullptr);
  controls_.panel->Destroy();  // a control that loses the focus while being destroyed still calls its handler
}

void frmMain::MakeControls() {
  controls_.panel = new wxPanel(this);
  MakeFileInfo(controls_);
  MakeMusicPlayer(controls_, {[this] { app_->Player().SliderPressed(); },
                              [this](std::int32_t value) { app_->Player().SliderReleased(value); },
                              [](std::int32_t value) { return MusicPlayer::SliderTip(value); }});
  loading_ = std::make_unique<LoadingLabel>(
      *controls_.panel, [this]() -> wxWindow& { return *controls_.list; }, [this] { ShowHint(); });
  controls_.lblNowloading = &loading_->Window();
  tagsBar_ =
      std::make_unique<MoreTagsBar>(*controls_.panel, MoreTagsBar::Handlers{.read = [this] { app_->AcceptTagsOffer(); },
                                                                            .close =
                                                                                [this] {
                                                                                  app_->DeclineTagsOffer();
                                                                                  FocusList();
                                                                                },
                                                                            .layOut = [this] { OnPanelSize(); }});
  controls_.tagsBar = tagsBar_.get();
  findLine_ = std::make_unique<FraFind>(
      *controls_.panel, [this]() -> wxWindow& { return *controls_.list; },
      FraFind::Handlers{.typed = [this](const std::string& text) { app_->FindText(text); },
                        .next = [this] { app_->FindNext(); },
                        .previous = [this] { app_->FindPrevious(); },
                        .close = [this] { app_->CloseFindLine(); },
                        .layOut = [this] { OnPanelSize(); }});
  controls_.findLine = findLine_.get();
  search_ = std::make_unique<LongSearch>(*this, [this] { app_->CancelLoad(); });
  renameBox_ = MakeRenameBox(*controls_.txtAlterTitle);
  information_ = MakeInformationBoxes(controls_);
  playerPanel_ = std::make_unique<FraMusicPlayer>(controls_, [this] { app_->Player().timMCIChecker(); });
  movie_ = std::make_unique<FloatingMovie>([this] {
    return new frmMoviePlayer({*this, app_->Player(), boxes_, app_->Options().system.alwaysOnTop});
  });
}

// Names the controls for assistive technology; the labels beside the boxes are only visible.
void frmMain::NameControls() {
  const std::initializer_list<std::pair<wxWindow*, const char*>> names = {{controls_.list, "ファイルリスト"},
                                                                          {controls_.txtAlterTitle, "リネーム名"},
                                                                          {controls_.txtTitle, "タイトル"},
                                                                          {controls_.txtFileName, "ファイル名"},
                                                                          {controls_.txtFileInfo, "ファイル情報"},
                                                                          {controls_.txtFileDetail, "詳細"},
                                                                          {controls_.sldPosition, "再生位置"},
                                                                          {controls_.cmdPlay, "再生"},
                                                                          {controls_.cmdStop, "停止"},
                                                                          {controls_.chkRepeat, "リピート"}};
  for (const auto& [control, name] : names) {
    SetAccessibleName(control->GetHandle(), name);
  }
  SetAccessibleHeaders(controls_.list->GetHandle(), {"チェック", "アイコン"});
}

void frmMain::Start(const std::vector<std::string>& paths) {
  started_ = std::chrono::steady_clock::now();
  std::exception_ptr unexpected;
  try {
    app_->LoadPaths(paths);
  } catch (...) {
    unexpected = std::current_exception();  // reported after the window has been shown
  }
  ShowLaidOut();
  lvwFiles_->Window().SetFocus();
  if (unexpected) std::rethrow_exception(unexpected);
}

// Shows the loading label when it is due, and the window during a long load from the command line.
void frmMain::BeforeYield() {
  loading_->ShowIfLate();
  if (std::chrono::steady_clock::now() - started_ > kShowDuringLoadAfter) ShowLaidOut();
}

// Controls know their real heights only once they are shown.
void frmMain::ShowLaidOut() {
  if (IsShown()) return;
  OnPanelSize();
  GrowSmallestSize();
  const wxRect place = GetRect();
  if (app_->Options().extra.maximized) Maximize();
  LayOutWhenSized(GetHandle());
  Show();
  controls_.panel->Bind(wxEVT_PAINT, [this, place, first = true](wxPaintEvent& event) mutable {
    if (std::exchange(first, false)) CallAfter([this, place] { SettleAt(place); });
    event.Skip();
  });
}

// Enlarges the window by the room that taller controls and larger fonts need, so that the list keeps its height, as far
// as the screen is tall enough.
void frmMain::GrowSmallestSize() {
  BarHeights bars = Bars();
  bars.toolBar = std::max(bars.toolBar, GetToolBar()->GetBestSize().y);  // GTK sets it when the bar is shown
  if (const std::optional<int> inside = HeightForTallControls(controls_, bars)) {
    const int frame = GetSize().y - controls_.panel->GetClientSize().y - bars.toolBar - bars.statusBar;
    const ScreenMetrics screen = QueryScreen();
    wxSize smallest = GetMinSize();
    smallest.IncTo(
        wxSize(std::min(StatusBarWidth() + shadow_, screen.width), std::min(*inside + frame, screen.height)));
    SetMinSize(smallest);
  }
  wxSize size = GetSize();
  size.IncTo(GetMinSize());
  if (size == GetSize()) return;
  Place(size);
  grownHeight_ = GetSize().y;
}

// Widens a window on the screen until all panels of the status bar show their whole texts, as far as the screen is wide
// enough.
void frmMain::GrowForCounts() {
  if (!settled_ || IsIconized()) return;
  const int width = std::min(GetSize().x + MissingStatusWidth(), QueryScreen().width);
  if (width <= GetMinSize().x) return;
  SetMinSize(wxSize(width, GetMinSize().y));
  wxRect place = GetRect();
  if (place.width >= width || IsMaximized()) return;
  place.width = grownWidth_ = width;
  const wxRect onScreen = MovedOntoScreen(place, FromDIP(kTitleBar), place.GetTopLeft());
  if (onScreen.GetTopLeft() == place.GetTopLeft()) {
    SetSize(width, place.height);  // giving its place, too, moves a window that has just been shown
  } else {
    SetSize(onScreen);
  }
}

// Runs once the window is on the screen: only then are the frame's sizes known, and GTK may have lost the window's
// place while asking for them.
void frmMain::SettleAt(const wxRect& place) {
  if (GetRect() != place && !IsMaximized()) SetSize(place);
  AddShadow();
  OnPanelSize();
  GrowSmallestSize();
  settled_ = true;
}

// A shadow that counts as part of the window is only known when it is shown. The window is enlarged by it, once.
void frmMain::AddShadow() {
  if (shadow_ != 0 || IsMaximized()) return;
  shadow_ = ShadowAround(GetHandle());
  if (shadow_ == 0) return;
  const wxSize more(shadow_, shadow_);
  SetMinSize(GetMinSize() + more);
  givenSize_ += more;
  if (grownHeight_ != 0) grownHeight_ += shadow_;
  SetSize(GetSize() + more);
}

void frmMain::ComeForward() {
  if (IsIconized()) Iconize(false);
  Raise();
  TopmostDialog(this)->Raise();
}

void frmMain::ApplySettings() {
  const OptionValues::Window& window = app_->Options().window;
  const ScreenMetrics metrics = QueryScreen();
  const wxSize screen(metrics.width, metrics.height);
  wxSize smallest = SmallestSize(*this);
  smallest.DecTo(screen);
  SetMinSize(smallest);
  Place(wxSize(ToPixels(*this, window.width), ToPixels(*this, window.height)));
  columns_->Show(window);
}

// Places the window where the settings say, or in the middle of the screen.
void frmMain::Place(wxSize size) {
  const OptionValues::Window& window = app_->Options().window;
  const ScreenMetrics metrics = QueryScreen();
  const wxSize screen(metrics.width, metrics.height);
  size.DecTo(screen);
  givenSize_ = size;
  const wxPoint centred(screen.x / 2 - size.x / 2, screen.y / 2 - size.y / 2);
  wxPoint place = centred;
  if (window.left) place.x = ToPixels(*this, *window.left);
  if (window.top) place.y = ToPixels(*this, *window.top);
  SetSize(MovedOntoScreen(wxRect(place, size), FromDIP(kTitleBar), centred));
}

void frmMain::KeepSettings() {
  if (IsShown() && !settled_) return;  // it has no place of its own yet
  OptionValues& options = app_->Options();
  const wxRect rect = GetRect();
  if (WindowsHavePlaces()) {
    options.window.left = options.window.left.value_or(ToTwips(*this, rect.x));
    options.window.top = options.window.top.value_or(ToTwips(*this, rect.y));
    UpdateTwips(*this, *options.window.left, rect.x);
    UpdateTwips(*this, *options.window.top, rect.y);
  }
  if (rect.width != grownWidth_) UpdateTwips(*this, options.window.width, rect.width - shadow_);
  if (rect.height != grownHeight_) UpdateTwips(*this, options.window.height, rect.height - shadow_);
}

void frmMain::OnClose(wxCloseEvent& event) {
  if (event.CanVeto() && asksAtEnd_ && lvwFiles_->IsEditing() && !std::exchange(endsEdit_, true)) {
    event.Veto();
    FocusList();
    CallAfter([this] { CallAfter([this] { CloseAfterEdit(); }); });
    return;
  }
  if (event.CanVeto() && StaysOpen()) {
    event.Veto();
    return;
  }
  app_->Player().Shutdown();
  if (saves_) {
    const bool normal = !IsIconized() && !IsMaximized() && !IsFullScreen();
    KeepSettings();
    columns_->Keep(app_->Options().window, normal);
    app_->Options().extra.maximized = IsIconized() ? maximized_ : IsMaximized();
    (void)app_->SaveSettings(normal ? WindowGeometry::kWrite : WindowGeometry::kKeep);  // a failure is not reported
  }
  Destroy();
}

// The typed name has been accepted by now. If the editing goes on for whatever reason, the window closes all the same.
void frmMain::CloseAfterEdit() {
  const wxWeakRef<frmMain> stays(this);
  Close();
  if (stays) endsEdit_ = false;
}

// While a command runs, the window closes after it and after the dialog that it has open. While a dialog is open
// without a command, closing is refused: the user answers it first and then closes again.
bool frmMain::StaysOpen() {
  if (!app_->IsRunning()) return TopmostDialog(nullptr) != nullptr || (asksAtEnd_ && !app_->MayEnd());
  closeWanted_ = boxes_.StopBatch() || !inputEnabled_;
  app_->CancelLoad();
  frmWait_.Cancel();
  return true;
}

void frmMain::CloseUnanswered() {
  asksAtEnd_ = false;
  Close();
  if (auto* const dialog = dynamic_cast<wxDialog*>(TopmostDialog(nullptr))) dialog->EndModal(wxID_CANCEL);
  wxWakeUpIdle();  // closed windows are only destroyed when idle, and there may be no user event
}

void frmMain::Quit() {
  CallAfter([this] { Close(); });
}

void frmMain::EndAtOnce() {
  saves_ = asksAtEnd_ = false;
  CallAfter([this] { Close(); });
}

std::vector<std::string> frmMain::ChooseFiles(const std::string& title, const std::vector<FileDialogFilter>& filters,
                                              const std::string& folder) {
  wxString wildcard;
  for (const FileDialogFilter& filter : filters) {
    if (!wildcard.empty()) wildcard += '|';
    wildcard += ToWx(filter.description) + '|' + ToWx(DialogPattern(filter.pattern));
  }
  wxFileDialog dialog(this, ToWx(title), ToWx(folder), "", wildcard, wxFD_OPEN | wxFD_FILE_MUST_EXIST | wxFD_MULTIPLE);
  if (dialog.ShowModal() != wxID_OK) return {};
  wxArrayString chosen;
  dialog.GetPaths(chosen);
  return PathsFromWx(chosen);
}

std::string frmMain::Choose(const std::string& prompt, const std::string& start, const std::string& confirm) {
  return ChooseFolder(*this, prompt, start, confirm);
}

void frmMain::ShowModifyDialog(Rows rows) {
  ModifyPreview preview(app_->List(), rows, app_->Regex());
  frmModify dialog(
      this, app_->Options(), OpenedFor::kExecute, app_->RegexAvailable() ? &app_->Regex() : nullptr, boxes_,
      [this, rows](const OptionValues::Modify& rules) { app_->ModifyRows(rows, rules); }, PresetsInUse(), &preview);
  dialog.ShowModal();
}

PresetUse frmMain::PresetsInUse() const {
  return {.presets = presets_, .confirms = !app_->Options().system.suppressConfirmations};
}

void frmMain::ShowPatternDialog(Rows rows) {
  const BeginReading beginReading =
      KeptFacts([this, rows] { return FactsFrom(*files_, app_->List(), rows, TagSourcesOf(app_->Options())); });
  std::optional<PatternRules> rules;
  {
    // The preview ends with its dialog: it must not go on while the names are given.
    PatternPreview preview(app_->List(), rows, *files_, app_->Mode(), beginReading);
    frmPattern dialog(this, app_->Options(), app_->Mode(), preview, [this] { app_->ShowHelp(); });
    if (dialog.ShowModal() == wxID_OK) rules = dialog.Rules();
  }
  if (rules) app_->RenameByPattern(rows, *rules, beginReading());
}

void frmMain::ShowOptionDialog(OptionForm& form) {
  const auto modifyOption = [this](wxWindow& owner) {
    frmModify(&owner, app_->Options(), OpenedFor::kSettings, app_->RegexAvailable() ? &app_->Regex() : nullptr, boxes_,
              {}, PresetsInUse(), nullptr)
        .ShowModal();
  };
  frmOption dialog(this, form, modifyOption, [this] { app_->ShowHelp(); });
  dialog.ShowModal();
}

void frmMain::ShowVersionDialog() {
  frmVerInfo dialog(this, app_->RegexAvailable(), app_->Options().system.alwaysOnTop,
                    [this](const std::string& address) { (void)open_(address, *this); });
  dialog.ShowModal();
}

void frmMain::ShowFolderList() {
  if (!frmDirShow_) {
    frmDirShow_ = new frmDirShow(this, app_->List(), [this](const std::string& folder, wxWindow& owner) {
      WxMessageBoxes boxes(&owner);
      TellOfOpening(folder, open_(folder, owner), boxes);
    });
  } else {
    frmDirShow_->Reload();
  }
  frmDirShow_->Show();
  frmDirShow_->Raise();
}

void frmMain::SetAlwaysOnTop(bool front) {
  SetOnTop(*this, front);
  if (frmDirShow_) SetOnTop(*frmDirShow_, front);
  GetMenuBar()->Check(IdOf(Command::mnuFront), front);
}

void frmMain::SetRepeat(bool repeat) {
  controls_.chkRepeat->SetValue(repeat);
  GetMenuBar()->Check(IdOf(Command::mnuRepeat), repeat);
}

void frmMain::SetInputEnabled(bool enabled) {
  inputEnabled_ = enabled;
  lvwFiles_->SetInputEnabled(enabled);
  controls_.txtAlterTitle->SetEditable(enabled);
  findLine_->SetInputEnabled(enabled);
  if (enabled) ScheduleUpdate();  // the find line's number stays while a command runs
  if (enabled && std::exchange(closeWanted_, false)) Quit();
}

void frmMain::SetEnabled(bool enabled) {
  if (enabled) {
    disabled_.reset();
  } else if (!disabled_) {
    disabled_ = std::make_unique<wxWindowDisabler>();
  }
}

void frmMain::SetPointer(Pointer pointer) {
  if (wxIsBusy()) wxEndBusyCursor();
  if (pointer == Pointer::kNormal) return;
  const wxCursor cursor(pointer == Pointer::kHourglass ? wxCURSOR_WAIT : wxCURSOR_ARROWWAIT);
  wxBeginBusyCursor(&cursor);
}

}  // namespace quillon
