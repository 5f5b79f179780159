#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/frame.h>
#include <wx/tooltip.h>
#include <wx/uiaction.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "controls/WxText.h"
#include "gui/DialogOverMain.h"
#include "gui/MainWindow.h"
#include "gui/Settle.h"
#include "pattern/PatternFields.h"
#include "pattern/window/frmPattern.h"
#include "support/MemoryFileSystem.h"
#include "support/Rows.h"

namespace quillon {
namespace {

using test::NativeCell;
using test::RenameNames;
using test::Settle;
using test::SettleUntil;
using Texts = std::vector<std::string>;

class PatternDialog : public test::DialogOverMain<frmPattern> {
 protected:
  void SetUp() override {
    DialogOverMain::SetUp();
    Add("1.mid", "さくら");
    Add("2.mid", "---");
    Add("3.mid", "a?b");
  }

  void Add(const std::string& name, const std::string& title) {
    const std::string path = (SystemPathStyle() == PathStyle::kWindows ? "C:\\m\\" : "/m/") + name;
    files.AddFile(path, name);
    FileItem row = test::RowFor(path);
    row.title = title;
    list.Add(row);
  }

  void Make() {
    dialog.reset();
    preview = std::make_unique<PatternPreview>(
        list, Rows::kAll, files, mode, [this] { return FactsFrom(files, list, Rows::kAll, TagSources::kStandard); });
    dialog = std::make_unique<frmPattern>(main, options, mode, *preview, [this] { ++helps; });
  }

  void Open() {
    Make();
    dialog->Show();
    EXPECT_TRUE(SettleUntil([this] { return dialog->IsActive(); }));
    Settle();
  }

  template <class Control>
  Control& Get(const std::string& name) {
    auto* const control = dynamic_cast<Control*>(wxWindow::FindWindowByName(name, dialog.get()));
    if (control == nullptr) throw std::runtime_error("no such control: " + name);
    return *control;
  }

  wxComboBox& Pattern() { return Get<wxComboBox>("cboPattern"); }
  std::string PatternText() { return FromWx(Pattern().GetValue()); }
  std::string Label(const std::string& name) { return FromWx(Get<wxStaticText>(name).GetLabelText()); }
  std::string Cell(int row, int column) { return NativeCell(Get<wxWindow>("lvwPreview"), row, column); }
  bool Summary(const std::string& text) {
    return SettleUntil([&] { return Label("lblSummary") == text; });
  }

  void Click(const std::string& name) {
    auto& button = Get<wxButton>(name);
    wxCommandEvent event(wxEVT_BUTTON, button.GetId());
    event.SetEventObject(&button);
    button.ProcessWindowEvent(event);
  }

  /// Shows the dialog until `act` has closed it.
  int ShowModalAnd(const std::function<void()>& act) {
    dialog->CallAfter(act);
    return dialog->ShowModal();
  }

