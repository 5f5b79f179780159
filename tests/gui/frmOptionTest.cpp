#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/notebook.h>
#include <wx/radiobut.h>
#include <wx/stattext.h>

#include <map>

#include "controls/WxText.h"
#include "dialogs/OptionTable.h"
#include "dialogs/window/frmOption.h"
#include "gui/MainWindow.h"
#include "gui/Settle.h"

/// The options dialog, opened from the main window's menu.
namespace quillon::test {
namespace {

class OptionDialog : public MainWindowTest {
 protected:
  /// Opens the dialog and calls `act` while it is open.
  void Use(const std::function<void()>& act) {
    dialogs.Use([this, act](wxDialog& dialog) {
      dialog_ = &dialog;
      EXPECT_TRUE(SettleUntil([&dialog] { return dialog.IsShown(); }));
      act();
    });
    Run(Command::mnuOption);
    dialog_ = nullptr;
  }

  [[nodiscard]] wxDialog& Dialog() const { return *dialog_; }

  template <class Control>
  [[nodiscard]] Control& Find(const std::string& name) const {
    auto* const control = dynamic_cast<Control*>(wxWindow::FindWindowByName(name, dialog_));
    if (control == nullptr) throw std::runtime_error("no such control: " + name);
    return *control;
  }

  [[nodiscard]] bool Enabled(const std::string& name) const { return Find<wxWindow>(name).IsEnabled(); }
  [[nodiscard]] bool Checked(const std::string& name) const { return Find<wxCheckBox>(name).GetValue(); }

  void ShowPageOf(const std::string& name) const {
    auto& tabs = Find<wxNotebook>("TabStrip");
    for (std::size_t i = 0; i < tabs.GetPageCount(); ++i) {
      if (wxWindow::FindWindowByName(name, tabs.GetPage(i)) != nullptr) tabs.SetSelection(i);
    }
    EXPECT_TRUE(SettleUntil([&] { return Find<wxWindow>(name).IsShownOnScreen(); })) << name;
  }

  /// Presses the control with the space key; returns when the check box or button shows it.
  void Press(const std::string& name) const {
    ShowPageOf(name);
    auto& control = Find<wxWindow>(name);
    control.SetFocus();
    EXPECT_TRUE(SettleUntil([&] { return control.HasFocus(); })) << name;
    const auto* const box = dynamic_cast<wxCheckBox*>(&control);
    const auto* const button = dynamic_cast<wxRadioButton*>(&control);
    const bool expected = box == nullptr || !box->GetValue();
    // A key that is sent while the display hands over the focus can be lost: it is pressed again then.
    for (int attempts = 0; attempts < 3; ++attempts) {
      wxUIActionSimulator().Char(WXK_SPACE);
      if (box == nullptr && button == nullptr) break;  // shows nothing
      if (SettleUntil([&] { return (box != nullptr ? box->GetValue() : button->GetValue()) == expected; })) break;
    }
    Settle();
  }

  void Close(const std::string& button = "cmdOK") const {
    auto& control = Find<wxButton>(button);
    wxCommandEvent event(wxEVT_BUTTON, control.GetId());
    event.SetEventObject(&control);
    control.ProcessWindowEvent(event);
  }

