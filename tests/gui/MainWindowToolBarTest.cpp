#include <wx/menu.h>
#include <wx/toolbar.h>

#include <utility>

#include "controls/WxText.h"
#include "gui/MainWindow.h"
#include "gui/MenuKeys.h"
#include "gui/SystemView.h"

/// The tool bar as the user operates it: its buttons and the menus beside them.
namespace quillon::test {
namespace {

using enum Command;

class ToolBarOfMainWindow : public MainWindowTest {
 protected:
  void SetUp() override {
    for (const char* name : {"a", "b"}) WriteMidi(std::string(name) + ".mid", "Title of " + std::string(name));
  }

  [[nodiscard]] wxToolBar& Bar() const { return *Frame().GetToolBar(); }
  [[nodiscard]] wxRect Place(Command command) const { return NativeToolRect(Bar(), frmMain::IdOf(command)); }

  void ClickTool(Command command) const {
    const wxRect place = Place(command);
    Click({place.x + place.height / 2, place.y + place.height / 2});
  }

  /// Opens the menu beside the button and chooses its first entry.
  void ChooseAll(Command command) const {
    const wxRect place = Place(command);
    const MenuKeys keys({WXK_DOWN, WXK_RETURN});
    Click({place.GetRight() - Bar().FromDIP(kArrow), place.y + place.height / 2});
    EXPECT_TRUE(Until([&] { return !keys.IsRunning() && dialogs.AllShown() && !App().IsRunning(); }));
    Drain();
  }

  static void Cancel(wxDialog& dialog) { dialog.EndModal(wxID_CANCEL); }

 private:
  static constexpr int kArrow = 6;  // DIP
};

TEST_F(ToolBarOfMainWindow, HasItsButtonsInOrderWithTheirNamesAndMenus) {
  Open(Options());
  std::vector<std::string> built;
  for (std::size_t i = 0; i < Bar().GetToolsCount(); ++i) {
    const wxToolBarToolBase& tool = *Bar().GetToolByPos(static_cast<int>(i));
    if (tool.IsSeparator()) {
      built.emplace_back("-");
      continue;
    }
    built.push_back(FromWx(tool.GetLabel()));
    EXPECT_EQ(tool.GetShortHelp(), tool.GetLabel());
    if (tool.GetDropdownMenu() == nullptr) continue;
    for (const wxMenuItem* item : tool.GetDropdownMenu()->GetMenuItems()) {
      built.push_back("  " + FromWx(item->GetItemLabel()));
    }
  }
  const std::vector<std::string> expected = {"フォルダ参照",
                                             "再読み込み",
                                             "ファイルに適応",
                                             "  すべてファイルに適応(&A)",
                                             "-",
                                             "タイトルにリネーム",
                                             "  すべてタイトルにリネーム(&R)",
                                             "リネーム名を編集",
                                             "  すべてリネーム名を編集(&A)",
                                             "ファイルを移動",
                                             "  すべてファイルを移動(&A)",
                                             "-",
                                             "オプション"};
  EXPECT_EQ(built, expected);
}

TEST_F(ToolBarOfMainWindow, EachButtonRunsItsCommand) {
  OpenFolder();
  dialogs.ChooseFolder("");
  ClickTool(mnuFolderReference);
  EXPECT_EQ(dialogs.Prompt(), "リネームするファイルが格納されているフォルダを選択してください");
  const std::pair<Command, const char*> questions[] = {
      {mnuReload, "再読み込みを行うと現在の編集内容はすべて失われます。実行しますか"},
      {mnuUpdate, "チェックアイテムのリネーム名をファイルに適応します\nこの操作は元に戻せません。実行しますか"},
      {mnuRename, "チェックアイテムのリネーム名を、それぞれのタイトルに変更します"}};
  for (const auto& [command, question] : questions) {
    dialogs.Answer(false);
    ClickTool(command);
    const std::vector<Message> shown = dialogs.TakeShown();
    ASSERT_EQ(shown.size(), 1u) << question;
    EXPECT_EQ(shown.front().text, question);
  }
  dialogs.ChooseFolder("");
  ClickTool(mnuMove);
  EXPECT_EQ(dialogs.Prompt(), "ファイルの移動先フォルダを選択してください");
  for (const auto& [command, name] : {std::pair{mnuModify, "frmModify"}, std::pair{mnuOption, "frmOption"}}) {
    std::string dialogName;
    dialogs.Use([&](wxDialog& dialog) {
      dialogName = FromWx(dialog.GetName());
      Cancel(dialog);
    });
    ClickTool(command);
    EXPECT_TRUE(Until([&] { return dialogs.AllShown() && !App().IsRunning(); }));
    EXPECT_EQ(dialogName, name);
  }
}

TEST_F(ToolBarOfMainWindow, EachMenuRunsTheCommandForAllRows) {
  OptionValues options = Options();
  options.modify.upper = true;
  OpenFolder(options);
  Run(mnuChkRem);  // the buttons' own commands are disabled now
  const std::pair<Command, const char*> questions[] = {
      {mnuUpdate, "全アイテムのリネーム名をファイルに適応します\nこの操作は元に戻せません。実行しますか"},
      {mnuRename, "全アイテムのリネーム名を、それぞれのタイトルに変更します"}};
  for (const auto& [command, question] : questions) {
    ClickTool(command);
    EXPECT_TRUE(dialogs.TakeShown().empty()) << question;
    dialogs.Answer(false);
    ChooseAll(command);
    const std::vector<Message> shown = dialogs.TakeShown();
    ASSERT_EQ(shown.size(), 1u) << question;
    EXPECT_EQ(shown.front().text, question);
  }
  dialogs.Use([](wxDialog& dialog) {
    wxCommandEvent click(wxEVT_BUTTON, wxID_OK);
    wxWindow::FindWindowByName("cmdOK", &dialog)->ProcessWindowEvent(click);
  });
  ChooseAll(mnuModify);
  EXPECT_EQ(Names(), (std::vector<std::string>{"A", "B"}));
  dialogs.ChooseFolder("");
  ChooseAll(mnuMove);
  EXPECT_EQ(dialogs.Prompt(), "ファイルの移動先フォルダを選択してください");
}

}  // namespace
}  // namespace quillon::test
