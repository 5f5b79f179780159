#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/menu.h>
#include <wx/uiaction.h>
#include <wx/weakref.h>

#include <string>
#include <utility>
#include <vector>

#include "controls/WxText.h"
#include "dialogs/window/frmDirShow.h"
#include "gui/Settle.h"
#include "support/Rows.h"

namespace quillon {
namespace {

using test::Settle;
using test::SettleUntil;
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

/// A folder of this name, as this system writes it.
std::string Folder(const std::string& name) {
  return SystemPathStyle() == PathStyle::kWindows ? "C:\\" + name + "\\" : "/" + name + "/";
}

class FolderList : public testing::Test {
 protected:
  void SetUp() override {
    main->Show();
    ASSERT_TRUE(SettleUntil([this] { return main->IsActive(); }));
  }

  void TearDown() override {
    main->Destroy();
    Settle();
  }

  void Add(const std::string& folder) {
    list.Add(test::RowFor(Folder(folder) + std::to_string(list.Count()) + ".mid"));
  }
  void RemoveRow(int row) {
    list.RemoveWhere([row](int index, const FileRow&) { return index == row; });
  }

  void Open() {
    window = new frmDirShow(main, list, [this](const std::string& folder, wxWindow& owner) {
      opened.push_back(folder);
      EXPECT_EQ(&owner, window.get());
    });
    window->Show();
    ASSERT_TRUE(SettleUntil([this] { return window->IsActive() && Box().HasFocus(); }));
    Settle();
  }

  wxListBox& Box() { return *dynamic_cast<wxListBox*>(wxWindow::FindWindowByName("lstDirShow", window)); }

  Texts Shown() {
    Texts shown;
    for (const wxString& text : Box().GetStrings()) shown.push_back(FromWx(text));
    return shown;
  }

  std::string Selected() { return FromWx(Box().GetStringSelection()); }

  /// The folders opened since the last call, after everything typed has been handled.
  Texts Opened() {
    Settle();
    return std::exchange(opened, {});
  }

  bool IsOpen() const { return window && !window->IsBeingDeleted(); }

  void Choose(const char* menu, const char* entry) {
    const int id = window->GetMenuBar()->FindMenuItem(ToWx(menu), ToWx(entry));
    ASSERT_NE(id, wxNOT_FOUND) << entry;
    wxCommandEvent event(wxEVT_MENU, id);
    event.SetEventObject(window);
    window->ProcessWindowEvent(event);
  }