 private:
  wxDialog* dialog_ = nullptr;
};

TEST_F(OptionDialog, ShowsEveryControlOfTheTableOnItsPage) {
  Open(Options());
  Use([this] {
    EXPECT_EQ(FromWx(Dialog().GetTitle()), "オプション");
    const auto& tabs = Find<wxNotebook>("TabStrip");
    ASSERT_EQ(tabs.GetPageCount(), OptionPages().size());
    std::size_t number = 0;
    for (const OptionPage& page : OptionPages()) {
      EXPECT_EQ(FromWx(tabs.GetPageText(number)), page.caption);
      wxWindow* const panel = tabs.GetPage(number);
      EXPECT_EQ(FromWx(panel->GetName()), "fraTab" + std::to_string(number++));
      for (const OptionFrame& frame : page.frames) {
        for (const OptionControl& control : frame.controls) {
          const wxWindow* const shown = wxWindow::FindWindowByName(control.name, panel);
          ASSERT_NE(shown, nullptr) << control.name;
          EXPECT_EQ(FromWx(shown->GetToolTipText()), control.toolTip) << control.name;
          if (control.kind == OptionKind::kTextBox || control.kind == OptionKind::kNote) continue;
          EXPECT_EQ(FromWx(shown->GetLabel()), control.caption);
        }
      }
    }
    Close();
  });
}

TEST_F(OptionDialog, NotesAreWrappedWithoutLosingACharacter) {
  Open(Options());
  Use([this] {
    for (const char* name : {"lblUpdate_Note", "lblSystem_Note"}) {
      ShowPageOf(name);
      const auto& note = Find<wxStaticText>(name);
      wxString label = note.GetLabel();
      std::string expected;
      for (const OptionPage& page : OptionPages()) {
        for (const OptionFrame& frame : page.frames) {
          for (const OptionControl& control : frame.controls) {
            if (std::string(control.name) == name) expected = control.caption;
          }
        }
      }
      std::erase(expected, '\n');
      label.Replace("\n", "");
      EXPECT_EQ(FromWx(label), expected);
      EXPECT_LE(note.GetRect().GetRight(), note.GetParent()->GetClientSize().x) << name;
    }
    Close();
  });
}

TEST_F(OptionDialog, ShowsTheSelectedPageAlone) {
  Open(Options());
  Use([this] {
    auto& tabs = Find<wxNotebook>("TabStrip");
    for (std::size_t selected = 0; selected < tabs.GetPageCount(); ++selected) {
      tabs.SetSelection(selected);
      EXPECT_TRUE(SettleUntil([&] { return tabs.GetPage(selected)->IsShownOnScreen(); }));
      for (std::size_t i = 0; i < tabs.GetPageCount(); ++i) {
        EXPECT_EQ(tabs.GetPage(i)->IsShownOnScreen(), i == selected) << i;
      }
    }
    Close();
  });
}

TEST_F(OptionDialog, OkStoresWhatWasClickedAndTyped) {
  Open(Options());
  Use([this] {
    Press("chkSubFolder");
    Press("chkErrSkip");
    Press("chkMsgBox");
    Press("chkExtensionFilter");
    Press("chkExtensionEtc");
    ShowPageOf("txtExtensionEtc");
    Find<wxTextCtrl>("txtExtensionEtc").SetValue("ogg flac");
    EXPECT_FALSE(App().Options().update.skipFailedRows) << "not before OK";
    Close();
  });
  const OptionValues& options = App().Options();
  EXPECT_TRUE(options.list.searchSubfolders);
  EXPECT_TRUE(options.update.skipFailedRows);
  EXPECT_TRUE(options.system.suppressConfirmations);
  EXPECT_TRUE(options.find.filterByExtension);
  EXPECT_TRUE(options.find.other.on);
  EXPECT_EQ(options.find.other.extensions, "ogg flac");
  Use([this] {
    EXPECT_TRUE(Checked("chkSubFolder"));
    EXPECT_EQ(FromWx(Find<wxTextCtrl>("txtExtensionEtc").GetValue()), "ogg flac");
    Close();
  });
}

TEST_F(OptionDialog, AccessKeysReachTheOtherFrames) {
  Open(Options());
  Use([this] {
    ShowPageOf("chkSubFolder");
    auto& inOneFrame = Find<wxWindow>("chkExtensionFilter");
    inOneFrame.SetFocus();
    EXPECT_TRUE(SettleUntil([&] { return inOneFrame.HasFocus(); }));
    const bool before = Checked("chkSubFolder");
    wxUIActionSimulator().Char('S', wxMOD_ALT);
    EXPECT_TRUE(SettleUntil([&] { return Checked("chkSubFolder") != before; }));
    Close("cmdCancel");
  });
}

TEST_F(OptionDialog, TheDeleteButtonsExcludeEachOther) {
  Open(Options());  // deleting is for good there
  Use([this] {
    EXPECT_TRUE(Find<wxRadioButton>("optDel0").GetValue());
    Press("optDel1");
    EXPECT_FALSE(Find<wxRadioButton>("optDel0").GetValue());
    Close();
  });
  EXPECT_EQ(App().Options().list.deleteTo, DeleteTo::kRecycleBin);
}

TEST_F(OptionDialog, CancelAndEscAndTheFramesButtonStoreNothing) {
  Open(Options());
  const std::function<void()> ends[] = {[this] { Close("cmdCancel"); }, [this] { Dialog().Close(); },
                                        [] { wxUIActionSimulator().Char(WXK_ESCAPE); }};
  for (const auto& end : ends) {
    Use([&] {
      Press("chkSubFolder");
      end();
    });
    EXPECT_FALSE(App().Options().list.searchSubfolders);
  }
}

TEST_F(OptionDialog, TheExtensionFilterGreysItsControls) {
  OptionValues options = Options();
  options.find.filterByExtension = true;
  Open(options);
  Use([this] {
    EXPECT_TRUE(Enabled("chkExtensionText"));
    EXPECT_TRUE(Enabled("txtExtensionMusic"));
    EXPECT_FALSE(Enabled("txtExtensionText"));
    Press("chkExtensionText");
    EXPECT_TRUE(Enabled("txtExtensionText"));
    Press("chkExtensionFilter");
    for (const char* name : {"chkExtensionText", "txtExtensionText", "chkExtensionMusic", "txtExtensionMusic"}) {
      EXPECT_FALSE(Enabled(name)) << name;
    }
    EXPECT_TRUE(Enabled("chkExtensionFilter"));
    EXPECT_TRUE(Checked("chkExtensionText")) << "greyed, it keeps its value";
    Close();
  });
}

TEST_F(OptionDialog, SwitchesTheApplyModeWithItsBox) {
  Open(Options());
  Use([this] {
    dialogs.AnswerAfter([this] { EXPECT_FALSE(Enabled("chkErrSkip")) << "before the box"; });
    Press("chkAutoUpdate");
    EXPECT_EQ(dialogs.TakeShown().size(), 1u);
    EXPECT_TRUE(App().Mode().automatic);
    EXPECT_FALSE(Enabled("chkUpdateRemoveChk"));
    EXPECT_TRUE(Enabled("chkUpdateErrChk"));
    EXPECT_EQ(Status(kModePanel), kManual) << "until the dialog has closed";
    Close();
  });
  EXPECT_EQ(Status(kModePanel), kAutomatic);
  Use([this] {
    EXPECT_TRUE(Checked("chkAutoUpdate"));
    EXPECT_FALSE(Enabled("chkNoTitleSkip"));
    dialogs.Answer();
    Press("chkAutoUpdate");
    EXPECT_TRUE(Enabled("chkNoTitleSkip"));
    Close("cmdCancel");
  });
  EXPECT_EQ(Status(kModePanel), kAutomatic) << "as it was";
  EXPECT_TRUE(App().Mode().automatic);
}

TEST_F(OptionDialog, OpensTheModificationRulesForSettings) {
  folder.Write("a.txt", "a");
  OpenFolder();
  Use([this] {
    dialogs.Use([this](wxDialog& rules) {
      EXPECT_TRUE(SettleUntil([&rules] { return rules.IsShown(); }));
      EXPECT_EQ(FromWx(rules.GetName()), "frmModify");
      EXPECT_EQ(rules.GetParent(), &Dialog());
      auto* const ok = dynamic_cast<wxButton*>(wxWindow::FindWindowByName("cmdOK", &rules));
      EXPECT_EQ(FromWx(ok->GetLabel()), "OK");
      dynamic_cast<wxCheckBox*>(wxWindow::FindWindowByName("chkUpper", &rules))->SetValue(true);
      wxCommandEvent event(wxEVT_BUTTON, ok->GetId());
      event.SetEventObject(ok);
      ok->ProcessWindowEvent(event);
    });
    Press("cmdModifyOption");
    Close("cmdCancel");
  });
  EXPECT_TRUE(App().Options().modify.upper) << "the rules have been stored by their own OK";
  EXPECT_EQ(Names(), std::vector<std::string>({"a"})) << "and nothing has been executed";
}

TEST_F(OptionDialog, AnExtensionBoxLimitsItsTextToWhatSurvivesARestart) {
  Open(Options());
  Use([this] {
    Press("chkExtensionFilter");
    Press("chkExtensionEtc");
    auto& box = Find<wxTextCtrl>("txtExtensionEtc");
    box.SetValue(wxString('a', 125));
    box.SetFocus();
    box.SetInsertionPointEnd();
    for (int i = 0; i < 5; ++i) wxUIActionSimulator().Char('B');
    EXPECT_TRUE(SettleUntil([&box] { return box.GetValue().length() == 127; }));
    Settle();
    EXPECT_EQ(box.GetValue().length(), 127u);
    Close();
  });
}

TEST_F(OptionDialog, F1ShowsTheHelp) {
  opensForReal = true;
  Open(Options());
  Use([this] {
    dialogs.Answer();  // there is no help file
    wxUIActionSimulator().Char(WXK_F1);
    EXPECT_TRUE(Until([this] { return dialogs.AllShown(); }));
    const std::vector<Message> shown = dialogs.TakeShown();
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown.front().caption, "ヘルプの表示");
    Close();
  });
}

TEST_F(OptionDialog, AllTabsAreInView) {
  Open(Options());
  Use([this] {
    const auto& tabs = Find<wxNotebook>("TabStrip");
    // HitTest finds the last tab only where it is visible.
    bool seen = false;
    for (int x = 0; x < tabs.GetSize().x; x += 4) {
      seen = seen || tabs.HitTest(wxPoint(x, 12)) == static_cast<int>(tabs.GetPageCount()) - 1;
    }
    EXPECT_TRUE(seen);
    Close();
  });
}

}  // namespace
}  // namespace quillon::test
