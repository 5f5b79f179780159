#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/ApplyCommands.h"
#include "app/CommandTable.h"
#include "app/EditCommands.h"
#include "app/FileCommands.h"
#include "app/FindCommands.h"
#include "app/InformationPanel.h"
#include "app/ListCommands.h"
#include "app/LoadCommands.h"
#include "app/NameCommands.h"
#include "app/OpenFileFilters.h"
#include "app/RenameEditing.h"
#include "app/Screen.h"
#include "app/TagsOffer.h"
#include "base/Ports.h"
#include "dialogs/OptionForm.h"
#include "filelist/FileList.h"
#include "filelist/SelectionStatus.h"
#include "filelist/WindowPorts.h"
#include "platform/FileSystem.h"
#include "player/MusicPlayer.h"
#include "rename/RegexReplace.h"
#include "rename/basQuillon.h"
#include "settings/ApplyMode.h"
#include "settings/ApplyModeSwitch.h"
#include "settings/OptionValues.h"
#include "settings/Settings.h"

namespace quillon {

/// The main window's actions that belong to no smaller port.
class MainWindow {
 public:
  virtual ~MainWindow() = default;
  virtual void EditLabel(int index) = 0;
  /// Files picked in the open-file dialog; empty when it was cancelled.
  [[nodiscard]] virtual std::vector<std::string> ChooseFiles(const std::string& title,
                                                             const std::vector<FileDialogFilter>& filters,
                                                             const std::string& folder) = 0;
  virtual void ShowModifyDialog(Rows rows) = 0;
  virtual void ShowPatternDialog(Rows rows) = 0;
  /// Modal; ends with the form's cmdOK or cmdCancel.
  virtual void ShowOptionDialog(OptionForm& form) = 0;
  virtual void ShowVersionDialog() = 0;
  /// Stays open beside the main window.
  virtual void ShowFolderList() = 0;
  virtual void SetAlwaysOnTop(bool front) = 0;
  virtual void ShowToolBarLabels(bool shown) = 0;
  /// Updates the check mark of mnuRepeat, and chkRepeat.
  virtual void SetRepeat(bool repeat) = 0;
  /// Whether the window accepts commands; off while one runs.
  virtual void SetInputEnabled(bool enabled) = 0;
  /// Asks the window to close, as its own close button does.
  virtual void Quit() = 0;
  /// Closes the program without saving the settings.
  virtual void EndAtOnce() = 0;
};

class Application;

/// What the commands act on.
struct CommandTargets {
  Application& app;
  MainWindow& main;
  LoadCommands& loading;
  ListCommands& list;
  ApplyCommands& applying;
  RenameEditing& editing;
  EditCommands& edits;
  FileCommands& files;
  MusicPlayer& player;
};

/// The program behind the main window: owns what all commands share, and executes every command. While one runs,
/// further ones are refused, because its loops process messages.
class Application : private FilePanel {
 public:
  struct Window {
    MainWindow& main;
    WindowState& state;
    StatusPanels& panels;
    RenameBox& renameBox;
    InformationBoxes& information;
    TagsBar& tagsBar;
    FindLine& findLine;
  };
  struct Dialogs {
    MessageBoxes& boxes;
    PendingMessages& pending;
    LoadWindows loading;
    ProgressDisplay& waiting;  ///< the wait window
  };
  struct PlayerParts {
    MediaDevice& device;
    PlayerPanel& panel;
    MovieWindow& movie;
  };
  struct System {
    FileReads& files;
    FileChanges& changes;
    /// The shell's verb "Open"; see OpenWithShell.
    std::function<int(const std::string& target)> openWithShell;
    std::uintptr_t ownerWindow = 0;  ///< the main window's native handle
  };
  /// The interfaces through which the program reaches its surroundings.
  struct Ports {
    Window window;
    Dialogs dialogs;
    PlayerParts player;
    System system;
  };

  struct Paths {
    std::string settings;
    std::string help;
  };

  /// `options` are the values from the settings file; commands edit the program's copy in place.
  Application(OptionValues options, Paths paths, Ports ports, PathStyle style = SystemPathStyle());
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;
  ~Application() override = default;

