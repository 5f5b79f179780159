#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/RenameBoxRecorder.h"
#include "app/RenameEditing.h"
#include "app/RenameFixture.h"

namespace quillon::test {

/// Files in memory, rows for them, and the rename box, connected as in the window: showing a row loads it into the box.
struct EditingFixture : RenameFixture {
  struct FollowingPanel final : FilePanel {
    FilePanel& recorder;
    RenameEditing& editing;

    FollowingPanel(FilePanel& record, RenameEditing& boxLogic) : recorder(record), editing(boxLogic) {}
    void Reset() override {
      recorder.Reset();
      editing.Load(0);
    }
    void ShowRow(int index) override {
      recorder.ShowRow(index);
      editing.Load(index);
    }
    void ShowFileName(const std::string& path) override { recorder.ShowFileName(path); }
  };

  RenameBoxRecorder box{ports.log};
  NoRegex regex;
  FollowingPanel panel{ports.filePanel, editing};
  Screen following{ports.boxes, ports.pending, ports.window, panel, status};
  ApplyCommands applying{session, engine, files, following};
  NameCommands nameCommands{session, applying, regex, ports.progress, following};
  RenameEditing editing{session, applying, nameCommands, box, following};

  /// Selects the first row and empties the log.
  explicit EditingFixture(const std::vector<std::string>& names, PathStyle pathStyle = PathStyle::kLinux)
      : RenameFixture(names, pathStyle) {
    if (!names.empty()) Select({1});
    ports.log.Clear();
  }

  void Select(const std::vector<int>& rows) {
    list.SelectNone();
    for (const int row : rows) list.SetSelected(row, true);
    editing.Load(list.SelectedIndex());
    ports.log.Clear();
  }

  void SetTitle(int index, const std::string& title) {
    FileItem row = list.Row(index).Item();
    row.title = title;
    list.Replace(index, row);
  }

  /// Types this text; the caret is then behind its `caret`-th character, by default at the end.
  void Type(const std::string& text, int caret = -1) {
    ports.log.Clear();
    box.Put(text, caret < 0 ? static_cast<int>(CharacterCount(text)) : caret);
    editing.Changed();
  }

  [[nodiscard]] const std::vector<std::string>& Log() const { return ports.log.Events(); }
};

}  // namespace quillon::test