  test::MemoryFileSystem files;
  FileList list;
  OptionValues options;
  ApplyMode mode;
  int helps = 0;
  std::unique_ptr<PatternPreview> preview;
};

TEST_F(PatternDialog, ShowsThePreviewWithItsProblems) {
  Open();
  EXPECT_EQ(PatternText(), "{title}");
  EXPECT_TRUE(Summary("2 個の名前が変わります、2 個に問題があります")) << Label("lblSummary");
  EXPECT_EQ(Cell(0, 0), "1.mid");
  EXPECT_EQ(Cell(0, 1), "さくら.mid");
  EXPECT_EQ(Cell(0, 2), "");
  EXPECT_EQ(Cell(1, 1), "");
  EXPECT_EQ(Cell(1, 2), "名前になる文字がないため、変更しません");
  EXPECT_EQ(Cell(2, 1), "a?b.mid");
  EXPECT_EQ(Cell(2, 2), "2 文字目の文字は、ファイル名に使えません");
}

TEST_F(PatternDialog, AccessKeysReachThePreview) {
  Open();
  wxUIActionSimulator().Char('V', wxMOD_ALT);
  EXPECT_TRUE(SettleUntil([this] { return Get<wxWindow>("lvwPreview").HasFocus(); }));
}

TEST_F(PatternDialog, ThePreviewFollowsEveryControl) {
  Open();
  Pattern().SetValue(ToWx("{n}x{title|none}"));
  EXPECT_TRUE(Summary("3 個の名前が変わります、1 個に問題があります")) << Label("lblSummary");
  EXPECT_EQ(Cell(1, 1), "2xnone.mid");
  const auto spin = [this](const char* name, int value) {
    auto& control = Get<wxSpinCtrl>(name);
    control.SetValue(value);
    wxSpinEvent event(wxEVT_SPINCTRL, control.GetId());
    event.SetEventObject(&control);
    control.ProcessWindowEvent(event);
  };
  spin("spnStart", 5);
  spin("spnStep", 10);
  spin("spnDigits", 3);
  EXPECT_TRUE(SettleUntil([this] { return Cell(1, 1) == "015xnone.mid"; })) << Cell(1, 1);
  EXPECT_FALSE(Get<wxWindow>("txtReplacement").IsEnabled());
  const auto choose = [this](PatternInvalid choice) {
    auto& box = Get<wxChoice>("cboInvalid");
    box.SetSelection(static_cast<int>(choice));
    wxCommandEvent event(wxEVT_CHOICE, box.GetId());
    event.SetEventObject(&box);
    box.ProcessWindowEvent(event);
  };
  choose(PatternInvalid::kReplaced);
  EXPECT_TRUE(Get<wxWindow>("txtReplacement").IsEnabled());
  Get<wxTextCtrl>("txtReplacement").SetValue("_");
  EXPECT_TRUE(SettleUntil([this] { return Cell(2, 1) == "025xa_b.mid"; })) << Cell(2, 1);
  choose(PatternInvalid::kWide);
  EXPECT_TRUE(SettleUntil([this] { return Cell(2, 1) == "025xa？b.mid"; })) << Cell(2, 1);
  EXPECT_TRUE(Summary("3 個の名前が変わります"));
}

TEST_F(PatternDialog, TheButtonsInsertTheirFields) {
  for (const PatternFieldEntry& entry : PatternFieldEntries()) {
    Make();
    Pattern().SetValue("");
    const std::string name = std::string("cmdField_") + entry.name;
    EXPECT_EQ(FromWx(Get<wxButton>(name).GetLabel()), entry.caption);
    EXPECT_EQ(FromWx(Get<wxButton>(name).GetToolTipText()), entry.text);
    dialog->Show();
    EXPECT_TRUE(SettleUntil([this] { return dialog->IsActive(); }));
    Settle();
    Click(name);
    EXPECT_EQ(PatternText(), entry.text);
  }
}

TEST_F(PatternDialog, AFieldGoesToTheCaretAndReplacesTheSelection) {
  Open();
  EXPECT_EQ(wxWindow::FindFocus(), &Pattern());
  Click("cmdField_n");
  EXPECT_EQ(PatternText(), "{title}{n}") << "nothing is selected at first";
  Pattern().SetSelection(0, 7);
  Settle();
  wxUIActionSimulator mouse;
  const wxButton& artist = Get<wxButton>("cmdField_artist");
  mouse.MouseMove(artist.ClientToScreen(wxPoint(artist.GetSize().x / 2, artist.GetSize().y / 2)));
  Settle();
  mouse.MouseClick();
  EXPECT_TRUE(SettleUntil([this] { return PatternText() == "{artist}{n}"; })) << PatternText();
  EXPECT_TRUE(SettleUntil([this] { return wxWindow::FindFocus() == &Pattern(); }));
  EXPECT_EQ(Pattern().GetInsertionPoint(), 8);
  mouse.Char('X');
  EXPECT_TRUE(SettleUntil([this] { return PatternText().size() == 12; })) << PatternText();
  EXPECT_EQ(ToLower(PatternText()), "{artist}x{n}") << "typing goes on behind the field";
}

TEST_F(PatternDialog, NoFieldMakesThePatternLongerThanTheSettingsHold) {
  Make();
  Pattern().SetValue(wxString('x', 120));
  dialog->Show();
  EXPECT_TRUE(SettleUntil([this] { return dialog->IsActive(); }));
  Settle();
  Click("cmdField_title");
  EXPECT_EQ(PatternText().size(), 120u);
  Click("cmdField_n");
  EXPECT_EQ(PatternText().size(), 123u);
}

TEST_F(PatternDialog, TellsAnErrorAndOkPutsTheCaretThere) {
  Make();
  const int answer = ShowModalAnd([this] {
    Pattern().SetValue(ToWx("曲 {titel}"));
    EXPECT_TRUE(
        SettleUntil([this] { return Label("lblError") == "4 文字目： 「titel」というフィールドはありません"; }));
    EXPECT_EQ(Cell(0, 1), "");
    Click("cmdOK");
    EXPECT_TRUE(dialog->IsShown());
    EXPECT_TRUE(SettleUntil([this] { return wxWindow::FindFocus() == &Pattern(); }));
    EXPECT_EQ(Pattern().GetInsertionPoint(), 3);
    Pattern().SetValue("{title}");
    EXPECT_TRUE(SettleUntil([this] { return Label("lblError").empty(); }));
    Click("cmdCancel");
  });
  EXPECT_EQ(answer, wxID_CANCEL);
}

TEST_F(PatternDialog, RefusesAReplacementThatNoNameMayHold) {
  options.extra.patternInvalid = PatternInvalid::kReplaced;
  options.extra.patternReplacement = "a?";
  Make();
  ShowModalAnd([this] {
    Click("cmdOK");
    EXPECT_TRUE(dialog->IsShown());
    EXPECT_EQ(Label("lblError"), "置き換える文字列に、ファイル名に使えない文字があります");
    EXPECT_TRUE(SettleUntil([this] { return wxWindow::FindFocus() == &Get<wxTextCtrl>("txtReplacement"); }));
    EXPECT_EQ(Get<wxTextCtrl>("txtReplacement").GetInsertionPoint(), 1);
    Click("cmdCancel");
  });
}

TEST_F(PatternDialog, OkKeepsTheFormAndGivesTheRules) {
  options.extra.patterns[0] = "{name}";
  Make();
  const int answer = ShowModalAnd([this] {
    EXPECT_EQ(PatternText(), "{name}");
    Pattern().SetValue("{n} {name}");
    Get<wxSpinCtrl>("spnStart").SetValue(-3);
    Get<wxSpinCtrl>("spnStep").SetValue(2);
    Get<wxSpinCtrl>("spnDigits").SetValue(4);
    Get<wxChoice>("cboInvalid").SetSelection(static_cast<int>(PatternInvalid::kReplaced));
    Get<wxTextCtrl>("txtReplacement").SetValue("_");
    Click("cmdOK");
  });
  EXPECT_EQ(answer, wxID_OK);
  EXPECT_EQ(ShownPatternForm(options.extra), (PatternForm{"{n} {name}", -3, 2, 4, PatternInvalid::kReplaced, "_"}));
  EXPECT_EQ(options.extra.patterns[1], "{name}");
  EXPECT_EQ(dialog->Rules().start, -3);
  EXPECT_EQ(dialog->Rules().replacement, "_");

  Make();
  ShowModalAnd([this] {
    EXPECT_EQ(FromWx(Pattern().GetString(0)), "{n} {name}") << "the history, used last first";
    EXPECT_EQ(FromWx(Pattern().GetString(1)), "{name}");
    EXPECT_EQ(Pattern().GetCount(), 2u);
    Click("cmdCancel");
  });
}

TEST_F(PatternDialog, CancelAndClosingChangeNothing) {
  const std::function<void()> ways[] = {[this] { Click("cmdCancel"); }, [this] { dialog->Close(); }};
  for (const auto& way : ways) {
    options.extra.patterns[0] = "{name}";
    Make();
    const int answer = ShowModalAnd([&] {
      Pattern().SetValue("other");
      Get<wxSpinCtrl>("spnStart").SetValue(9);
      way();
    });
    EXPECT_EQ(answer, wxID_CANCEL);
    EXPECT_EQ(options.extra.patterns[0], "{name}");
    EXPECT_EQ(options.extra.patterns[1], "");
    EXPECT_EQ(options.extra.patternStart, 1);
    EXPECT_EQ(RenameNames(list), Texts({"1", "2", "3"}));
  }
}

TEST_F(PatternDialog, SaysThatFilesAreRenamedAtOnceInAutoApplyModeOnly) {
  Make();
  EXPECT_EQ(wxWindow::FindWindowByName("lblAutomatic", dialog.get()), nullptr);
  mode.automatic = true;
  Make();
  EXPECT_EQ(Label("lblAutomatic"), "自動適応モードのため、実行するとすぐにファイル名が変わります");
}

TEST_F(PatternDialog, F1OpensTheHelp) {
  Open();
  wxUIActionSimulator().Char(WXK_F1);
  EXPECT_TRUE(SettleUntil([this] { return helps == 1; }));
  EXPECT_TRUE(dialog->IsShown());
}

TEST_F(PatternDialog, StaysUsableWithAnyNumberOfRows) {
  for (int i = 4; i <= 20000; ++i) Add(std::to_string(i) + ".mid", "t" + std::to_string(i));
  Open();
  Pattern().SetValue("{n}");
  Settle();
  Pattern().SetValue("{n:06}");
  EXPECT_TRUE(Summary("20,000 個の名前が変わります")) << Label("lblSummary");
  EXPECT_EQ(Cell(19999, 1), "020000.mid");
}

class PatternInMainWindow : public test::MainWindowTest {};

TEST_F(PatternInMainWindow, IsUsedByTheKeyboardAlone) {
  folder.Write("a.txt", "a");
  folder.Write("b.txt", "b");
  OpenFolder();
  dialogs.Use([](wxDialog& dialog) {
    EXPECT_EQ(dialog.GetName(), "frmPattern");
    auto* const box = dynamic_cast<wxComboBox*>(wxWindow::FindWindowByName("cboPattern", &dialog));
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(SettleUntil([&] { return wxWindow::FindFocus() == box; }));
    Settle();
    wxUIActionSimulator keys;
    keys.Char(WXK_HOME);
    keys.Char(WXK_END, wxMOD_SHIFT);
    Settle();
    keys.Char('7');
    EXPECT_TRUE(SettleUntil([&] { return box->GetValue() == "7"; })) << box->GetValue();
    box->SetInsertionPointEnd();
    Settle();
    const auto& counter = dynamic_cast<wxButton&>(*wxWindow::FindWindowByName("cmdField_n", &dialog));
    for (int tabs = 0; tabs < 20 && wxWindow::FindFocus() != &counter; ++tabs) {
      keys.Char(WXK_TAB);
      Settle();
    }
    EXPECT_EQ(wxWindow::FindFocus(), &counter);
    keys.Char(WXK_SPACE);
    EXPECT_TRUE(SettleUntil([&] { return box->GetValue() == "7{n}"; })) << box->GetValue();
    keys.Char(WXK_RETURN);
  });
  Key('P', wxMOD_CONTROL | wxMOD_SHIFT);
  EXPECT_TRUE(test::Until([this] { return dialogs.AllShown() && !App().IsRunning(); }));
  EXPECT_EQ(Names(), Texts({"71", "72"}));
  EXPECT_TRUE(folder.Exists("a.txt")) << "in manual mode only the rename names change";
  EXPECT_EQ(App().Options().extra.patterns[0], "7{n}");
}

TEST_F(PatternInMainWindow, WorksOnTheCheckedRowsAndRenamesAtOnceInAutoApplyMode) {
  folder.Write("a.txt", "a");
  folder.Write("b.txt", "b");
  OptionValues options = Options();
  options.update.automatic = true;
  OpenFolder(options);
  List().SetChecked(1, false);
  dialogs.Use([](wxDialog& dialog) {
    auto* const box = dynamic_cast<wxComboBox*>(wxWindow::FindWindowByName("cboPattern", &dialog));
    ASSERT_NE(box, nullptr);
    box->SetValue("{n:02}-{name}");
    EXPECT_EQ(NativeCell(*wxWindow::FindWindowByName("lvwPreview", &dialog), 0, 0), "b.txt");
    wxCommandEvent event(wxEVT_BUTTON, wxID_OK);
    dialog.ProcessWindowEvent(event);
  });
  Run(Command::mnuPattern);
  EXPECT_TRUE(test::Until([this] { return dialogs.AllShown() && !App().IsRunning(); }));
  EXPECT_EQ(Names(), Texts({"a", "01-b"}));
  EXPECT_TRUE(folder.Exists("01-b.txt"));
}

}  // namespace
}  // namespace quillon