  [[nodiscard]] FileList& List() { return list_; }
  [[nodiscard]] OptionValues& Options() { return options_; }
  [[nodiscard]] const ApplyMode& Mode() const { return mode_; }
  [[nodiscard]] bool RegexAvailable() const { return regex_.Available(); }
  [[nodiscard]] RegexEngine& Regex() { return regex_; }

  /// True while a command or an event is being handled.
  [[nodiscard]] bool IsRunning() const { return running_; }

  /// Sets panels, boxes and the always-on-top state as the settings say. Call it before the first command.
  void Start();

  /// Runs the command if it is enabled now and none runs already.
  void Execute(Command command);
  [[nodiscard]] bool IsEnabled(Command command) const;

  /// Loads the command line's paths, or those dropped on the list.
  void LoadPaths(const std::vector<std::string>& paths);
  void CancelLoad() {
    loading_.Cancel();
    tagsOffer_.Cancel();
  }

  /// Called by frmModify to change the rename names.
  void ModifyRows(Rows rows, const OptionValues::Modify& rules);

  /// Called by frmPattern's owner when its OK was pressed.
  void RenameByPattern(Rows rows, const PatternRules& rules, const ReadFacts& read);

  void ModePanelClicked();

  // The buttons of the bar over the list.
  void AcceptTagsOffer();
  void DeclineTagsOffer() { tagsOffer_.Decline(); }

  // Commands and events of the find line.
  void Find();
  void FindNext();
  void FindPrevious();
  void FindText(const std::string& text);
  void CloseFindLine() { find_.Close(); }
  /// Shows the number of rows found anew if it may have changed. While a command runs it stays.
  void RefreshFindLine();

  /// Also works in a dialog, while the command that opened it still runs.
  void ShowHelp();

  /// The player's buttons, sliders and timer call it directly, so that they also work while a command runs.
  [[nodiscard]] MusicPlayer& Player() { return player_; }

  // Commands of the program itself.
  void OpenFiles();
  void ShowOptions();
  void ResetAndEnd();
  void SwitchMode();
  void ToggleRepeat() { SetRepeat(!options_.player.repeat); }
  void ToggleAlwaysOnTop();
  void ToggleToolBarLabels();
  void EditLabel();

  // Events of the list. The rows' selected flags must already match the screen.
  void SelectionChanged();
  /// Selects this row, which was typed for.
  void RowTyped(int index);
  void RowActivated(int index);
  void HeaderClicked(Column column);
  /// The number of rows up to which sorting is over at once.
  static constexpr int kQuicklySorted = 20000;
  void SetRepeat(bool repeat);
  void LabelEdited(int index, const std::string& name);

  // Events of the rename box.
  void RenameBoxChanged();
  void RenameBoxEntered();
  [[nodiscard]] bool RenameBoxNeedsName() const { return !running_ && editing_.NeedsName(); }
  void AskForName();
  void RenameBoxFocused();
  void RenameBoxClicked();

  void WindowResized() { information_.RefillFileName(); }

  /// Asks whether the program may end while rename names are not applied, if the options say so.
  [[nodiscard]] bool MayEnd();

  /// Writes every setting but the stored apply mode. False when the file cannot be read or written.
  bool SaveSettings(WindowGeometry geometry);

 private:
  // FilePanel
  void Reset() override;
  void ShowRow(int index) override;
  void ShowFileName(const std::string& path) override;

  void BeginStep(EditHistory::Merging merging);
  void Run(const std::function<void()>& action, EditHistory::Merging merging = EditHistory::Merging::kNever);
  void RunExclusively(const std::function<void()>& action);
  void Sort(Column column);

  Ports ports_;
  Paths paths_;
  PathStyle style_;
  OptionValues options_;
  ApplyMode mode_;
  FileList list_;
  ApplyModeSwitch modeSwitch_;
  SelectionStatus status_;
  MusicPlayer player_;
  RegexLibrary regex_;
  InformationPanel information_;
  Session session_;
  Screen screen_;
  ListCommands listCommands_;
  LoadCommands loading_;
  RenameEngine engine_;
  ApplyCommands applying_;
  NameCommands names_;
  RenameEditing editing_;
  EditCommands edits_;
  FileCommands fileCommands_;
  TagsOffer tagsOffer_;
  FindCommands find_;
  bool running_ = false;
};

}  // namespace quillon
