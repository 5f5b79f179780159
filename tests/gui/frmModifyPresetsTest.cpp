#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/frame.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <deque>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "controls/WxText.h"
#include "gui/DialogOverMain.h"
#include "gui/Dialogs.h"
#include "gui/MenuKeys.h"
#include "gui/Settle.h"
#include "rename/BuiltInPresets.h"
#include "rename/window/frmModify.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

using test::MenuKeys;
using test::Settle;
using test::SettleUntil;
using testing::ElementsAre;
using Modify = OptionValues::Modify;

struct Boxes final : MessageBoxes {
  std::vector<std::string> shown;

  bool Show(const Message& message) override {
    shown.push_back(message.text);
    return true;
  }
};

Modify Rules(const std::string& find) {
  Modify rules;
  rules.rules[0] = {true, find, "b"};
  return rules;
}

/// The rules' dialog with its menu プリセット, which is used by the keyboard.
class PresetsOfModifyDialog : public test::DialogOverMain<frmModify> {
 protected:
  void Open(bool regexAvailable = true) {
    dialog = std::make_unique<frmModify>(
        main, options, OpenedFor::kSettings, regexAvailable ? &regex : nullptr, boxes,
        [](const Modify&) { ADD_FAILURE() << "nothing runs"; }, PresetUse{presets}, nullptr);
    dialog->Show();
    EXPECT_TRUE(SettleUntil([this] { return dialog->IsActive(); }));
  }

  template <class Control>
  Control& Get(const std::string& name) {
    auto* const control = dynamic_cast<Control*>(wxWindow::FindWindowByName(name, dialog.get()));
    if (control == nullptr) throw std::runtime_error("no such control: " + name);
    return *control;
  }

  static void Press(wxWindow& button) {
    wxCommandEvent event(wxEVT_BUTTON, button.GetId());
    event.SetEventObject(&button);
    button.ProcessWindowEvent(event);
  }

  /// Opens the menu and presses these keys in it.
  void Choose(std::vector<int> keyList) {
    const MenuKeys keys(std::move(keyList));
    Press(Get<wxButton>("mnuPreset"));
    EXPECT_TRUE(SettleUntil([&] { return !keys.IsRunning(); }));
    Settle();
  }

  /// The next dialog asks for a name; this one is typed over the suggested one.
  void TypeName(const std::string& name) {
    dialogs.Use([this, name](wxDialog& asked) {
      auto& box = dynamic_cast<wxTextCtrl&>(*wxWindow::FindWindowByName("txtPresetName", &asked));
      suggested = FromWx(box.GetValue());
      EXPECT_TRUE(SettleUntil([&] { return box.HasFocus(); }));
      box.ChangeValue(ToWx(name));
      wxUIActionSimulator().Char(name.empty() ? WXK_ESCAPE : WXK_RETURN);
    });
  }

  void Keep(const std::string& name, const Modify& kept) { EXPECT_EQ(presets.Save({name, kept}), std::nullopt); }

  std::string Find(int rule) { return FromWx(Get<wxTextCtrl>("txtObject" + std::to_string(rule)).GetValue()); }

  test::TempFolder folder;
  Presets presets{folder.At("q.ini")};
  RegexLibrary regex;
  OptionValues options;
  Modify& rules = options.modify;
  Boxes boxes;
  test::Dialogs dialogs;
  std::string suggested;
};

TEST_F(PresetsOfModifyDialog, OneOfTheUsersIsShownAndTheWayBackWorks) {
  Keep("a & b", Rules("1"));
  rules = Rules("mine");
  rules.rules[1] = {true, "x", ""};
  rules.keepDialogOpen = true;
  const Modify before = rules;
  Open();
  Get<wxTextCtrl>("txtObject1").SetFocus();
  Settle();
  Choose({WXK_DOWN, WXK_RETURN});
  EXPECT_EQ(Find(0), "1");
  EXPECT_EQ(Find(1), "");
  EXPECT_FALSE(Get<wxTextCtrl>("txtObject1").IsEnabled()) << "its check mark is gone";
  EXPECT_TRUE(Get<wxCheckBox>("chkNonUnload").GetValue()) << "the dialog's own habit";
  EXPECT_EQ(wxWindow::FindFocus(), &Get<wxButton>("mnuPreset")) << "the box that had it is disabled";
  EXPECT_TRUE(rules == before) << "nothing is stored before OK";
  Choose({'B'});
  EXPECT_EQ(Find(0), "mine");
  EXPECT_EQ(Find(1), "x");
  EXPECT_TRUE(Get<wxTextCtrl>("txtObject1").IsEnabled());
}

TEST_F(PresetsOfModifyDialog, OneOfTheProgramsIsStoredByOk) {
  Keep("a", Rules("1"));
  Open();
  Choose({WXK_DOWN, WXK_DOWN, WXK_RIGHT, WXK_DOWN, WXK_RETURN});
  EXPECT_EQ(Find(0), BuiltInPresets()[1].rules.rules[0].find);
  EXPECT_TRUE(Get<wxRadioButton>("optFindCtrl_S").GetValue());
  dialog->Hide();
  dialogs.Use([this](wxDialog&) { Press(Get<wxButton>("cmdOK")); });
  EXPECT_EQ(dialog->ShowModal(), wxID_OK);
  EXPECT_TRUE(rules == BuiltInPresets()[1].rules);
}

