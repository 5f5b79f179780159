#pragma once

#include <wx/frame.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include <array>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/Application.h"
#include "app/window/frmMainBoxes.h"
#include "app/window/frmMainColumns.h"
#include "app/window/frmMainLayout.h"
#include "app/window/frmMainLoading.h"
#include "app/window/frmMainModeWarning.h"
#include "app/window/frmMainPlayer.h"
#include "controls/WxMessageBoxes.h"
#include "dialogs/window/frmDirShow.h"
#include "filelist/window/frmFolderRef.h"
#include "filelist/window/lvwFiles.h"
#include "rename/window/frmModifyPresets.h"
#include "rename/window/frmWait.h"
#include "settings/OptionValues.h"

namespace quillon {

/// The title of the main window, by which a later instance finds it.
inline constexpr const char* kMainTitle = "Quillon";
/// The name of its window class on Windows.
inline constexpr const char* kMainWindowClass = "wxWindowNR";

/// The main window: passes events to the Application and shows its results.
class frmMain final : public wxFrame,
                      private MainWindow,
                      private WindowState,
                      private StatusPanels,
                      private FolderDialog,
                      private FileListObserver {
 public:
  /// Opens a file, folder or address with the shell, whose own boxes appear over the window; see OpenWithShell.
  using Opener = std::function<int(const std::string& target, wxWindow& owner)>;

  frmMain(OptionValues options, Application::Paths paths, Opener open = OpenForWindow);
  frmMain(const frmMain&) = delete;
  frmMain& operator=(const frmMain&) = delete;
  ~frmMain() override;

  /// Loads the command line's paths, then shows the window; a long load shows it earlier.
  void Start(const std::vector<std::string>& paths);

  /// Restores the window when it is minimised, and brings it in front of other windows together with its open dialog.
  void ComeForward();

  /// Closes the window when the system ends the program and waits for no answer: cancels the running command and the
  /// topmost dialog. Call it again until the window is closed.
  void CloseUnanswered();

  [[nodiscard]] Application& App() { return *app_; }
  [[nodiscard]] lvwFiles& List() { return *lvwFiles_; }
  [[nodiscard]] LongSearch& Search() { return *search_; }

  /// Converts between a command and the id of its menu item and tool button.
  [[nodiscard]] static int IdOf(Command command);
  [[nodiscard]] static Command CommandOf(int id);

 private:
  static int OpenForWindow(const std::string& target, wxWindow& owner);

  // MainWindow
  void EditLabel(int index) override { lvwFiles_->EditLabel(index); }
  [[nodiscard]] std::vector<std::string> ChooseFiles(const std::string& title,
                                                     const std::vector<FileDialogFilter>& filters,
                                                     const std::string& folder) override;
  void ShowModifyDialog(Rows rows) override;
  void ShowPatternDialog(Rows rows) override;
  void ShowOptionDialog(OptionForm& form) override;
  void ShowVersionDialog() override;
  void ShowFolderList() override;
  void SetAlwaysOnTop(bool front) override;
  void ShowToolBarLabels(bool shown) override;
  void SetRepeat(bool repeat) override;
  void SetInputEnabled(bool enabled) override;
  void Quit() override;
  void EndAtOnce() override;
  // WindowState
  void SetPointer(Pointer pointer) override;
  void SetEnabled(bool enabled) override;
  void FocusList() override { lvwFiles_->Window().SetFocus(); }
  void ScrollToRow(int index) override { lvwFiles_->ShowRow(index); }
  // StatusPanels
  void SetPlayerText(const std::string& text) override;
  void SetModeText(const std::string& text) override;
  // FolderDialog
  std::string Choose(const std::string& prompt, const std::string& start, const std::string& confirm) override;
  // FileListObserver
  void RowChanged(int index) override;
  void RowsChanged() override;
  void MarksChanged() override;

  void MakeControls();
  void NameControls();
  void MakeMenus();
  void MakeToolBar(bool labels);
  void NameToolBarArrows();
  void MakeStatusBar();
  void ShowCounts(const std::array<std::string, 3>& counts);
  wxStatusBar* OnCreateStatusBar(int number, long style, wxWindowID id, const wxString& name) override;
  [[nodiscard]] int StatusBarWidth() const;
  [[nodiscard]] int MissingStatusWidth() const;
  void RefreshPictures();
  [[nodiscard]] lvwFiles::Handlers ListHandlers();
  void BindEvents();
  void KeepBoxKeys(wxKeyEvent& event);
  void BindRenameBox();
  void BindPlayer();
  [[nodiscard]] BarHeights Bars() const;
  void OnPanelSize();
  void Run(Command command);
  void RunNow(Command command);
  void ShowRowMenu(wxPoint screen);
  bool UseListKey(const wxKeyEvent& event);
  void OnStatusBarClick(wxMouseEvent& event);
  void OnClose(wxCloseEvent& event);
  void CloseAfterEdit();
  [[nodiscard]] bool StaysOpen();
  void SwitchMode();
  void ShowStatus(const std::string& text, int panel);
  void ScheduleUpdate();
  void UpdateCounts();
  void ShowHint();
  void UpdateCommands();
  void ApplySettings();
  void Place(wxSize size);
  void KeepSettings();
  [[nodiscard]] PresetUse PresetsInUse() const;
  void BeforeYield();
  void ShowLaidOut();
  void GrowSmallestSize();
  void GrowForCounts();
  void SettleAt(const wxRect& place);
  void AddShadow();

  Opener open_;
  WxMessageBoxes boxes_;
  std::unique_ptr<MediaDevice> device_;
  std::unique_ptr<FileReads> files_;
  std::unique_ptr<FileChanges> disk_;
  frmWait frmWait_;
  Presets presets_;
  // Owned by the window, like every wx child:
  frmMainControls controls_;
  wxWeakRef<frmDirShow> frmDirShow_;  // until the user closes it
  std::unique_ptr<RenameBox> renameBox_;
  std::unique_ptr<InformationBoxes> information_;
  std::unique_ptr<FraMusicPlayer> playerPanel_;
  std::unique_ptr<FloatingMovie> movie_;
  std::unique_ptr<LongSearch> search_;
  std::unique_ptr<LoadingLabel> loading_;
  std::unique_ptr<MoreTagsBar> tagsBar_;
  std::unique_ptr<FraFind> findLine_;
  std::unique_ptr<PendingMessages> pending_;
  std::unique_ptr<Application> app_;
  std::unique_ptr<lvwFiles> lvwFiles_;
  std::unique_ptr<ListHint> hint_;
  std::unique_ptr<ModeWarning> modeWarning_;
  std::unique_ptr<frmMainColumns> columns_;
  std::chrono::steady_clock::time_point started_;
  wxWindow* focused_ = nullptr;                 // the child that last had the focus
  std::unique_ptr<wxWindowDisabler> disabled_;  // disables this window and those beside it
  bool inputEnabled_ = true;
  bool updateScheduled_ = false;
  bool closeWanted_ = false;  // asked for while a command runs
  bool saves_ = true;
  bool asksAtEnd_ = true;
  bool endsEdit_ = false;  // closing waits for the end of an edit in the list
  std::array<int, 5> panelWidths_{};
  wxSize givenSize_;        // the window's size, while nobody has resized it
  bool settled_ = false;    // the window is on the screen with its first size
  int shadow_ = 0;          // the part of the window's width, and of its height, that is only a shadow
  bool maximized_ = false;  // before the window was minimised
  int grownHeight_ = 0;     // the window's height for taller controls, which is not the user's choice
  int grownWidth_ = 0;      // likewise its width for large counts
};

}  // namespace quillon
