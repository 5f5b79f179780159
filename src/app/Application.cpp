#include "app/Application.h"

#include <utility>

#include "base/Finally.h"
#include "media/MediaInfo.h"
#include "paths/basFileControl.h"
#include "platform/Shell.h"
#include "platform/desktop/JapaneseCollation.h"
#include "settings/SettingsFile.h"
#include "settings/basINIControl.h"

namespace quillon {
Application::Application(OptionValues options, Paths paths, Ports ports, std::uintptr_t ownerWindow, PathStyle style)
    : ports_(std::move(ports)),
      paths_(std::move(paths)),
      style_(style),
      options_(std::move(options)),
      mode_{options_.update.automatic},
      list_(style),
      modeSwitch_(paths_.settings, options_, mode_, ports_.boxes, [this] { return list_.Count() > 0; }),
      status_(ports_.panels),
      player_(list_, options_,
              {ports_.device, ports_.files, ports_.playerPanel, ports_.movie, status_, ports_.boxes, ports_.window,
               ports_.openWithShell},
              style),
      information_(list_, options_, ports_.information, player_, style),
      passedOver_(ports_.search, status_),
      listCommands_(list_, options_, mode_, {ports_.boxes, status_, *this, player_}),
      loader_(list_, options_, mode_,
              {ports_.files, ports_.boxes, ports_.pending, passedOver_, ports_.loading, ports_.folders, status_, *this,
               player_},
              style),
      engine_(list_, options_, mode_, {ports_.files, ports_.disk, ports_.boxes, *this, ports_.window, player_}, style),
      titles_(list_, options_, mode_, engine_, regex_, ports_.pending, ports_.window, ports_.boxes),
      editing_(list_, options_, mode_, engine_, titles_, {ports_.renameBox, ports_.boxes, *this, player_, status_},
               style),
      fileCommands_(
          list_, options_, listCommands_,
          {ports_.files, ports_.disk, ports_.boxes, ports_.folders, player_, *this, ports_.window, ports_.waiting},
          ownerWindow, style) {}

void Application::Start() {
  ports_.main.SetAlwaysOnTop(options_.system.alwaysOnTop);
  SetRepeat(options_.player.repeat);
  status_.SetModeText(ApplyModeText(mode_));
  status_.SetPlayerText(kPlayerIdleText);
  Reset();
}

void Application::Run(const std::function<void()>& action) {
  if (running_) return;
  running_ = true;
  const Finally done([this] { running_ = false; });
  try {
    action();
  } catch (...) {
    const Finally shown([this] { editing_.Refresh(); });
    throw;
  }
  editing_.Refresh();
}

// What may last: the window repaints meanwhile but takes no orders.
void Application::RunAnswerless(const std::function<void()>& action) {
  Run([&] {
    ports_.main.SetAnswering(false);
    const Finally answers([this] { ports_.main.SetAnswering(true); });
    (void)editing_.MayLeaveRow();  // an emptied name comes back before anything is done with it
    action();
    passedOver_.Tell(ports_.boxes);
  });
}

bool Application::IsEnabled(Command command) const {
  return quillon::IsEnabled(command, StateOf(list_, mode_));
}

void Application::Execute(Command command) {
  if (!IsEnabled(command)) return;
  if (command == Command::mnuThisEditRenameName) {  // goes on after this call
    if (!running_) ports_.main.EditLabel(list_.SelectedIndex());
    return;
  }
  if (IsSort(command)) return HeaderClicked(SortColumn(command));
  RunAnswerless([&] { RunCommand(command); });
}

void Application::RunCommand(Command command) {
  switch (command) {
    case Command::mnuFolderReference: loader_.mnuFolderReference(); break;
    case Command::mnuFileLoad: OpenFiles(); break;
    case Command::mnuReload: loader_.mnuReload(); break;
    case Command::mnuAllClear: listCommands_.mnuAllClear(); break;
    case Command::mnuUpdate: engine_.mnuUpdate(); break;
    case Command::mnuAllUpdate: engine_.mnuAllUpdate(); break;
    case Command::mnuOption: ShowOptions(); break;
    case Command::mnuOptionDefaultExit:
      if (mnuOptionDefaultExit(paths_.settings, options_, ports_.boxes)) ports_.main.EndAtOnce();
      break;
    case Command::mnuExit: ports_.main.Quit(); break;
    default: RunListCommand(command);
  }
}

void Application::RunListCommand(Command command) {
  switch (command) {
    case Command::mnuRename: editing_.mnuRename(); break;
    case Command::mnuAllRename: editing_.mnuAllRename(); break;
    case Command::mnuModify: ports_.main.ShowModifyDialog(false); break;
    case Command::mnuAllModify: ports_.main.ShowModifyDialog(true); break;
    case Command::mnuUndo: editing_.mnuUndo(); break;
    case Command::mnuAllUndo: editing_.mnuAllUndo(); break;
    case Command::mnuMove: fileCommands_.mnuMove(); break;
    case Command::mnuAllMove: fileCommands_.mnuAllMove(); break;
    default: RunCheckCommand(command);
  }
}

void Application::RunCheckCommand(Command command) {
  switch (command) {
    case Command::mnuAllChk: listCommands_.mnuAllChk(); break;
    case Command::mnuChkRem: listCommands_.mnuChkRem(); break;
    case Command::mnuTurnChk: listCommands_.mnuTurnChk(); break;
    case Command::mnuUnChkListRem: listCommands_.mnuUnChkListRem(); break;
    default: RunRowCommand(command);
  }
}

void Application::RunRowCommand(Command command) {
  switch (command) {
    case Command::mnuThisUpdate: engine_.mnuThisUpdate(); break;
    case Command::mnuThisRename: editing_.mnuThisRename(); break;
    case Command::mnuThisUndo: editing_.mnuThisUndo(); break;
    case Command::mnuThisMove: fileCommands_.mnuThisMove(); break;
    case Command::mnuThisDel: fileCommands_.mnuThisDel(); break;
    case Command::mnuThisListDel: listCommands_.mnuThisListDel(); break;
    default: RunViewCommand(command);
  }
}

void Application::RunViewCommand(Command command) {
  switch (command) {
    case Command::mnuPlay: player_.mnuPlay(); break;
    case Command::mnuPause: player_.PauseOrGoOn(); break;
    case Command::mnuStop: player_.cmdStop(); break;
    case Command::mnuRepeat: SetRepeat(!options_.player.repeat); break;
    case Command::mnuFront: ToggleFront(); break;
    case Command::mnuApplyMode: SwitchMode(); break;
    case Command::mnuDirShow: ports_.main.ShowFolderList(); break;
    case Command::mnuShowHelp: ShowHelp(); break;
    case Command::mnuVarInfo: ports_.main.ShowVersionDialog(); break;
    default: break;
  }
}

void Application::LoadPaths(const std::vector<std::string>& paths) {
  if (paths.empty()) return;
  RunAnswerless([&] { loader_.LoadPaths(paths); });
}

void Application::OpenFiles() {
  loader_.LoadPaths(
      ports_.main.ChooseFiles(kOpenFileTitle, OpenFileFilters(options_.find), options_.system.loadFolder));
}

void Application::ModifyRows(bool allItems) {
  ModifyRenameNames(list_, options_, mode_, engine_,
                    {regex_, ports_.pending, ports_.waiting, ports_.window, ports_.boxes}, allItems);
  editing_.Refresh();
}

void Application::ToggleFront() {
  options_.system.alwaysOnTop = !options_.system.alwaysOnTop;
  ports_.main.SetAlwaysOnTop(options_.system.alwaysOnTop);
}

void Application::SetRepeat(bool repeat) {
  options_.player.repeat = repeat;
  ports_.main.SetRepeat(repeat);
}

void Application::ShowHelp() {
  if (ports_.openWithShell(paths_.help) == kShellFileNotFound) {
    ports_.boxes.Show({"ヘルプの表示", "ヘルプファイルが開けませんでした", MessageIcon::kStop});
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
  OptionForm form(options_, modeSwitch_);
  ports_.main.ShowOptionDialog(form);
  status_.SetModeText(ApplyModeText(mode_));
}

void Application::Reset() {
  editing_.Load(0);
  information_.Clear();
}

void Application::ShowRow(int index) {
  editing_.Load(index);
  player_.Choose(list_.Row(index).location);
  information_.ShowRow(index);
  status_.ShowSelection(std::string(FileName(list_.Row(index).location, style_)));
  ports_.window.ScrollToRow(index);
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
    const FileItem& row = list_.Row(index);
    if (IsPlayableType(row.type)) {
      player_.Play(row.location);
    } else {
      (void)ports_.openWithShell(row.location);
    }
  });
}

void Application::HeaderClicked(Column column) {
  Run([&] {
    if (!editing_.MayLeaveRow()) return;
    list_.Sort(column, *MakeJapaneseCollation());
    if (const int selected = list_.SelectedIndex(); selected != 0) ports_.window.ScrollToRow(selected);
  });
}

void Application::LabelEdited(int index, const std::string& name) {
  Run([&] { editing_.LabelEdited(index, name); });
}

void Application::RenameBoxChanged() {
  Run([&] { editing_.Changed(); });
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

bool Application::SaveSettings(WindowGeometry geometry) {
  IniFile file(paths_.settings);
  if (!file.Load()) return false;
  WriteOptionValues(file, options_, geometry);
  return file.Save();
}

}  // namespace quillon