TEST_F(PresetsOfModifyDialog, TheRulesAreSavedUnderTheNameTyped) {
  rules = Rules("1");
  Open();
  TypeName("私の規則");
  Choose({'S'});
  EXPECT_THAT(presets.Names(), ElementsAre("私の規則"));
  EXPECT_EQ(*presets.Load("私の規則"), Rules("1"));
  EXPECT_EQ(suggested, "");
  TypeName("");
  Choose({'S'});
  EXPECT_EQ(suggested, "私の規則");
  EXPECT_THAT(presets.Names(), ElementsAre("私の規則")) << "cancelled";
  EXPECT_TRUE(dialog->IsShown());
}

TEST_F(PresetsOfModifyDialog, RulesThatOkRefusesAreNotSaved) {
  rules.rules[2].active = true;
  Open();
  Choose({'S'});
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_THAT(boxes.shown.front(), testing::StartsWith("検索する文字列を指定してください"));
  EXPECT_TRUE(SettleUntil([this] { return Get<wxTextCtrl>("txtObject2").HasFocus(); }));
  EXPECT_FALSE(folder.Exists("q.ini"));
}

TEST_F(PresetsOfModifyDialog, OneIsRenamedAndDeleted) {
  Keep("a", Rules("1"));
  Keep("b", Rules("2"));
  Open();
  TypeName("c");
  Choose({'R', WXK_DOWN, WXK_RETURN});
  EXPECT_EQ(suggested, "b");
  EXPECT_THAT(presets.Names(), ElementsAre("a", "c"));
  Choose({'D', WXK_RETURN});
  EXPECT_THAT(presets.Names(), ElementsAre("c"));
  EXPECT_THAT(boxes.shown, ElementsAre("このプリセットを削除しますか\r\na"));
}

TEST_F(PresetsOfModifyDialog, OneGoesToAFileAndComesBack) {
  Keep("音", Rules("1"));
  Open();
  const std::string path = folder.At("書き出し.ini");
  dialogs.ChooseFile(path);
  Choose({'E', WXK_RETURN});
  ASSERT_TRUE(folder.Exists("書き出し.ini"));
  EXPECT_EQ(presets.Remove("音"), std::nullopt);
  dialogs.ChooseFile(path);
  Choose({'I'});
  EXPECT_THAT(presets.Names(), ElementsAre("音"));
  EXPECT_EQ(*presets.Load("音"), Rules("1"));
  dialogs.ChooseFile("");
  Choose({'I'});
  EXPECT_THAT(boxes.shown, ElementsAre("1 個のプリセットを読み込みました"));
}

TEST_F(PresetsOfModifyDialog, TheMenuOffersWhatCanBeDone) {
  Open();
  const auto states = [this] {
    // The handler stays bound, so that it shares what it fills.
    const auto entries = std::make_shared<std::vector<std::pair<std::string, bool>>>();
    dialog->Bind(wxEVT_MENU_OPEN, [entries](wxMenuEvent& event) {
      event.Skip();
      if (!entries->empty()) return;
      for (const wxMenuItem* item : event.GetMenu()->GetMenuItems()) {
        if (!item->IsSeparator()) entries->emplace_back(FromWx(item->GetItemLabel()), item->IsEnabled());
      }
    });
    Choose({WXK_ESCAPE});
    return *entries;
  };
  using Entries = std::vector<std::pair<std::string, bool>>;
  const Entries always = {
      {"標準のプリセット(&P)", true}, {"直前の規則に戻す(&B)", false}, {"現在の規則を保存(&S)...", true}};
  Entries expected = {{"（保存したプリセットなし）", false}};
  expected.insert(expected.end(), always.begin(), always.end());
  const Entries without = {{"名前の変更(&R)", false},
                           {"削除(&D)", false},
                           {"読み込み（インポート）(&I)...", true},
                           {"書き出し（エクスポート）(&E)", false}};
  expected.insert(expected.end(), without.begin(), without.end());
  EXPECT_EQ(states(), expected);
  Keep("a & b", {});
  expected.front() = {"a && b", true};
  for (const std::size_t with : {4u, 5u, 7u}) expected[with].second = true;
  EXPECT_EQ(states(), expected);
}

TEST_F(PresetsOfModifyDialog, WithoutTheLibraryRegularExpressionsAreNotLoaded) {
  Keep("a", BuiltInPresets()[0].rules);
  Open(false);
  Choose({WXK_DOWN, WXK_RETURN});
  EXPECT_EQ(Find(0), "");
  EXPECT_THAT(boxes.shown, ElementsAre("正規表現が使えないため、このプリセットは使えません"));
}

}  // namespace
}  // namespace quillon
