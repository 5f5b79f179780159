#include <wx/utils.h>

#include <cstdlib>

#include "gui/MainWindow.h"
#include "gui/Settle.h"

/// Keys that belong to an input method. GTK's own entry of code points stands for one: Ctrl+Shift+U, digits, Enter.
namespace quillon::test {
namespace {

class InputMethodInMainWindow : public MainWindowTest {
 protected:
  void SetUp() override {
    const char* const module = std::getenv("GTK_IM_MODULE");
    ASSERT_TRUE(module != nullptr && std::string(module) == "gtk-im-context-simple") << "the test needs this module";
    for (const char* name : {"a", "b"}) WriteMidi(std::string(name) + ".mid", "Title");
    OpenFolder();
  }

  /// Begins to compose U+3042 and ends it with Enter.
  void Compose() const {
    Key('U', wxMOD_CONTROL | wxMOD_SHIFT);
    for (const char digit : {'3', '0', '4', '2'}) Key(digit);
    Key(WXK_RETURN);
  }
};

TEST_F(InputMethodInMainWindow, EnterEndsTheCompositionInTheRenameBox) {
  FocusBox();
  Compose();
  EXPECT_TRUE(Until([this] { return Text("txtAlterTitle") == "あ"; })) << Text("txtAlterTitle");
  EXPECT_EQ(SelectedRows(), std::vector<int>{1}) << "and does not go to the next row";
  EXPECT_EQ(Names(), (std::vector<std::string>{"あ", "b"}));
  Key(WXK_RETURN);
  EXPECT_EQ(SelectedRows(), std::vector<int>{2});
}

TEST_F(InputMethodInMainWindow, EnterAndEscEndTheCompositionInTheFindBox) {
  List().SetRenameName(1, "あ");
  List().SetRenameName(2, "あ");
  FocusList();
  Key('F', wxMOD_CONTROL);
  ASSERT_TRUE(Until([] { return FocusName() == "txtFind"; }));
  Compose();
  EXPECT_TRUE(Until([this] { return Text("txtFind") == "あ"; })) << Text("txtFind");
  EXPECT_EQ(SelectedRows(), std::vector<int>{1}) << "and does not go to the next row";
  Key('U', wxMOD_CONTROL | wxMOD_SHIFT);
  Key('3');
  Key(WXK_ESCAPE);
  EXPECT_EQ(FocusName(), "txtFind") << "and does not close the line";
  EXPECT_EQ(Text("txtFind"), "あ");
  Key(WXK_RETURN);
  EXPECT_TRUE(Until([this] { return SelectedRows() == std::vector<int>{2}; }));
  Key(WXK_ESCAPE);
  EXPECT_EQ(FocusName(), "lvwFiles");
}

TEST_F(InputMethodInMainWindow, EnterEndsTheCompositionInTheListsEditor) {
  FocusList();
  Key(WXK_F2);
  ASSERT_TRUE(Until([this] { return Frame().List().IsEditing(); }));
  Compose();
  EXPECT_TRUE(Frame().List().IsEditing()) << "the name is still being typed";
  EXPECT_EQ(Names(), (std::vector<std::string>{"a", "b"}));
  Key(WXK_RETURN);
  EXPECT_TRUE(Until([this] { return Names()[0] == "あ"; })) << Names()[0];
  EXPECT_FALSE(Frame().List().IsEditing());
}

}  // namespace
}  // namespace quillon::test
