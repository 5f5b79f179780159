#include <gtest/gtest.h>
#include <wx/display.h>
#include <wx/frame.h>
#include <wx/uiaction.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "controls/WxText.h"
#include "gui/DialogOverMain.h"
#include "gui/Dialogs.h"
#include "gui/MainWindow.h"
#include "gui/MenuKeys.h"
#include "gui/Settle.h"
#include "gui/SystemView.h"
#include "rename/window/frmModify.h"
#include "rename/window/frmModifyMenus.h"
#include "support/Rows.h"
#include "support/TempFolder.h"
#include "support/Wine.h"

namespace quillon {
namespace {

using test::Settle;
using test::SettleUntil;

struct Boxes final : MessageBoxes {
  std::vector<Message> shown;
  std::function<void()> then;  ///< called while the box is open

  bool Show(const Message& message) override {
    shown.push_back(message);
    if (then) then();
    return true;
  }
};

class ModifyDialog : public test::DialogOverMain<frmModify> {
 protected:
  void Make(OpenedFor purpose = OpenedFor::kExecute, bool regexAvailable = true) {
    dialog.reset();
    preview = std::make_unique<ModifyPreview>(list, rows, regex);
    dialog = std::make_unique<frmModify>(
        main, options, purpose, regexAvailable ? &regex : nullptr, boxes,
        [this](const OptionValues::Modify& given) {
          ++runs;
          ran = given;
          if (duringRun) duringRun();
        },
        PresetUse{presets}, purpose == OpenedFor::kExecute ? preview.get() : nullptr);
  }

  void Open(OpenedFor purpose = OpenedFor::kExecute, bool regexAvailable = true) {
    Make(purpose, regexAvailable);
    dialog->Show();
    EXPECT_TRUE(SettleUntil([this] { return dialog->IsActive(); }));
  }

  template <class Control>
  Control& Get(const std::string& name) {
    auto* const control = dynamic_cast<Control*>(wxWindow::FindWindowByName(name, dialog.get()));
    if (control == nullptr) throw std::runtime_error("no such control: " + name);
    return *control;
  }

  wxTextCtrl& Text(const std::string& name) { return Get<wxTextCtrl>(name); }
  void Type(const std::string& name, const std::string& text) { Text(name).SetValue(ToWx(text)); }
  std::string Typed(const std::string& name) { return FromWx(Text(name).GetValue()); }
  bool Checked(const std::string& name) { return Get<wxCheckBox>(name).GetValue(); }
  bool Enabled(const std::string& name) { return Get<wxWindow>(name).IsEnabled(); }

