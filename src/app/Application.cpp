#include "app/Application.h"

#include <utility>

#include "base/Finally.h"
#include "base/Text.h"
#include "media/MediaInfo.h"
#include "paths/basFileControl.h"
#include "platform/Shell.h"
#include "platform/desktop/JapaneseCollation.h"
#include "settings/SettingsFile.h"
#include "settings/basINIControl.h"

namespace quillon {
namespace {

/// Lets messages through during work that shows no progress.
class Repainting final : public Progress {
 public:
  explicit Repainting(PendingMessages& pending) : pending_(pending) {}

  bool Continue(std::size_t /*done*/, std::size_t /*total*/, const std::string& /*item*/) override {
    return Continue();
  }
  bool Continue() override {
    pending_.Process();
    return true;
  }

 private:
  PendingMessages& pending_;
};

}  // namespace

Application::Application(OptionValues options, Paths paths, Ports ports, PathStyle style)
    : ports_(std::move(ports)),
      paths_(std::move(paths)),
      style_(style),
      options_(std::move(options)),
      mode_{options_.update.automatic},
      list_(style),
      modeSwitch_(paths_.settings, options_, mode_, ports_.dialogs.boxes, [this] { return list_.Count() > 0; }),
      status_(ports_.window.panels),
      player_(list_, options_,
              {ports_.player.device, ports_.player.panel, ports_.player.movie, status_, ports_.dialogs.boxes,
               ports_.window.state, ports_.system.openWithShell},
              style),
      information_(list_, options_, ports_.window.information, player_, style),
      session_{list_, options_, mode_, player_, style},
      screen_{ports_.dialogs.boxes, ports_.dialogs.pending, ports_.window.state, *this, status_},
      listCommands_(session_, screen_),
      loading_(session_, ports_.system.files, ports_.dialogs.loading, screen_),
      engine_(list_, mode_, ports_.system.changes, player_, style),
      applying_(session_, engine_, ports_.system.files, screen_),
      names_(session_, applying_, regex_, ports_.dialogs.waiting, screen_),
      editing_(session_, applying_, names_, ports_.window.renameBox, screen_),
      edits_(session_, screen_),
      fileCommands_(session_, listCommands_, {ports_.system.files, ports_.system.changes, ports_.system.ownerWindow},
                    {ports_.dialogs.loading.folders, ports_.dialogs.waiting}, screen_),
      tagsOffer_(session_, ports_.system.files, ports_.window.tagsBar, ports_.dialogs.loading.progress, screen_),
      find_(session_, editing_, ports_.window.findLine, screen_) {}

void Application::Start() {
  ports_.window.main.SetAlwaysOnTop(options_.system.alwaysOnTop);
  SetRepeat(options_.player.repeat);
  status_.SetModeText(ApplyModeText(mode_));
  status_.ShowPlayerIdle();
  if (options_.extra.toolBarLabels) ports_.window.main.ShowToolBarLabels(true);
  Reset();
}

// Edits are not recorded in auto-apply mode: they are on the disk at once.
void Application::BeginStep(EditHistory::Merging merging) {
  if (!mode_.automatic) list_.Edits().Begin(merging);
}

void Application::Run(const std::function<void()>& action, EditHistory::Merging merging) {
  if (running_) return;
  running_ = true;
  const Finally done([this] { running_ = false; });
  status_.EndResult();
  BeginStep(merging);
  const Finally recorded([this] { list_.Edits().End(); });
  try {
    action();
  } catch (...) {
    const Finally shown([this] { editing_.Refresh(); });
    throw;
  }
  editing_.Refresh();
}

// Runs an action that may take long: the window repaints meanwhile but accepts no input.
void Application::RunExclusively(const std::function<void()>& action) {
  Run([&] {
    ports_.window.main.SetInputEnabled(false);
    const Finally enabled([this] { ports_.window.main.SetInputEnabled(true); });
    (void)editing_.MayLeaveRow();  // restores an emptied name before the action can use it
    action();
    loading_.TellPassedOver();
    tagsOffer_.Offer(loading_.TakeUnreadTags());
  });
}

bool Application::IsEnabled(Command command) const {
  return quillon::IsEnabled(command, StateOf(list_, mode_));
}

void Application::Execute(Command command) {
  if (!IsEnabled(command)) return;
  const CommandEntry& entry = EntryOf(command);
  const CommandTargets targets = {*this,  ports_.window.main, loading_, listCommands_, applying_, editing_,
                                  edits_, fileCommands_,      player_};
  if (entry.runs == Runs::kAsEvent) return entry.action(targets);
  RunExclusively([&] { entry.action(targets); });
}

void Application::LoadPaths(const std::vector<std::string>& paths) {
  if (paths.empty()) return;
  RunExclusively([&] { loading_.LoadPaths(paths); });
}

void Application::AcceptTagsOffer() {
  RunExclusively([&] { tagsOffer_.Accept(); });
}

void Application::Find() {
  Run([&] { find_.mnuFind(); });
}

void Application::FindNext() {
  Run([&] { find_.mnuFindNext(); });
}

void Application::FindPrevious() {
  Run([&] { find_.mnuFindPrevious(); });
}

void Application::FindText(const std::string& text) {
  Run([&] { find_.TextChanged(text); });
}

void Application::RefreshFindLine() {
  if (!running_) find_.Refresh();
}

void Application::RowTyped(int index) {
  Run([&] { find_.GoTo(index); });
}

void Application::OpenFiles() {
  loading_.LoadPaths(
      ports_.window.main.ChooseFiles(kOpenFileTitle, OpenFileFilters(options_.find), options_.system.loadFolder));
}

// The dialog may stay open and run rules several times within its command: each run is a step of its own.
void Application::ModifyRows(Rows rows, const OptionValues::Modify& rules) {
  list_.Edits().End();
  BeginStep(EditHistory::Merging::kNever);
  names_.ModifyRows(rows, rules);
  editing_.Refresh();
}

void Application::RenameByPattern(Rows rows, const PatternRules& rules, const ReadFacts& read) {
  names_.RenameByPattern(rows, rules, read);
}

void Application::ResetAndEnd() {
  if (mnuOptionDefaultExit(paths_.settings, options_, ports_.dialogs.boxes)) ports_.window.main.EndAtOnce();
}

// Only starts the editing, which goes on after this call.
void Application::EditLabel() {
  if (!running_) ports_.window.main.EditLabel(list_.SelectedIndex());
}

void Application::ToggleAlwaysOnTop() {
  options_.system.alwaysOnTop = !options_.system.alwaysOnTop;
  ports_.window.main.SetAlwaysOnTop(options_.system.alwaysOnTop);
}

void Application::ToggleToolBarLabels() {
  options_.extra.toolBarLabels = !options_.extra.toolBarLabels;
  ports_.window.main.ShowToolBarLabels(options_.extra.toolBarLabels);
}

void Application::SetRepeat(bool repeat) {
  options_.player.repeat = repeat;
  ports_.window.main.SetRepeat(repeat);
}

void Application::ShowHelp() {
  if (ports_.system.openWithShell(paths_.help) == kShellFileNotFound) {
    ports_.dialogs.boxes.Show({"ヘルプの表示", "ヘルプファイルが開けませんでした", MessageIcon::kStop});
  }
}

void Application::ModePanelClicked() {
  Run([&] { SwitchMode(); });
}

void Application::SwitchMode() {
  const bool automatic = !mode_.automatic;
  modeSwitch_.Switch(automatic, [&] { status_.SetModeText(automatic ? kAutoApplyText : kManualApplyText); });
}

void Application::ShowOptions() {
  OptionForm form(options_, modeSwitch_, ports_.dialogs.boxes);
  ports_.window.main.ShowOptionDialog(form);
  status_.SetModeText(ApplyModeText(mode_));
}

void Application::Reset() {
  editing_.Load(0);
  information_.Clear();
}

void Application::ShowRow(int index) {
  editing_.Load(index);
  player_.Choose(list_.Row(index).Location());
  information_.ShowRow(index);
  status_.ShowSelection(std::string(list_.Row(index).name));
  ports_.window.state.ScrollToRow(index);
}

void Application::ShowFileName(const std::string& path) {
  information_.ShowFileName(path);
  status_.ShowSelection(std::string(FileName(path, style_)));
}

void Application::SelectionChanged() {
  Run([&] {
    if (!editing_.MayLeaveRow()) return;
    if (const int selected = list_.SelectedIndex(); selected != 0) {
      ShowRow(selected);
    } else {
      Reset();
    }
  });
}

void Application::RowActivated(int index) {
  Run([&] {
    const FileRow row = list_.Row(index);
    if (IsPlayableType(row.type)) {
      player_.Play(row.Location());
    } else {
      (void)ports_.system.openWithShell(row.Location());
    }
  });
}

void Application::HeaderClicked(Column column) {
  Run([&] {
    if (!editing_.MayLeaveRow()) return;
    Sort(column);
    if (const int selected = list_.SelectedIndex(); selected != 0) ports_.window.state.ScrollToRow(selected);
  });
}

// A long sort lets the window repaint, but accepts no input meanwhile.
void Application::Sort(Column column) {
  const std::unique_ptr<Collation> order = MakeJapaneseCollation();
  if (list_.Count() <= kQuicklySorted) return list_.Sort(column, *order);
  ports_.window.main.SetInputEnabled(false);
  const Finally enabled([this] { ports_.window.main.SetInputEnabled(true); });
  Repainting repainting(ports_.dialogs.pending);
  list_.Sort(column, *order, &repainting);
}

void Application::LabelEdited(int index, const std::string& name) {
  Run([&] { editing_.LabelEdited(index, name); });
}

void Application::RenameBoxChanged() {
  Run([&] { editing_.Changed(); }, EditHistory::Merging::kTyping);
}

void Application::RenameBoxEntered() {
  Run([&] { editing_.EnterPressed(); });
}

void Application::AskForName() {
  Run([&] { editing_.AskForName(); });
}

void Application::RenameBoxFocused() {
  Run([&] { editing_.GotFocus(); });
}

void Application::RenameBoxClicked() {
  Run([&] { editing_.Clicked(); });
}

bool Application::MayEnd() {
  if (!options_.extra.confirmPending || options_.system.suppressConfirmations || list_.PendingCount() == 0) return true;
  bool ends = false;
  Run([&] {
    ends = ports_.dialogs.boxes.Show({"終了",
                                      "適応していないリネーム名が " +
                                          FormatThousands(static_cast<std::uint64_t>(list_.PendingCount())) +
                                          " 個あります\r\n終了すると失われます。終了しますか",
                                      MessageIcon::kQuestion, MessageButtons::kYesNo});
  });
  return ends;
}

bool Application::SaveSettings(WindowGeometry geometry) {
  IniFile file(paths_.settings);
  if (!file.Load()) return false;
  WriteOptionValues(file, options_, geometry);
  return file.Save();
}

}  // namespace quillon
