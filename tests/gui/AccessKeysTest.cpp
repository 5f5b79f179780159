#include <wx/dialog.h>
#include <wx/menu.h>
#include <wx/notebook.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <map>

#include "app/CommandTable.h"
#include "controls/WxText.h"
#include "dialogs/OptionTable.h"
#include "dialogs/window/frmDirShow.h"
#include "gui/MainWindow.h"
#include "rename/window/frmModifyMenus.h"

/// Alt and a letter lead to only one control or menu, and in a menu a letter chooses only one entry.
namespace quillon::test {
namespace {

using Texts = std::vector<std::string>;

/// The captions by their access keys.
class AccessKeys {
 public:
  void Add(const wxString& caption) {
    const auto place = caption.find('&');
    if (place == wxString::npos || place + 1 == caption.size()) return;
    keys_[FromWx(wxString(caption[place + 1]).Upper())].push_back(FromWx(caption));
  }

  void AddControls(const wxWindow& window) {
    for (const wxWindow* child : window.GetChildren()) {
      if (child->IsTopLevel() || (!child->IsShown() && !IsPage(*child))) continue;
      if (dynamic_cast<const wxTextCtrl*>(child) == nullptr) Add(child->GetLabel());
      AddControls(*child);
    }
  }

  [[nodiscard]] std::size_t Count() const { return keys_.size(); }

  /// The keys that several captions share, with these captions.
  [[nodiscard]] std::map<std::string, Texts> Shared() const {
    std::map<std::string, Texts> shared;
    for (const auto& [key, captions] : keys_) {
      if (captions.size() > 1) shared[key] = captions;
    }
    return shared;
  }

 private:
  static bool IsPage(const wxWindow& window) { return dynamic_cast<const wxNotebook*>(window.GetParent()) != nullptr; }

  std::map<std::string, Texts> keys_;
};

const std::map<std::string, Texts> kNone;

void ExpectUnique(const wxMenu& menu, const std::string& name) {
  AccessKeys keys;
  for (const wxMenuItem* item : menu.GetMenuItems()) {
    keys.Add(item->GetItemLabel());
    if (item->GetSubMenu() != nullptr) ExpectUnique(*item->GetSubMenu(), name + "/" + FromWx(item->GetItemLabelText()));
  }
  EXPECT_EQ(keys.Shared(), kNone) << name;
}

void ExpectUnique(const wxMenuBar& bar) {
  for (std::size_t i = 0; i < bar.GetMenuCount(); ++i) ExpectUnique(*bar.GetMenu(i), FromWx(bar.GetMenuLabel(i)));
}

class AccessKeysOfWindows : public MainWindowTest {
 protected:
  void SetUp() override {
    WriteMidi("a.mid", "Title");
    OpenFolder();
  }

  /// The access keys of the dialog that the command opens.
  [[nodiscard]] AccessKeys KeysOf(Command command, const std::function<void(wxDialog&)>& prepare = {}) {
    AccessKeys keys;
    dialogs.Use([&](wxDialog& dialog) {
      if (prepare) prepare(dialog);
      keys.AddControls(dialog);
      dialog.Close();
    });
    Run(command);
    EXPECT_TRUE(Until([this] { return dialogs.AllShown() && !App().IsRunning(); }));
    return keys;
  }
};

TEST_F(AccessKeysOfWindows, AreUniqueInTheMainWindow) {
  AccessKeys keys;
  keys.AddControls(Frame());
  const wxMenuBar& bar = *Frame().GetMenuBar();
  for (std::size_t i = 0; i < bar.GetMenuCount(); ++i) keys.Add(bar.GetMenuLabel(i));
  EXPECT_EQ(keys.Count(), bar.GetMenuCount() + 1);
  EXPECT_EQ(keys.Shared(), kNone);
  ExpectUnique(bar);
  AccessKeys rowMenu;
  for (const Command command : RowMenuCommands()) rowMenu.Add(ToWx(EntryOf(command).caption));
  EXPECT_EQ(rowMenu.Shared(), kNone);
}

TEST_F(AccessKeysOfWindows, AreUniqueOnEachPageOfTheOptions) {
  std::vector<AccessKeys> pages;
  (void)KeysOf(Command::mnuOption, [&](wxDialog& dialog) {
    const auto& tabs = dynamic_cast<wxNotebook&>(*wxWindow::FindWindowByName("TabStrip", &dialog));
    AccessKeys outside;
    for (std::size_t i = 0; i < tabs.GetPageCount(); ++i) {
      pages.emplace_back();
      pages.back().AddControls(*tabs.GetPage(i));
      for (const wxWindow* child : dialog.GetChildren()) {
        if (child != &tabs) pages.back().Add(child->GetLabel());
      }
    }
  });
  ASSERT_EQ(pages.size(), OptionPages().size());
  for (std::size_t i = 0; i < pages.size(); ++i) {
    EXPECT_GT(pages[i].Count(), 0u) << OptionPages()[i].caption;
    EXPECT_EQ(pages[i].Shared(), kNone) << OptionPages()[i].caption;
  }
}

TEST_F(AccessKeysOfWindows, AreUniqueInTheModifyDialogExceptForTwoThatAreGiven) {
  const AccessKeys keys = KeysOf(Command::mnuModify);
  EXPECT_EQ(keys.Count(), 19u);
  EXPECT_EQ(keys.Shared(), (std::map<std::string, Texts>{{"N", {"通常検索(&N)", "全角を半角へ変換(&N)"}}}));
  ExpectUnique(*MakeEditMenu(nullptr), "mnuEdit");
  ExpectUnique(*MakeHelpMenu(), "mnuHelp");
}

TEST_F(AccessKeysOfWindows, AreUniqueInTheOtherWindows) {
  const AccessKeys pattern = KeysOf(Command::mnuPattern);
  EXPECT_EQ(pattern.Count(), 5u);
  EXPECT_EQ(pattern.Shared(), kNone);
  EXPECT_EQ(KeysOf(Command::mnuVarInfo).Shared(), kNone);
  AccessKeys search;
  search.AddControls(Frame().Search().Window());
  EXPECT_EQ(search.Shared(), kNone);
  Run(Command::mnuDirShow);
  auto* const folders = dynamic_cast<frmDirShow*>(wxWindow::FindWindowByName("frmDirShow"));
  ASSERT_NE(folders, nullptr);
  AccessKeys keys;
  keys.AddControls(*folders);
  if (const wxMenuBar* const bar = folders->GetMenuBar()) {
    for (std::size_t i = 0; i < bar->GetMenuCount(); ++i) keys.Add(bar->GetMenuLabel(i));
    ExpectUnique(*bar);
  }
  EXPECT_EQ(keys.Shared(), kNone);
}

}  // namespace
}  // namespace quillon::test