  FileList list;
  wxFrame* main = new wxFrame(nullptr, wxID_ANY, "main", wxPoint(20, 20));
  wxWeakRef<frmDirShow> window;
  Texts opened;
  wxUIActionSimulator hand;
};

TEST_F(FolderList, ListsEachFolderOnceAndSelectsTheFirst) {
  for (const char* folder : {"z & y", "音楽", "z & y", "音楽", "a"}) Add(folder);
  Open();
  EXPECT_EQ(FromWx(window->GetTitle()), "フォルダ一覧");
  EXPECT_THAT(Shown(), ElementsAre(Folder("z & y"), Folder("音楽"), Folder("a")));
  EXPECT_EQ(Selected(), Folder("z & y"));
}

TEST_F(FolderList, HasItsMenus) {
  Open();
  Texts captions;
  for (std::size_t i = 0; i < window->GetMenuBar()->GetMenuCount(); ++i) {
    captions.push_back(FromWx(window->GetMenuBar()->GetMenuLabel(i)));
    for (const wxMenuItem* item : window->GetMenuBar()->GetMenu(i)->GetMenuItems()) {
      if (!item->IsSeparator()) captions.push_back(FromWx(item->GetItemLabel()));
    }
  }
  EXPECT_THAT(captions,
              ElementsAre("フォルダ(&F)", "開く(&O)\tCtrl+O", "閉じる(&C)\tCtrl+W", "表示(&V)", "更新(&R)\tF5"));
}

TEST_F(FolderList, FloatsOverTheMainWindow) {
  Open();
  EXPECT_EQ(window->GetParent(), main);
  EXPECT_TRUE(window->HasFlag(wxFRAME_FLOAT_ON_PARENT));
  EXPECT_FALSE(window->HasFlag(wxSTAY_ON_TOP));
  EXPECT_TRUE(main->IsEnabled()) << "not modal";
}

TEST_F(FolderList, IsAlwaysOnTopWhenTheMainWindowIs) {
  main->SetWindowStyleFlag(main->GetWindowStyleFlag() | wxSTAY_ON_TOP);
  Open();
  EXPECT_TRUE(window->HasFlag(wxSTAY_ON_TOP));
}

TEST_F(FolderList, ADoubleClickOpensAFolder) {
  for (const char* folder : {"a", "b", "c"}) Add(folder);
  Open();
  const int line = Box().GetCharHeight();
  hand.MouseMove(Box().ClientToScreen(wxPoint(3 * line, line / 2)));
  Settle();
  hand.MouseDblClick();
  EXPECT_THAT(Opened(), ElementsAre(Folder("a")));
  EXPECT_TRUE(IsOpen());
}

TEST_F(FolderList, EnterOpensTheSelectedFolder) {
  for (const char* folder : {"a", "b", "c"}) Add(folder);
  Open();
  hand.Char(WXK_DOWN);
  hand.Char(WXK_RETURN);
  EXPECT_THAT(Opened(), ElementsAre(Folder("b")));
  hand.Char('O', wxMOD_CONTROL);
  EXPECT_THAT(Opened(), ElementsAre(Folder("b")));
  Choose("フォルダ(&F)", "開く(&O)");
  EXPECT_THAT(Opened(), ElementsAre(Folder("b")));
}

TEST_F(FolderList, AnEmptyListOpensNothing) {
  Open();
  EXPECT_THAT(Shown(), IsEmpty());
  hand.Char(WXK_RETURN);
  hand.MouseMove(Box().ClientToScreen(wxPoint(20, 20)));
  hand.MouseDblClick();
  Choose("フォルダ(&F)", "開く(&O)");
  EXPECT_THAT(Opened(), IsEmpty());
  Choose("表示(&V)", "更新(&R)");
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(FolderList, ShowsChangesOnlyWhenAskedTo) {
  Add("a");
  Open();
  Add("b");
  Settle();
  EXPECT_THAT(Shown(), ElementsAre(Folder("a")));
  hand.Char(WXK_F5);
  EXPECT_TRUE(SettleUntil([this] { return Shown() == Texts{Folder("a"), Folder("b")}; }));
  Add("c");
  Choose("表示(&V)", "更新(&R)");
  EXPECT_THAT(Shown(), ElementsAre(Folder("a"), Folder("b"), Folder("c")));
}

TEST_F(FolderList, KeepsTheSelectedFolderWhenReloaded) {
  for (const char* folder : {"a", "b", "c"}) Add(folder);
  Open();
  Box().SetSelection(2);
  RemoveRow(1);
  Choose("表示(&V)", "更新(&R)");
  EXPECT_THAT(Shown(), ElementsAre(Folder("b"), Folder("c")));
  EXPECT_EQ(Selected(), Folder("c"));
  RemoveRow(2);
  Choose("表示(&V)", "更新(&R)");
  EXPECT_EQ(Selected(), Folder("b")) << "what is left";
  RemoveRow(1);
  Choose("表示(&V)", "更新(&R)");
  EXPECT_THAT(Shown(), IsEmpty());
  Add("d");
  Choose("表示(&V)", "更新(&R)");
  EXPECT_EQ(Selected(), Folder("d"));
}

TEST_F(FolderList, TheListFillsTheWindowInEverySize) {
  Add("a");
  Open();
  for (const wxSize size : {wxSize(300, 200), wxSize(640, 400)}) {
    window->SetClientSize(size);
    EXPECT_TRUE(SettleUntil([&] { return Box().GetSize() == size; }))
        << Box().GetSize().x << " x " << Box().GetSize().y << " in " << size.x << " x " << size.y;
  }
}

TEST_F(FolderList, EscapeAndTheMenuCloseIt) {
  Open();
  hand.Char(WXK_ESCAPE);
  EXPECT_TRUE(SettleUntil([this] { return !IsOpen(); }));
  Open();
  hand.Char('W', wxMOD_CONTROL);
  EXPECT_TRUE(SettleUntil([this] { return !IsOpen(); }));
  Open();
  Choose("フォルダ(&F)", "閉じる(&C)");
  EXPECT_TRUE(SettleUntil([this] { return !IsOpen(); }));
}

TEST_F(FolderList, OpensFoldersWhoseNamesAreNotUtf8) {
  Add("\xFF");
  Add("\xFE");
  Open();
  EXPECT_THAT(Shown(), ElementsAre(Folder("\uFFFD"), Folder("\uFFFD"))) << "they look alike";
  hand.Char(WXK_RETURN);
  EXPECT_THAT(Opened(), ElementsAre(Folder("\xFF")));
  hand.Char(WXK_DOWN);
  hand.Char(WXK_RETURN);
  EXPECT_THAT(Opened(), ElementsAre(Folder("\xFE")));
  RemoveRow(1);
  Choose("表示(&V)", "更新(&R)");
  EXPECT_EQ(Box().GetSelection(), 0);
  hand.Char(WXK_RETURN);
  EXPECT_THAT(Opened(), ElementsAre(Folder("\xFE")));
}

}  // namespace
}  // namespace quillon
