#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/Application.h"
#include "app/InformationRecorders.h"
#include "app/RenameBoxRecorder.h"
#include "platform/Shell.h"
#include "platform/multimedia/basMCIControl.h"
#include "player/PlayerRecorders.h"
#include "support/FakeDevice.h"
#include "support/Recorders.h"
#include "support/Rows.h"
#include "support/TempFolder.h"

namespace quillon::test {

class MainWindowRecorder final : public MainWindow {
 public:
  explicit MainWindowRecorder(EventLog& log) : log_(log) {}

  void EditLabel(int index) override { log_.Add("main edits label " + std::to_string(index)); }
  std::vector<std::string> ChooseFiles(const std::string& title, const std::vector<FileDialogFilter>& filters,
                                       const std::string& folder) override {
    log_.Add("main file dialog: " + title + " | " + folder);
    shownFilters = filters;
    return chosenFiles;
  }
  void ShowModifyDialog(Rows rows) override {
    log_.Add(rows == Rows::kAll ? "main modify dialog for all rows" : "main modify dialog for checked rows");
    if (modifyDialog) modifyDialog(rows);
  }
  void ShowPatternDialog(Rows rows) override {
    log_.Add(rows == Rows::kAll ? "main pattern dialog for all rows" : "main pattern dialog for checked rows");
    if (patternDialog) patternDialog(rows);
  }
  void ShowOptionDialog(OptionForm& form) override {
    log_.Add("main option dialog");
    if (optionDialog) optionDialog(form);
  }
  void ShowVersionDialog() override { log_.Add("main version dialog"); }
  void ShowFolderList() override { log_.Add("main folder list"); }
  void SetAlwaysOnTop(bool front) override { log_.Add(front ? "main on top" : "main not on top"); }
  void ShowToolBarLabels(bool shown) override { log_.Add(shown ? "main tool labels" : "main no tool labels"); }
  void SetRepeat(bool repeat) override { log_.Add(repeat ? "main repeats" : "main does not repeat"); }
  void SetInputEnabled(bool enabled) override { log_.Add(enabled ? "main input on" : "main input off"); }
  void Quit() override { log_.Add("main quits"); }
  void EndAtOnce() override { log_.Add("main ends at once"); }

  std::vector<std::string> chosenFiles;
  std::vector<FileDialogFilter> shownFilters;
  std::function<void(Rows rows)> modifyDialog;
  std::function<void(Rows rows)> patternDialog;
  std::function<void(OptionForm& form)> optionDialog;

 private:
  EventLog& log_;
};

class TagsBarRecorder final : public TagsBar {
 public:
  explicit TagsBarRecorder(EventLog& log) : log_(log) {}

  void ShowTagsOffer(const std::string& text) override { log_.Add("tags bar: " + text); }
  void HideTagsOffer() override { log_.Add("tags bar hidden"); }

 private:
  EventLog& log_;
};

class FindLineRecorder final : public FindLine {
 public:
  explicit FindLineRecorder(EventLog& log) : log_(log) {}

  void OpenFindLine() override {
    log_.Add("find line opened");
    open_ = true;
  }
  void CloseFindLine() override {
    log_.Add("find line closed");
    open_ = false;
  }
  [[nodiscard]] bool IsFindLineOpen() const override { return open_; }
  void ShowFound(const std::string& text) override { found = text; }

  std::string found;

 private:
  EventLog& log_;
  bool open_ = false;
};

/// An Application whose ports are recorders. Files are real ones in `folder`; the settings file's path is "Quillon.ini"
/// in `home`.
struct ApplicationFixture {
  TempFolder folder;
  TempFolder home;
  Recorders ports;
  MainWindowRecorder main{ports.log};
  RenameBoxRecorder box{ports.log};
  InformationBoxRecorder information;
  TagsBarRecorder tagsBar{ports.log};
  FindLineRecorder findLine{ports.log};
  FakeDevice device;
  PanelControls playerPanel;
  MovieControls movie;
  std::unique_ptr<FileReads> files = MakeFileReads();
  std::unique_ptr<FileChanges> disk = MakeFileChanges();
  basMCIControl mci{device, *files};
  int shellAnswer = kShellOpened;
  Application app;

  explicit ApplicationFixture(const OptionValues& options = Options(), std::string_view settingsName = "Quillon.ini")
      : app(options, {home.At(settingsName), home.At("Quillon.chm")},
            {.window = {main, ports.window, ports.panels, box, information, tagsBar, findLine},
             .dialogs = {ports.boxes, ports.pending, {ports.search, ports.progress, ports.folders}, ports.progress},
             .player = {mci, playerPanel, movie},
             .system = {*files, *disk, [this](const std::string& target) {
                          ports.log.Add("shell opens " + target);
                          return shellAnswer;
                        }}}) {}

  /// Every file is loaded, unchecked; files are deleted for good, without a question.
  static OptionValues Options() {
    OptionValues options;
    options.find.filterByExtension = false;
    options.list.checkLoadedRows = false;
    options.list.deleteTo = DeleteTo::kNowhere;
    options.list.confirmDeletion = false;
    return options;
  }

  /// Makes these files, loads their folder, and forgets what happened so far.
  void Load(const std::vector<std::string>& names) {
    for (const std::string& name : names) folder.Write(name, name);
    app.LoadPaths({folder.Path()});
    ports.log.Clear();
  }

  /// Selects these rows as clicks do (with the keys for several rows held).
  void Select(const std::vector<int>& rows) {
    app.List().SelectNone();
    for (const int row : rows) app.List().SetSelected(row, true);
    app.SelectionChanged();
  }

  void Type(const std::string& text) {
    box.Put(text, static_cast<int>(CharacterCount(text)));
    app.RenameBoxChanged();
  }

  [[nodiscard]] std::vector<std::string> Names() { return RenameNames(app.List()); }
  [[nodiscard]] const EventLog& Log() const { return ports.log; }
  [[nodiscard]] std::vector<std::string> Boxes() const { return ports.log.StartingWith("box "); }
  [[nodiscard]] std::string LastPanel(std::string_view which) const {
    const auto panels = ports.log.StartingWith("panel " + std::string(which) + ": ");
    return panels.empty() ? std::string() : panels.back().substr(("panel " + std::string(which) + ": ").size());
  }
};

}  // namespace quillon::test