  void Check(const std::string& name, bool checked = true) {
    auto& box = Get<wxCheckBox>(name);
    box.SetValue(checked);
    wxCommandEvent event(wxEVT_CHECKBOX, box.GetId());
    event.SetEventObject(&box);
    event.SetInt(checked ? 1 : 0);
    box.ProcessWindowEvent(event);
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

  static std::string FocusName() {
    const wxWindow* const focus = wxWindow::FindFocus();
    return focus == nullptr ? "" : FromWx(focus->GetName());
  }

  bool FocusGoesTo(const std::string& name) {
    return SettleUntil([&] { return FocusName() == name; });
  }

  void Focus(const std::string& name) {
    Get<wxWindow>(name).SetFocus();
    EXPECT_TRUE(FocusGoesTo(name)) << name << ", not " << FocusName();
    Settle();
  }

  void Add(const std::string& name, bool checked = false) {
    FileItem row = test::RowFor((SystemPathStyle() == PathStyle::kWindows ? "C:\\m\\" : "/m/") +
                                std::to_string(list.Count()) + ".mid");
    row.renameName = name;
    row.checked = checked;
    list.Add(std::move(row));
  }

  std::string Label(const std::string& name) { return FromWx(Get<wxStaticText>(name).GetLabelText()); }
  bool LabelBecomes(const std::string& name, const std::string& text) {
    return SettleUntil([&] { return Label(name) == text; });
  }
  /// The rows of the preview: "old > new".
  std::vector<std::string> Preview() {
    auto& table = Get<wxWindow>("lvwPreview");
    std::vector<std::string> lines;
    for (int row = 0; row < test::NativeRowCount(table); ++row) {
      lines.push_back(test::NativeCell(table, row, 0) + " > " + test::NativeCell(table, row, 1));
    }
    return lines;
  }
  bool PreviewBecomes(const std::vector<std::string>& lines) {
    return SettleUntil([&] { return Preview() == lines; });
  }

  void Choose(const std::string& name) {
    auto& button = Get<wxRadioButton>(name);
    button.SetValue(true);
    wxCommandEvent event(wxEVT_RADIOBUTTON, button.GetId());
    event.SetEventObject(&button);
    button.ProcessWindowEvent(event);
  }

  void ChooseEntry(int entry) {
    wxCommandEvent event(wxEVT_MENU, entry);
    event.SetEventObject(dialog.get());
    dialog->ProcessWindowEvent(event);
  }

  FileList list;
  Rows rows = Rows::kAll;
  RegexLibrary regex;
  OptionValues options;
  OptionValues::Modify& rules = options.modify;
  test::TempFolder folder;
  Presets presets{folder.At("q.ini")};
  Boxes boxes;
  int runs = 0;
  OptionValues::Modify ran;  ///< in the last run
  std::function<void()> duringRun;
  std::unique_ptr<ModifyPreview> preview;
};

/// Every text different, both states of flags.
OptionValues::Modify FullRules() {
  OptionValues::Modify rules;
  rules.replaceInvalid = true;
  rules.invalidReplacement = "＿ & _";
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) {
    rules.rules[i] = {i % 2 == 1, "検索 &" + std::to_string(i), " 置換😀" + std::to_string(i)};
  }
  rules.method = FindMethod::kRegex;
  rules.ignoreCase = rules.narrow = rules.lower = true;
  return rules;
}

std::vector<std::string> Texts(const OptionValues::Modify& rules) {
  std::vector<std::string> texts = {rules.invalidReplacement};
  for (const ReplaceRule& rule : rules.rules) {
    texts.push_back(std::to_string(rule.active) + " [" + rule.find + "] [" + rule.replacement + "]");
  }
  return texts;
}

std::vector<bool> Flags(const OptionValues::Modify& rules) {
  return {rules.replaceInvalid, rules.method == FindMethod::kRegex,
          rules.ignoreCase,     rules.narrow,
          rules.wide,           rules.lower,
          rules.upper,          rules.proper,
          rules.keepDialogOpen};
}

void ExpectEqual(const OptionValues::Modify& left, const OptionValues::Modify& right) {
  EXPECT_EQ(Texts(left), Texts(right));
  EXPECT_EQ(Flags(left), Flags(right));
}

std::vector<std::string> Captions(const wxMenu& menu) {
  std::vector<std::string> captions;
  for (const wxMenuItem* item : menu.GetMenuItems()) captions.push_back(FromWx(item->GetItemLabel()));
  return captions;
}

TEST_F(ModifyDialog, HasTheCaptions) {
  Make();
  EXPECT_EQ(FromWx(dialog->GetTitle()), "リネーム名の編集");
  const std::pair<const char*, const char*> captions[] = {
      {"chkInjustice", "不正な文字はすべて置換する(&I)"},
      {"optFindCtrl_No", "通常検索(&N)"},
      {"optFindCtrl_S", "正規表現で検索(&S)"},
      {"chkIgnoreCase", "大文字小文字を無視(&C)"},
      {"chkNarrow", "全角を半角へ変換(&N)"},
      {"chkWide", "半角を全角へ変換(&W)"},
      {"chkLower", "大文字を小文字へ変換(&L)"},
      {"chkUpper", "小文字を大文字へ変換(&U)"},
      {"chkProper", "文字の先頭を大文字へ変換(&P)"},
      {"chkNonUnload", "実行後も閉じない(&O)"},
      {"mnuEdit", "編集(&E)"},
      {"mnuHelp", "ヘルプ(&H)"},
      {"cmdOK", "実行"},
      {"cmdCancel", "キャンセル"},
  };
  for (const auto& [name, caption] : captions) EXPECT_EQ(FromWx(Get<wxWindow>(name).GetLabel()), caption);
  Make(OpenedFor::kSettings);
  EXPECT_EQ(FromWx(Get<wxButton>("cmdOK").GetLabel()), "OK");
}

TEST_F(ModifyDialog, ShowsTheRules) {
  rules = FullRules();
  Make();
  EXPECT_TRUE(Checked("chkInjustice"));
  EXPECT_EQ(Typed("txtRevice"), "＿ & _");
  EXPECT_FALSE(Checked("chkReplace0"));
  EXPECT_TRUE(Checked("chkReplace3"));
  EXPECT_EQ(Typed("txtObject4"), "検索 &4");
  EXPECT_EQ(Typed("txtReplace0"), " 置換😀0");
  EXPECT_TRUE(Get<wxRadioButton>("optFindCtrl_S").GetValue());
  for (const char* on : {"chkIgnoreCase", "chkNarrow", "chkLower"}) EXPECT_TRUE(Checked(on)) << on;
  for (const char* off : {"chkWide", "chkUpper", "chkProper", "chkNonUnload"}) EXPECT_FALSE(Checked(off)) << off;
}

TEST_F(ModifyDialog, OkStoresWhatIsShownThenRunsWithTheDialogClosed) {
  const OptionValues::Modify before = FullRules();
  rules = before;
  Make();
  bool shownDuringRun = true;
  duringRun = [&] {
    shownDuringRun = dialog->IsShown() || dialog->IsModal();
    ExpectEqual(rules, before);
  };
  EXPECT_EQ(ShowModalAnd([this] { Click("cmdOK"); }), wxID_OK);
  EXPECT_EQ(runs, 1);
  EXPECT_FALSE(shownDuringRun);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(ModifyDialog, OkStoresEachControlInItsPlace) {
  Make();
  OptionValues::Modify expected;
  expected.replaceInvalid = true;
  expected.invalidReplacement = "?";
  expected.rules[0] = {true, " ", ""};
  expected.rules[4] = {false, "a\\b", "c"};
  expected.method = FindMethod::kRegex;
  expected.ignoreCase = expected.wide = expected.upper = expected.proper = true;
  ShowModalAnd([this] {
    Check("chkInjustice");
    Type("txtRevice", "?");
    Check("chkReplace0");
    Type("txtObject0", " ");
    Type("txtObject4", "a\\b");
    Type("txtReplace4", "c");
    Get<wxRadioButton>("optFindCtrl_S").SetValue(true);
    for (const char* name : {"chkIgnoreCase", "chkWide", "chkUpper", "chkProper"}) Check(name);
    Click("cmdOK");
  });
  ExpectEqual(rules, expected);
}

TEST_F(ModifyDialog, EachConversionIsStoredInItsPlace) {
  const std::pair<const char*, bool OptionValues::Modify::*> flags[] = {
      {"chkIgnoreCase", &OptionValues::Modify::ignoreCase},
      {"chkNarrow", &OptionValues::Modify::narrow},
      {"chkWide", &OptionValues::Modify::wide},
      {"chkLower", &OptionValues::Modify::lower},
      {"chkUpper", &OptionValues::Modify::upper},
      {"chkProper", &OptionValues::Modify::proper}};
  for (const auto& [name, flag] : flags) {
    rules = {};
    Make(OpenedFor::kSettings);
    const char* const checkBox = name;
    ShowModalAnd([this, checkBox] {
      Check(checkBox);
      Click("cmdOK");
    });
    OptionValues::Modify expected;
    expected.*flag = true;
    ExpectEqual(rules, expected);
    Make(OpenedFor::kSettings);
    EXPECT_TRUE(Checked(name)) << "and is shown again";
  }
}

TEST_F(ModifyDialog, CancelAndClosingChangeNothing) {
  const std::function<void()> ways[] = {[this] { Click("cmdCancel"); }, [this] { dialog->Close(); }};
  for (const auto& way : ways) {
    rules = FullRules();
    Make();
    const int answer = ShowModalAnd([&] {
      Type("txtObject1", "other");
      Check("chkProper");
      way();
    });
    EXPECT_EQ(answer, wxID_CANCEL);
    ExpectEqual(rules, FullRules());
    EXPECT_EQ(runs, 0);
  }
}

TEST_F(ModifyDialog, StaysOpenWhenTheUserWantsThat) {
  Open();
  Focus("chkUpper");
  bool shown = false;
  bool enabled = true;
  duringRun = [&] {
    shown = dialog->IsShown();
    enabled = dialog->IsEnabled();
    EXPECT_EQ(rules.keepDialogOpen, 1);
  };
  Check("chkNonUnload");
  Click("cmdOK");
  Click("cmdOK");
  EXPECT_EQ(runs, 2);
  EXPECT_TRUE(shown);
  EXPECT_FALSE(enabled) << "no second run can start from within the first";
  EXPECT_TRUE(dialog->IsShown());
  EXPECT_TRUE(dialog->IsEnabled());
  EXPECT_TRUE(FocusGoesTo("chkUpper")) << FocusName();
}

TEST_F(ModifyDialog, NothingRunsForTheSettings) {
  Make(OpenedFor::kSettings);
  ShowModalAnd([this] {
    Type("txtObject2", "x");
    Click("cmdOK");
  });
  EXPECT_EQ(rules.rules[2].find, "x");
  EXPECT_EQ(runs, 0);

  Make(OpenedFor::kSettings);
  EXPECT_EQ(ShowModalAnd([this] {
              Check("chkNonUnload");
              Click("cmdOK");
              EXPECT_TRUE(dialog->IsShown());
              Click("cmdCancel");
            }),
            wxID_CANCEL);
  EXPECT_EQ(rules.keepDialogOpen, 1) << "stored by OK";
  EXPECT_EQ(runs, 0);
}

TEST_F(ModifyDialog, TextBoxesFollowTheirCheckBoxes) {
  rules.rules[3].active = true;
  Make();
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) {
    EXPECT_EQ(Enabled("txtObject" + std::to_string(i)), i == 3);
    EXPECT_EQ(Enabled("txtReplace" + std::to_string(i)), i == 3);
  }
  EXPECT_FALSE(Enabled("txtRevice"));
  Check("chkInjustice");
  EXPECT_TRUE(Enabled("txtRevice"));
  Check("chkInjustice", false);
  EXPECT_FALSE(Enabled("txtRevice"));
  Check("chkReplace0");
  Check("chkReplace3", false);
  EXPECT_TRUE(Enabled("txtObject0"));
  EXPECT_TRUE(Enabled("txtReplace0"));
  EXPECT_FALSE(Enabled("txtObject3"));
  EXPECT_FALSE(Enabled("txtReplace3"));
}

TEST_F(ModifyDialog, RefusesACheckedRuleWithNothingToFind) {
  Open();
  Check("chkReplace1");
  Check("chkNonUnload");
  Click("cmdOK");
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(boxes.shown[0].text, "検索する文字列を指定してください\r\n左のチェックを外すとこの項目は無効になります");
  EXPECT_TRUE(FocusGoesTo("txtObject1")) << FocusName();
  EXPECT_EQ(runs, 0);
  EXPECT_EQ(rules.keepDialogOpen, 0) << "nothing is stored";
}

TEST_F(ModifyDialog, RefusesAnInvalidReplacementWithTheCaretBeforeIt) {
  Open();
  Check("chkReplace2");
  Type("txtObject2", "a");
  Type("txtReplace2", "日😀b?c");
  Focus("cmdOK");
  std::string focusDuringBox;
  boxes.then = [&] {
    FocusGoesTo("txtReplace2");
    focusDuringBox = FocusName();
  };
  Click("cmdOK");
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(boxes.shown[0].text,
            "置換する文字列に不正な文字が含まれています\r\n不正な文字には置換することが出来ません");
  EXPECT_EQ(focusDuringBox, "txtReplace2");
  Settle();
  EXPECT_EQ(FocusName(), "txtReplace2");
  const wxTextCtrl& box = Text("txtReplace2");
  EXPECT_EQ(box.GetInsertionPoint(), static_cast<long>(ToWx("日😀b").length()));
  EXPECT_EQ(box.GetStringSelection(), "") << "the focus does not select here";
  EXPECT_EQ(runs, 0);
}

TEST_F(ModifyDialog, RefusingARuleThatIsOffFocusesItsCheckBox) {
  Open();
  Type("txtReplace4", "a:b");
  Click("cmdOK");
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_TRUE(FocusGoesTo("chkReplace4")) << FocusName();
  EXPECT_EQ(Text("txtReplace4").GetInsertionPoint(), 1);
  EXPECT_EQ(runs, 0);
}

TEST_F(ModifyDialog, WithoutTheLibraryThePlainSearchIsShownAndRunAndTheChoiceKept) {
  rules.method = FindMethod::kRegex;
  Make(OpenedFor::kExecute, false);
  EXPECT_FALSE(Enabled("optFindCtrl_S"));
  EXPECT_FALSE(Get<wxRadioButton>("optFindCtrl_S").GetValue());
  EXPECT_TRUE(Get<wxRadioButton>("optFindCtrl_No").GetValue());
  ShowModalAnd([this] { Click("cmdOK"); });
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(ran.method, FindMethod::kText);
  EXPECT_EQ(rules.method, FindMethod::kRegex);

  Make(OpenedFor::kExecute, true);
  EXPECT_TRUE(Enabled("optFindCtrl_S"));
  ShowModalAnd([this] { Click("cmdOK"); });
  EXPECT_EQ(ran.method, FindMethod::kRegex);
}

TEST_F(ModifyDialog, TheFocusSelectsTheWholeTextOfARule) {
  rules.rules[0] = {true, "find me", "put this"};
  Open();
  for (const char* name : {"txtObject0", "txtReplace0"}) {
    Text(name).SetSelection(2, 2);
    Focus(name);
    EXPECT_EQ(FromWx(Text(name).GetStringSelection()), Typed(name));
  }
}

TEST_F(ModifyDialog, ComingBackToTheDialogKeepsTheSelection) {
  rules.rules[0] = {true, "find me", ""};
  Open();
  Focus("txtObject0");
  Text("txtObject0").SetSelection(2, 4);
  auto* other = new wxFrame(nullptr, wxID_ANY, "other");
  other->Show();
  other->Raise();
  EXPECT_TRUE(SettleUntil([&] { return other->IsActive() && !dialog->IsActive(); }));
  other->Destroy();
  dialog->Raise();
  EXPECT_TRUE(FocusGoesTo("txtObject0")) << FocusName();
  Settle();
  EXPECT_EQ(FromWx(Text("txtObject0").GetStringSelection()), "nd");
}

TEST_F(ModifyDialog, TheEditMenuWorksOnTheBoxThatHadTheFocus) {
  rules.rules[0] = {true, "abcdef", ""};
  Open();
  Focus("txtObject0");
  Text("txtObject0").SetSelection(1, 3);
  Focus("mnuEdit");
  ChooseEntry(kMnuCut);
  EXPECT_EQ(Typed("txtObject0"), "adef");
  Focus("txtReplace0");
  ChooseEntry(kMnuPaste);
  EXPECT_EQ(Typed("txtReplace0"), "bc");
  Focus("chkUpper");
  ChooseEntry(kMnuPaste);
  EXPECT_EQ(Typed("txtReplace0"), "bc") << "no box has the focus now";
  EXPECT_EQ(Typed("txtObject0"), "adef");
}

TEST_F(ModifyDialog, TheEditMenuCopies) {
  rules.rules[0] = {true, "copied text", ""};
  Open();
  Focus("txtObject0");
  Text("txtObject0").SetSelection(0, 6);
  ChooseEntry(kMnuCopy);
  EXPECT_EQ(Typed("txtObject0"), "copied text");
  Focus("txtReplace0");
  EXPECT_TRUE(MakeEditMenu(&Text("txtReplace0"))->FindItem(kMnuPaste)->IsEnabled());
  ChooseEntry(kMnuPaste);
  EXPECT_EQ(Typed("txtReplace0"), "copied");
}

TEST_F(ModifyDialog, ItsButtonsOpenTheMenus) {
  rules.rules[0] = {true, "abc", ""};
  Open();
  std::vector<std::string> captions;
  dialog->Bind(wxEVT_MENU_OPEN, [&](wxMenuEvent& event) {
    event.Skip();
    if (captions.empty()) captions = Captions(*event.GetMenu());
  });
  const auto open = [&](const char* button, std::vector<int> keyList) {
    captions.clear();
    Focus("txtObject0");
    const test::MenuKeys keys(std::move(keyList));
    Click(button);
    EXPECT_TRUE(SettleUntil([&] { return !keys.IsRunning() && !captions.empty(); })) << button;
    Settle();
    return captions;
  };
  EXPECT_EQ(open("mnuEdit", {WXK_ESCAPE}), Captions(*MakeEditMenu(&Text("txtObject0"))));
  const OptionValues::Modify before = rules;
  EXPECT_EQ(open("mnuHelp", {WXK_DOWN, WXK_RIGHT, WXK_RETURN}), Captions(*MakeHelpMenu()));
  EXPECT_EQ(Typed("txtObject0"), "abc") << "an entry of the help does nothing";
  EXPECT_TRUE(dialog->IsShown());
  ExpectEqual(rules, before);
  EXPECT_TRUE(FocusGoesTo("txtObject0")) << FocusName();
}

TEST_F(ModifyDialog, DeleteTakesTheSelectionOrTheNextCharacter) {
  rules.rules[0] = {true, "ab😀c", ""};
  Open();
  Focus("txtObject0");
  Text("txtObject0").SetSelection(0, 1);
  ChooseEntry(kMnuDelete);
  EXPECT_EQ(Typed("txtObject0"), "b😀c");
  Text("txtObject0").SetInsertionPoint(1);
  ChooseEntry(kMnuDelete);
  EXPECT_EQ(Typed("txtObject0"), "bc");
  Text("txtObject0").SetInsertionPointEnd();
  ChooseEntry(kMnuDelete);
  EXPECT_EQ(Typed("txtObject0"), "bc");
}

TEST_F(ModifyDialog, EnterExecutesAndEscapeCancels) {
  rules.rules[0] = {true, "a", "b"};
  Make();
  wxUIActionSimulator keys;
  const auto press = [&](int key) {
    Focus("txtObject0");
    keys.Char(key);
  };
  EXPECT_EQ(ShowModalAnd([&] { press(WXK_RETURN); }), wxID_OK);
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(ShowModalAnd([&] { press(WXK_ESCAPE); }), wxID_CANCEL);
  EXPECT_EQ(runs, 1);
}

TEST(ModifyMenus, ListTheSyntaxOfRegularExpressions) {
  using List = std::vector<std::string>;
  const std::unique_ptr<wxMenu> menu = MakeHelpMenu();
  EXPECT_EQ(Captions(*menu), (List{"制御文字(&C)", "特殊文字(&S)"}));
  const auto& items = menu->GetMenuItems();
  EXPECT_EQ(Captions(*items[0]->GetSubMenu()),
            (List{"\\   エスケープ文字", "^   行の最初にマッチ", ".   すべての文字にマッチ (改行を除く)", "|   選択",
                  "()  グループ化", "[]  文字クラス"}));
  EXPECT_EQ(Captions(*items[1]->GetSubMenu()),
            (List{"\\w  単語の構成文字 (英数字と \"_\") にマッチ", "\\W  単語の構成文字以外にマッチ",
                  "\\s  空白文字にマッチ", "\\S  空白文字以外にマッチ", "\\d  数字にマッチ", "\\D  数字以外にマッチ"}));
}

TEST_F(ModifyDialog, TheEditMenuUndoesWhatWasTyped) {
  rules.rules[0] = {true, "abc", ""};
  Open();
  Focus("txtObject0");
  wxUIActionSimulator keys;
  keys.Char('X');
  ASSERT_TRUE(SettleUntil([this] { return Typed("txtObject0") == "x"; })) << "typed over the selection";
  EXPECT_TRUE(MakeEditMenu(&Text("txtObject0"))->FindItem(kMnuUndo)->IsEnabled());
  ChooseEntry(kMnuUndo);
  EXPECT_EQ(Typed("txtObject0"), "abc");
}

TEST_F(ModifyDialog, TheEditMenuOffersWhatTheBoxCanDo) {
  rules.rules[0] = {true, "abc", ""};
  Open();
  Focus("txtObject0");
  const auto enabled = [](const wxTextCtrl& box, int entry) {
    return MakeEditMenu(&box)->FindItem(entry)->IsEnabled();
  };
  const wxTextCtrl& box = Text("txtObject0");
  EXPECT_FALSE(enabled(box, kMnuUndo));
  for (const int entry : {kMnuCut, kMnuCopy, kMnuDelete}) EXPECT_TRUE(enabled(box, entry)) << entry;
  Text("txtObject0").SetInsertionPoint(1);
  for (const int entry : {kMnuCut, kMnuCopy}) EXPECT_FALSE(enabled(box, entry)) << entry;
  EXPECT_TRUE(enabled(box, kMnuDelete));
  EXPECT_FALSE(enabled(Text("txtReplace0"), kMnuDelete)) << "empty";
  Type("txtObject1", "disabled");
  EXPECT_FALSE(enabled(Text("txtObject1"), kMnuDelete));
}

TEST(ModifyMenus, WithoutABoxNoEntryCanBeChosen) {
  const std::unique_ptr<wxMenu> menu = MakeEditMenu(nullptr);
  ASSERT_EQ(menu->GetMenuItemCount(), 5u);
  for (const wxMenuItem* item : menu->GetMenuItems()) EXPECT_FALSE(item->IsEnabled()) << FromWx(item->GetItemLabel());
}

TEST_F(ModifyDialog, ARunThatThrowsLeavesItUsable) {
  Open();
  Check("chkNonUnload");
  duringRun = [] { throw std::bad_alloc(); };
  test::Dialogs dialogs;
  dialogs.Answer();
  Click("cmdOK");
  EXPECT_TRUE(SettleUntil([&] { return dialogs.AllShown(); }));
  EXPECT_EQ(runs, 1);
  EXPECT_TRUE(dialog->IsEnabled());
  duringRun = {};
  Click("cmdOK");
  EXPECT_EQ(runs, 2);
}

TEST_F(ModifyDialog, ThePreviewShowsChangedRowsFirst) {
  for (const char* name : {"x", "a", "y", "ba"}) Add(name);
  rules.rules[0] = {true, "a", "c"};
  Open();
  EXPECT_TRUE(PreviewBecomes({"a > c", "ba > bc", "x > x", "y > y"}));
  EXPECT_EQ(Label("lblSummary"), "2 個の名前が変わります");
  EXPECT_EQ(list.Row(2).renameName, "a") << "nothing is changed";
}

TEST_F(ModifyDialog, ThePreviewIsForTheRowsOfTheCommand) {
  Add("a1");
  Add("a2", true);
  rows = Rows::kChecked;
  rules.rules[0] = {true, "a", "b"};
  Open();
  EXPECT_TRUE(PreviewBecomes({"a2 > b2"}));
}

TEST_F(ModifyDialog, ThePreviewFollowsEveryControl) {
  Add("Ａ?b");
  Open();
  EXPECT_TRUE(PreviewBecomes({"Ａ?b > Ａ?b"}));
  Check("chkInjustice");
  Type("txtRevice", "_");
  EXPECT_TRUE(PreviewBecomes({"Ａ?b > Ａ_b"}));
  Check("chkReplace2");
  Type("txtObject2", "B");
  Type("txtReplace2", "c");
  Check("chkIgnoreCase");
  EXPECT_TRUE(PreviewBecomes({"Ａ?b > Ａ_c"}));
  Type("txtObject2", "[bc]");
  EXPECT_TRUE(PreviewBecomes({"Ａ?b > Ａ_b"}));
  Choose("optFindCtrl_S");
  EXPECT_TRUE(PreviewBecomes({"Ａ?b > Ａ_c"}));
  Choose("optFindCtrl_No");
  EXPECT_TRUE(PreviewBecomes({"Ａ?b > Ａ_b"}));
  const std::pair<const char*, const char*> conversions[] = {
      {"chkNarrow", "A_b"}, {"chkWide", "Ａ＿ｂ"}, {"chkLower", "ａ_b"}, {"chkUpper", "Ａ_B"}, {"chkProper", "Ａ_b"}};
  for (const auto& [name, expected] : conversions) {
    Check(name);
    EXPECT_TRUE(PreviewBecomes({std::string("Ａ?b > ") + expected})) << name << ": " << Preview().at(0);
    Check(name, false);
  }
  EXPECT_EQ(runs, 0);
}

TEST_F(ModifyDialog, ThePreviewFollowsTheKeyboard) {
  Add("abc");
  Open();
  Focus("chkReplace0");
  wxUIActionSimulator keys;
  keys.Char(WXK_SPACE);
  EXPECT_TRUE(SettleUntil([this] { return Enabled("txtObject0"); }));
  keys.Char(WXK_TAB);
  EXPECT_TRUE(FocusGoesTo("txtObject0")) << FocusName();
  Settle();
  keys.Text("b");
  EXPECT_TRUE(PreviewBecomes({"abc > ac"}));
  keys.Char(WXK_TAB);
  EXPECT_TRUE(FocusGoesTo("txtReplace0")) << FocusName();
  Settle();
  keys.Text("x");
  EXPECT_TRUE(PreviewBecomes({"abc > axc"}));
}

TEST_F(ModifyDialog, AListOfManyRowsIsShownShortAndShrinksAgain) {
  for (int i = 0; i < 300; ++i) Add("a" + std::to_string(i));
  rules.rules[0] = {true, "a", "b"};
  Open();
  EXPECT_TRUE(LabelBecomes("lblSummary", "300 個の名前が変わります"));
  EXPECT_EQ(Preview().size(), 200u);
  EXPECT_EQ(Preview().back(), "a199 > b199");
  while (list.Count() > 2) list.RemoveWhere([](int index, const FileRow&) { return index > 2; });
  Type("txtReplace0", "c");
  EXPECT_TRUE(PreviewBecomes({"a0 > c0", "a1 > c1"}));
  Add("z");
  Type("txtReplace0", "d");
  EXPECT_TRUE(PreviewBecomes({"a0 > d0", "a1 > d1", "z > z"}));
}

TEST_F(ModifyDialog, NamesThatAreLeftAloneSaySoInThePreview) {
  for (int i = 0; i < 30; ++i) Add("a");
  rules.rules[0] = {true, "a", "aa"};
  Open();
  EXPECT_TRUE(LabelBecomes("lblSummary", "0 個の名前が変わります、30 個は編集されません"));
  EXPECT_EQ(Preview().at(0), "a > （終わらないか長すぎるため、編集されません）");
}

TEST_F(ModifyDialog, ARuleThatGrowsSaysSoAndOnceEndsIt) {
  for (int i = 0; i < 3; ++i) Add("a");
  rules.rules[1] = {true, "a", "aa"};
  Open();
  EXPECT_TRUE(LabelBecomes("lblGrowth", "規則 2 はリストの行数 (3) だけ繰り返されます"));
  EXPECT_EQ(Preview().at(0), "a > aaaaaaaa");
  EXPECT_FALSE(Checked("chkRunOnce"));
  Check("chkRunOnce");
  EXPECT_TRUE(LabelBecomes("lblGrowth", ""));
  EXPECT_EQ(Preview().at(0), "a > aa");
  EXPECT_FALSE(options.extra.runRulesOnce) << "not before OK";
  Check("chkNonUnload");
  Click("cmdOK");
  EXPECT_TRUE(options.extra.runRulesOnce);
  Check("chkRunOnce", false);
  Click("cmdOK");
  EXPECT_FALSE(options.extra.runRulesOnce);
}

TEST_F(ModifyDialog, OnceIsShownAndStoredOnlyByOk) {
  options.extra.runRulesOnce = true;
  for (const OpenedFor purpose : {OpenedFor::kExecute, OpenedFor::kSettings}) {
    Make(purpose);
    EXPECT_TRUE(Checked("chkRunOnce"));
    ShowModalAnd([this] {
      Check("chkRunOnce", false);
      Click("cmdCancel");
    });
    EXPECT_TRUE(options.extra.runRulesOnce);
  }
  Make(OpenedFor::kSettings);
  ShowModalAnd([this] {
    Check("chkRunOnce", false);
    Click("cmdOK");
  });
  EXPECT_FALSE(options.extra.runRulesOnce);
}

TEST_F(ModifyDialog, AnInvalidPatternSaysWhyAndRunsAsBefore) {
  Add("abc");
  rules.method = FindMethod::kRegex;
  rules.rules[1] = {true, "あ)", "x"};
  rules.rules[3] = {true, "*", "x"};
  Open();
  EXPECT_TRUE(LabelBecomes("lblProblem",
                           "規則 2: 「)」に対する「(」がありません（2 文字目） / "
                           "規則 4: 「*」「+」「?」「{ }」の前に、繰り返すものがありません（1 文字目）"))
      << Label("lblProblem");
  EXPECT_EQ(FromWx(Get<wxTextCtrl>("txtObject3").GetToolTipText()),
            "「*」「+」「?」「{ }」の前に、繰り返すものがありません（1 文字目）");
  EXPECT_EQ(Preview(), std::vector<std::string>({"abc > abc"}));
  Check("chkNonUnload");
  Click("cmdOK");
  EXPECT_EQ(runs, 1);
  EXPECT_TRUE(boxes.shown.empty());
  Type("txtObject1", "(あ)");
  EXPECT_TRUE(SettleUntil([this] { return Label("lblProblem").starts_with("規則 4: "); }));
  Check("chkReplace3", false);
  EXPECT_TRUE(LabelBecomes("lblProblem", "")) << "only active rules count";
}

TEST_F(ModifyDialog, WhatIsSaidAboutAControlIsReadAloudWithIt) {
  if (test::RunsUnderWine()) GTEST_SKIP() << "Wine does not keep names that programs give";
  for (int i = 0; i < 3; ++i) Add("a");
  rules.rules[1] = {true, "^)", "x"};
  rules.rules[2] = {true, "a", "aa"};
  rules.rules[3] = {true, "*", "x"};
  Open();
  const auto named = [this](const std::string& control, const std::string& name) {
    return SettleUntil([&] { return test::AccessibleName(Get<wxWindow>(control)) == name; });
  };
  EXPECT_TRUE(named("chkRunOnce", "一度だけ実行する 規則 3 はリストの行数 (3) だけ繰り返されます"));
  EXPECT_TRUE(named("txtObject1", "検索する文字列 2"));
  Choose("optFindCtrl_S");
  EXPECT_TRUE(named("txtObject1", "検索する文字列 2 「)」に対する「(」がありません（2 文字目）"));
  EXPECT_TRUE(
      named("txtObject3", "検索する文字列 4 「*」「+」「?」「{ }」の前に、繰り返すものがありません（1 文字目）"));
  EXPECT_TRUE(named("txtObject2", "検索する文字列 3"));
  Type("txtObject1", "(^)");
  EXPECT_TRUE(named("txtObject1", "検索する文字列 2"));
  Check("chkRunOnce");
  EXPECT_TRUE(named("chkRunOnce", "一度だけ実行する"));
}

TEST_F(ModifyDialog, PatternsAreOnlyCheckedForRegularExpressions) {
  rules.rules[0] = {true, "(", "x"};
  Open();
  Settle();
  EXPECT_EQ(Label("lblProblem"), "");
  Choose("optFindCtrl_S");
  EXPECT_TRUE(LabelBecomes("lblProblem", "規則 1: 「(」に対する「)」がありません"));
  Choose("optFindCtrl_No");
  EXPECT_TRUE(LabelBecomes("lblProblem", ""));
}

TEST_F(ModifyDialog, ForTheSettingsPatternsAreCheckedWithoutAPreview) {
  rules.method = FindMethod::kRegex;
  rules.rules[0] = {true, "[", "x"};
  Open(OpenedFor::kSettings);
  EXPECT_TRUE(LabelBecomes("lblProblem", "規則 1: 「[」に対する「]」がありません"));
  EXPECT_EQ(wxWindow::FindWindowByName("lvwPreview", dialog.get()), nullptr);
  EXPECT_EQ(wxWindow::FindWindowByName("lblSummary", dialog.get()), nullptr);
}

TEST_F(ModifyDialog, ThePreviewRestsDuringARunAndShowsWhatItLeft) {
  for (int i = 0; i < 30000; ++i) Add("a" + std::to_string(i));
  rules.method = FindMethod::kRegex;
  rules.rules[0] = {true, "^", "x"};  // names of 30,000 characters take long
  Open();
  Check("chkNonUnload");
  duringRun = [this] {
    const std::string summary = Label("lblSummary");
    EXPECT_TRUE(summary.starts_with("名前を調べています...")) << summary;
    test::Settle();
    EXPECT_EQ(Label("lblSummary"), summary);
    list.Clear();
    Add("a!");
  };
  EXPECT_TRUE(SettleUntil([this] { return Label("lblSummary").starts_with("名前を調べています..."); }));
  dialog->CallAfter([this] { Click("cmdOK"); });
  EXPECT_TRUE(SettleUntil([this] { return runs == 1; }));
  EXPECT_TRUE(PreviewBecomes({"a! > xa!"}));
}

TEST_F(ModifyDialog, AccessKeysReachThePreviewAndTheOption) {
  Add("a");
  Open();
  wxUIActionSimulator keys;
  const auto press = [&](int key) {
    Focus("txtRevice");
    keys.Char(key, wxMOD_ALT);
  };
  Check("chkInjustice");
  press('K');
  EXPECT_TRUE(SettleUntil([this] { return Checked("chkRunOnce"); }));
  press('V');
  EXPECT_TRUE(SettleUntil([this] { return Get<wxWindow>("lvwPreview").HasFocus(); })) << FocusName();
}

TEST_F(ModifyDialog, ThePreviewTakesTheRoomAndTheScreenHoldsTheDialog) {
  Open();
  const wxRect screen = wxDisplay(dialog.get()).GetClientArea();
  EXPECT_LE(dialog->GetSize().y, 740) << "a screen of 1024 x 768";
  EXPECT_LE(dialog->GetSize().y, screen.height);
  const int before = Get<wxWindow>("lvwPreview").GetSize().y;
  const int rule = Text("txtObject0").GetSize().y;
  dialog->SetSize(dialog->GetSize() + wxSize(0, 60));
  EXPECT_TRUE(SettleUntil([&] { return Get<wxWindow>("lvwPreview").GetSize().y == before + 60; }));
  EXPECT_EQ(Text("txtObject0").GetSize().y, rule);
}

}  // namespace
}  // namespace quillon
