#include <wx/button.h>
#include <wx/hyperlink.h>
#include <wx/listbox.h>
#include <wx/statbox.h>

#include <filesystem>

#include "base/Product.h"
#include "controls/WxText.h"
#include "dialogs/OptionTable.h"
#include "dialogs/window/frmDirShow.h"
#include "gui/MainWindow.h"
#include "gui/Settle.h"
#include "gui/SystemView.h"
#include "support/Wine.h"

/// Version box, folder list and options as the main window opens them.
namespace quillon::test {
namespace {

class DialogsOfMainWindow : public MainWindowTest {
 protected:
  [[nodiscard]] static frmDirShow* FolderList() {
    return dynamic_cast<frmDirShow*>(wxWindow::FindWindowByName("frmDirShow"));
  }

  [[nodiscard]] static int ListedFolders() {
    return static_cast<int>(dynamic_cast<wxListBox*>(wxWindow::FindWindowByName("lstDirShow"))->GetCount());
  }

  void ShowFolderList() const {
    Run(Command::mnuDirShow);
    ASSERT_TRUE(Until([] { return FolderList() != nullptr && FolderList()->IsShown(); }));
    Settle();
  }
};

TEST_F(DialogsOfMainWindow, TheVersionBoxKnowsTheStateOfTheProgram) {
  for (const bool front : {false, true}) {
    OptionValues options = Options();
    options.system.alwaysOnTop = front;
    Open(options);
    dialogs.Use([&](wxDialog& dialog) {
      EXPECT_EQ(FromWx(dialog.GetTitle()), "バージョン情報");
      EXPECT_TRUE(Until([&] { return IsAboveOthers(dialog) == front; })) << front;
      const auto* const text = dynamic_cast<wxTextCtrl*>(wxWindow::FindWindowByName("txtInfo", &dialog));
      const std::string last = App().RegexAvailable() ? "BREGEXP.DLL : TRUE" : "BREGEXP.DLL : FALSE";
      EXPECT_TRUE(FromWx(text->GetValue()).ends_with(last)) << FromWx(text->GetValue());
      dialog.Close();
    });
    Run(Command::mnuVarInfo);
    CloseWindow();
  }
}

TEST_F(DialogsOfMainWindow, TheAddressInTheVersionBoxIsOpenedByTheShell) {
  Open(Options());
  dialogs.Use([](wxDialog& dialog) {
    wxWindow* const link = wxWindow::FindWindowByName("txtURL", &dialog);
    wxHyperlinkEvent click(link, link->GetId(), ToWx(kProductUrl));
    link->ProcessWindowEvent(click);
    dialog.Close();
  });
  Run(Command::mnuVarInfo);
  EXPECT_EQ(opened, std::vector<std::string>{kProductUrl});
}

TEST_F(DialogsOfMainWindow, TheHelpFileIsOpenedByTheShell) {
  Open(Options());
  Run(Command::mnuShowHelp);
  EXPECT_EQ(opened, std::vector<std::string>{Paths().help});
}

TEST_F(DialogsOfMainWindow, RegularExpressionsCanBeChosenWhereTheLibraryIs) {
  folder.Write("a.txt", "a");
  OpenFolder();
  ASSERT_TRUE(App().RegexAvailable());
  const auto look = [](wxDialog& dialog) {
    EXPECT_EQ(FromWx(dialog.GetName()), "frmModify");
    EXPECT_TRUE(wxWindow::FindWindowByName("optFindCtrl_S", &dialog)->IsEnabled());
    dialog.EndModal(wxID_CANCEL);
  };
  dialogs.Use(look);
  Run(Command::mnuModify);
  dialogs.Use([](wxDialog& dialog) {
    wxWindow* const button = wxWindow::FindWindowByName("cmdModifyOption", &dialog);
    wxCommandEvent click(wxEVT_BUTTON, button->GetId());
    click.SetEventObject(button);
    button->ProcessWindowEvent(click);
    dialog.Close();
  });
  dialogs.Use(look);
  Run(Command::mnuOption);
}

TEST_F(DialogsOfMainWindow, ThePreviewOfTheRulesIsForTheRowsOfTheCommand) {
  folder.Write("a.txt", "a");
  folder.Write("b.txt", "b");
  OptionValues options = Options();
  options.modify.upper = true;
  OpenFolder(options);
  List().SetChecked(1, false);
  const auto expect = [this](Command command, const std::vector<std::string>& names) {
    dialogs.Use([&names](wxDialog& dialog) {
      wxWindow& table = *wxWindow::FindWindowByName("lvwPreview", &dialog);
      EXPECT_TRUE(SettleUntil([&] { return NativeRowCount(table) == static_cast<int>(names.size()); }));
      for (int row = 0; row < NativeRowCount(table); ++row)
        EXPECT_EQ(NativeCell(table, row, 1), names.at(static_cast<std::size_t>(row)));
      dialog.EndModal(wxID_CANCEL);
    });
    Run(command);
  };
  expect(Command::mnuModify, {"B"});
  expect(Command::mnuAllModify, {"A", "B"});
}

TEST_F(DialogsOfMainWindow, TheCommandReloadsTheFolderListInTheSameWindow) {
  folder.Write("a.txt", "a");
  folder.MakeFolder("inner");
  folder.Write("inner/b.txt", "b");
  OptionValues options = Options();
  options.list.searchSubfolders = true;
  OpenFolder(options);
  ShowFolderList();
  const frmDirShow* const first = FolderList();
  EXPECT_EQ(ListedFolders(), 2);
  dialogs.Answer();
  Run(Command::mnuAllClear);
  EXPECT_EQ(ListedFolders(), 2) << "it shows the list as it was";
  ShowFolderList();
  EXPECT_EQ(FolderList(), first);
  EXPECT_EQ(ListedFolders(), 0);
  FolderList()->Close();
  ASSERT_TRUE(Until([] { return FolderList() == nullptr; }));
  ShowFolderList();
}

TEST_F(DialogsOfMainWindow, TheFolderListIsOnTopWithTheMainWindow) {
  Open(Options());
  ShowFolderList();
  EXPECT_FALSE(FolderList()->HasFlag(wxSTAY_ON_TOP));
  for (const bool front : {true, false}) {
    Run(Command::mnuFront);
    EXPECT_TRUE(Until([&] { return IsAboveOthers(Frame()) == front; })) << front;
    EXPECT_EQ(FolderList()->HasFlag(wxSTAY_ON_TOP), front);
    if (!front && RunsUnderWine()) continue;  // Wine never removes this state from a window that has an owner
    EXPECT_TRUE(Until([&] { return IsAboveOthers(*FolderList()) == front; })) << front;
  }
}

TEST_F(DialogsOfMainWindow, AMissingFolderIsReported) {
  folder.MakeFolder("gone");
  folder.Write("gone/a.txt", "a");
  opensForReal = true;
  Open(Options(), {folder.At("gone")});
  ShowFolderList();
  std::filesystem::remove_all(ToPath(folder.At("gone")));
  dialogs.Answer();
  auto* const list = dynamic_cast<wxListBox*>(wxWindow::FindWindowByName("lstDirShow"));
  wxCommandEvent event(wxEVT_LISTBOX_DCLICK, list->GetId());
  event.SetEventObject(list);
  list->ProcessWindowEvent(event);
  const std::vector<Message> shown = dialogs.TakeShown();
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown.front().caption, "フォルダ一覧");
  EXPECT_TRUE(shown.front().text.starts_with("フォルダを開けませんでした\n")) << shown.front().text;
}

TEST_F(DialogsOfMainWindow, TheFolderListGoesWithTheMainWindow) {
  Open(Options());
  ShowFolderList();
  CloseWindow();
  EXPECT_TRUE(Until([] { return FolderList() == nullptr; }));
}

TEST_F(DialogsOfMainWindow, TheFramesOfTheOptionsHaveTheirCaptionsAndToolTips) {
  Open(Options());
  dialogs.Use([](wxDialog& dialog) {
    for (const OptionPage& page : OptionPages()) {
      for (const OptionFrame& frame : page.frames) {
        const wxWindow* const first = wxWindow::FindWindowByName(frame.controls.front().name, &dialog);
        const auto* const box = dynamic_cast<wxStaticBox*>(first->GetParent());
        ASSERT_NE(box, nullptr) << frame.caption;
        EXPECT_EQ(FromWx(box->GetLabelText()), frame.caption);
        EXPECT_EQ(FromWx(box->GetToolTipText()), frame.toolTip) << frame.caption;
      }
    }
    dialog.Close();
  });
  Run(Command::mnuOption);
}

TEST_F(DialogsOfMainWindow, TheMainWindowIsNotClosedUnderTheOptions) {
  Open(Options());
  dialogs.Use([this](wxDialog& dialog) {
    Frame().Close();
    Settle();
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(dialog.IsShown());
    dialog.Close();
  });
  Post(Command::mnuOption);
  EXPECT_TRUE(Until([this] { return !IsOpen(); })) << "but after them";
}

}  // namespace
}  // namespace quillon::test
