#include <wx/button.h>
#include <wx/panel.h>
#include <wx/stattext.h>

#include "controls/WxText.h"
#include "gui/MainWindow.h"
#include "gui/Settle.h"
#include "gui/SystemView.h"

namespace quillon::test {
namespace {

class FindLineTest : public MainWindowTest {
 protected:
  void SetUp() override {
    // No temporary folder has this sign in its name.
    for (const char* const name : {"1=.txt", "2z.txt", "3=z.txt", "4v.txt", "5=.txt"}) folder.Write(name, name);
    OpenFolder();
    FocusList();
  }

  [[nodiscard]] wxWindow* Line() const { return wxWindow::FindWindowByName("fraFind", &Frame()); }
  [[nodiscard]] bool IsLineOpen() const { return Line() != nullptr && Line()->IsShown(); }
  [[nodiscard]] wxTextCtrl& FindBox() const { return Get<wxTextCtrl>("txtFind"); }
  [[nodiscard]] std::string Found() const { return FromWx(Get<wxStaticText>("lblFound").GetLabelText()); }
  [[nodiscard]] wxRect ListPlace() const { return Frame().List().Window().GetRect(); }

  void OpenLine() const {
    Key('F', wxMOD_CONTROL);
    ASSERT_TRUE(Until([this] { return IsLineOpen() && FindBox().HasFocus(); })) << FocusName();
  }
  /// The box's text contains `text` then.
  void Type(const std::string& text) const {
    for (const char c : text) Key(c);
  }
  [[nodiscard]] bool BecomesSelected(int row) const {
    return Until(
        [&] { return SelectedRows() == std::vector<int>{row} && NativeSelection(Frame().List()) == SelectedRows(); });
  }
};

TEST_F(FindLineTest, IsNotMadeWithoutNeed) {
  EXPECT_EQ(Line(), nullptr);
}

TEST_F(FindLineTest, OpensAboveTheListAndEscClosesIt) {
  const wxRect before = ListPlace();
  OpenLine();
  ASSERT_TRUE(Until([&] { return ListPlace().y > before.y; }));
  EXPECT_EQ(Line()->GetRect().y, 0);
  EXPECT_EQ(ListPlace().y, Line()->GetRect().GetBottom() + 1);
  EXPECT_EQ(ListPlace().GetBottom(), before.GetBottom());
  EXPECT_EQ(Line()->GetRect().width, before.width);
  for (const char* const name : {"txtFind", "cmdFindPrevious", "cmdFindNext", "lblFound", "cmdFindClose"}) {
    const wxRect place = Get<wxWindow>(name).GetRect();
    EXPECT_TRUE(wxRect(Line()->GetClientSize()).Contains(place)) << name;
    EXPECT_TRUE(name == std::string("txtFind") || place.width >= Get<wxWindow>(name).GetBestSize().x) << name;
  }
  Key(WXK_ESCAPE);
  EXPECT_TRUE(Until([&] { return !IsLineOpen() && ListPlace() == before; }));
  EXPECT_EQ(FocusName(), "lvwFiles");
}

TEST_F(FindLineTest, FindsWhileOneTypesAndKeepsTheFocus) {
  OpenLine();
  Type("=");
  EXPECT_TRUE(BecomesSelected(1));
  EXPECT_EQ(Found(), "1 / 3");
  Type("z");
  EXPECT_TRUE(BecomesSelected(3));
  EXPECT_EQ(Found(), "1 / 1");
  EXPECT_EQ(Text("txtAlterTitle"), "3=z");
  EXPECT_TRUE(FindBox().HasFocus()) << FocusName();
  EXPECT_EQ(Text("txtFind"), "=z");
  Type("z");
  EXPECT_TRUE(Until([this] { return Found() == "見つかりません"; })) << Found();
}

TEST_F(FindLineTest, EnterAndTheKeysGoOn) {
  OpenLine();
  Type("=");
  EXPECT_TRUE(BecomesSelected(1));
  Key(WXK_RETURN);
  EXPECT_TRUE(BecomesSelected(3));
  Key(WXK_RETURN, wxMOD_SHIFT);
  EXPECT_TRUE(BecomesSelected(1));
  Key(WXK_F3, wxMOD_SHIFT);
  EXPECT_TRUE(BecomesSelected(5));
  Key(WXK_F3);
  EXPECT_TRUE(BecomesSelected(1));
  EXPECT_TRUE(FindBox().HasFocus()) << FocusName();
  Key(WXK_ESCAPE);
  ASSERT_TRUE(Until([this] { return !IsLineOpen(); }));
  Key(WXK_F3);
  EXPECT_TRUE(BecomesSelected(3)) << "also while the line is closed, with the list focused";
  FocusBox();
  Key(WXK_F3);
  EXPECT_TRUE(BecomesSelected(5)) << "and with the rename box focused";
}

TEST_F(FindLineTest, TheButtonsDoTheSame) {
  OpenLine();
  Type("=");
  EXPECT_TRUE(BecomesSelected(1));
  ClickOn("cmdFindNext");
  EXPECT_TRUE(BecomesSelected(3));
  ClickOn("cmdFindPrevious");
  EXPECT_TRUE(BecomesSelected(1));
  ClickOn("cmdFindClose");
  EXPECT_TRUE(Until([this] { return !IsLineOpen(); }));
  EXPECT_EQ(FocusName(), "lvwFiles");
}

TEST_F(FindLineTest, EveryControlIsReachedByTabAndEscClosesFromThere) {
  OpenLine();
  Type("=");
  for (const char* const name : {"cmdFindPrevious", "cmdFindNext", "cmdFindClose", "lvwFiles"}) {
    Key(WXK_TAB);
    EXPECT_TRUE(Until([&] { return FocusName() == name; })) << name << ": " << FocusName();
  }
  OpenLine();
  EXPECT_EQ(FromWx(FindBox().GetStringSelection()), "=") << "what is typed next replaces it";
  Key(WXK_TAB);
  Key(WXK_TAB);
  Key(WXK_SPACE);
  EXPECT_TRUE(BecomesSelected(3));
  Key(WXK_ESCAPE);
  EXPECT_TRUE(Until([this] { return !IsLineOpen(); }));
}

TEST_F(FindLineTest, OpensFromTheRenameBoxToo) {
  FocusBox();
  OpenLine();
  EXPECT_EQ(Text("txtAlterTitle"), "1=");
}

TEST_F(FindLineTest, TheCountFollowsTheRows) {
  OpenLine();
  Type("=");
  ASSERT_TRUE(Until([this] { return Found() == "1 / 3"; }));
  List().SetRenameName(2, "new =");
  EXPECT_TRUE(Until([this] { return Found() == "1 / 4"; })) << Found();
  Run(Command::mnuThisListDel);
  EXPECT_TRUE(Until([this] { return Found() == "3 件"; })) << Found();
}

TEST_F(FindLineTest, TheBoxIsReadOnlyWhileACommandRunsAndTheCountFollowsThen) {
  OpenLine();
  Type("=");
  ASSERT_TRUE(Until([this] { return Found() == "1 / 3"; }));
  dialogs.Use([this](wxDialog& dialog) {
    EXPECT_FALSE(FindBox().IsEditable());
    List().SetRenameName(4, "=");
    Settle();
    EXPECT_EQ(Found(), "1 / 3");
    dialog.Close();
  });
  Run(Command::mnuAllModify);
  EXPECT_TRUE(FindBox().IsEditable());
  EXPECT_TRUE(Until([this] { return Found() == "1 / 4"; })) << Found();
}

TEST_F(FindLineTest, TellsAssistiveTechnologyWhatTheBoxIsFor) {
  OpenLine();
  EXPECT_THAT(AccessibleName(FindBox()), testing::AnyOf("検索する文字", "検索")) << "Wine only knows the label";
  EXPECT_EQ(AccessibleName(Get<wxWindow>("cmdFindNext")), "次へ");
  EXPECT_EQ(AccessibleName(Get<wxWindow>("cmdFindPrevious")), "前へ");
  EXPECT_EQ(AccessibleName(Get<wxWindow>("cmdFindClose")), "閉じる");
  Type("===");
  EXPECT_TRUE(Until([this] { return AccessibleName(Get<wxWindow>("lblFound")) == "見つかりません"; }));
}

using TypingInList = FindLineTest;

TEST_F(TypingInList, GoesToTheNextRowThatBeginsSo) {
  Type("4");
  EXPECT_TRUE(BecomesSelected(4));
  EXPECT_EQ(Text("txtAlterTitle"), "4v");
  EXPECT_EQ(FocusName(), "lvwFiles");
  Key(WXK_UP);
  EXPECT_TRUE(BecomesSelected(3)) << "the keyboard is at the row, too";
}

TEST_F(TypingInList, CharactersAddUp) {
  for (int row = 1; row <= 5; ++row) List().SetRenameName(row, row == 4 ? "m b" : "m" + std::to_string(row));
  Drain();
  SelectRow(1);
  ASSERT_EQ(CheckedRows().size(), 5u);
  Type("M B");
  EXPECT_TRUE(BecomesSelected(4));
  EXPECT_EQ(CheckedRows().size(), 5u) << "the blank belongs to the text";
  wxMilliSleep(1100);
  Key(WXK_SPACE);
  EXPECT_EQ(CheckedRows(), (std::vector<int>{1, 2, 3, 5})) << "alone it toggles the check mark";
  EXPECT_TRUE(BecomesSelected(4));
}

TEST_F(TypingInList, TheSameCharacterGoesOnFromRowToRow) {
  for (int row = 2; row <= 5; ++row) List().SetRenameName(row, row == 3 ? "b" : "a");
  Drain();
  SelectRow(1);
  for (const int row : {2, 4, 5, 2}) {
    Type("a");
    EXPECT_TRUE(BecomesSelected(row));
  }
}

TEST_F(TypingInList, LeavesTheRenameBoxAndTheListsEditorAlone) {
  SelectRow(1);
  Key(WXK_F2);
  ASSERT_TRUE(Until([this] { return Frame().List().IsEditing(); }));
  Type("4");
  Key(WXK_RETURN);
  EXPECT_TRUE(Until([this] { return Names()[0] == "4"; })) << Names()[0];
  EXPECT_TRUE(BecomesSelected(1));
  ClickBox();
  Type("4");
  EXPECT_TRUE(BecomesSelected(1));
}

}  // namespace
}  // namespace quillon::test
