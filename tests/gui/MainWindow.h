#pragma once

#include <gtest/gtest.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>
#include <wx/weakref.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/window/frmMain.h"
#include "gui/Dialogs.h"
#include "support/TempFolder.h"

namespace quillon::test {

/// Processes events until the condition holds; false when it did not within fifty seconds.
[[nodiscard]] bool Until(const std::function<bool()>& condition);

/// The program's main window on a display, with a folder of files and a settings file of its own. Commands come as the
/// events of menu items, keys and clicks from the simulator.
class MainWindowTest : public testing::Test {
 protected:
  void TearDown() override;

  /// Every file is loaded, checked as it is by default; deleting is for good.
  static OptionValues Options();

  /// Makes the window and waits until it is shown and active.
  void Open(const OptionValues& options, const std::vector<std::string>& paths = {});
  /// Opens it with the files of `folder` loaded.
  void OpenFolder(const OptionValues& options = Options()) { Open(options, {folder.Path()}); }
  /// Closes it as its close button does and waits until it is gone.
  void CloseWindow();
  [[nodiscard]] bool IsOpen() const { return window_ != nullptr; }

  [[nodiscard]] frmMain& Frame() const { return *window_; }
  [[nodiscard]] Application& App() const { return Frame().App(); }
  [[nodiscard]] FileList& List() const { return App().List(); }
  [[nodiscard]] Application::Paths Paths() const { return {home.At("Quillon.ini"), home.At("Quillon.chm")}; }

  /// Waits until all events posted so far, and those that they post, have been handled.
  void Drain() const;
  /// Sends the menu item's event and waits until the command is over.
  void Run(Command command) const;
  /// Sends the event without waiting.
  void Post(Command command) const;

  template <class Control>
  [[nodiscard]] Control& Get(const std::string& name) const {
    auto* const control = dynamic_cast<Control*>(wxWindow::FindWindowByName(name, &Frame()));
    if (control == nullptr) throw std::runtime_error("no such control: " + name);
    return *control;
  }
  [[nodiscard]] wxTextCtrl& Box() const { return Get<wxTextCtrl>("txtAlterTitle"); }
  [[nodiscard]] std::string Text(const std::string& name) const;
  [[nodiscard]] std::string Status(int panel) const;
  [[nodiscard]] bool MenuEnabled(Command command) const;

  /// The rename names of all rows.
  [[nodiscard]] std::vector<std::string> Names() const;
  [[nodiscard]] std::vector<int> CheckedRows() const;
  [[nodiscard]] std::vector<int> SelectedRows() const;

  // The user's actions. Each waits until the window has handled it.
  void Key(int key, int modifiers = wxMOD_NONE) const;
  void Click(wxPoint screen) const;
  void ClickRow(int index) const;
  void ClickOn(const std::string& control) const;
  void ClickBox() const { ClickOn("txtAlterTitle"); }
  /// Clicks at this many quarters of the panel's width: two clicks on one place could be a double click.
  void ClickModePanel(int quarters = 2) const;
  void FocusList() const;
  void FocusBox() const;
  void SelectRow(int index) const;  ///< with the arrow keys
  [[nodiscard]] static std::string FocusName();

  /// Writes a MIDI file with this title; returns its path.
  std::string WriteMidi(const std::string& name, const std::string& title, const std::string& copyright = {}) const;
  /// The bytes that WriteMidi gives a file.
  [[nodiscard]] static std::string Midi(const std::string& title, const std::string& copyright = {});

  TempFolder folder;
  TempFolder home;
  Dialogs dialogs;
  std::vector<std::string> opened;  ///< what the shell was asked to open
  bool opensForReal = false;        ///< with the system's shell instead; set it before the window is made

 private:
  wxWeakRef<frmMain> window_;
};

/// The panels of the status bar.
inline constexpr int kModePanel = 0;
inline constexpr int kSelectionPanel = 1;
inline constexpr int kPendingPanel = 2;
inline constexpr int kChecksPanel = 3;
inline constexpr int kItemsPanel = 4;

inline constexpr const char* kManual = "手動適応モード";
inline constexpr const char* kAutomatic = "自動適応モード";

// What the native list shows, read from each system's control.
/// The place of a row's rename name on the screen.
[[nodiscard]] wxRect NativeRowRect(lvwFiles& list, int index);
[[nodiscard]] std::string NativeText(lvwFiles& list, int index, Column column);
/// The same as assistive technology reads it: a pending rename name says that it is one.
[[nodiscard]] std::string SpokenText(lvwFiles& list, int index, Column column);
/// Whether the row's rename name is bold.
[[nodiscard]] bool IsBold(lvwFiles& list, int index);
[[nodiscard]] int NativeCount(lvwFiles& list);
[[nodiscard]] std::vector<int> NativeSelection(lvwFiles& list);
/// Whether the list has a horizontal scroll bar.
[[nodiscard]] bool NativeScrollsSideways(lvwFiles& list);
[[nodiscard]] int NativeRowCount(wxWindow& table);
/// A cell of a TextTable; both numbers are 0-based.
[[nodiscard]] std::string NativeCell(wxWindow& table, int row, int column);

}  // namespace quillon::test
