#include <gtest/gtest.h>
#include <wx/frame.h>
#include <wx/uiaction.h>

#include "controls/TextBox.h"
#include "gui/Settle.h"

namespace quillon {
namespace {

using test::Settle;
using test::SettleUntil;

class TypedText : public testing::Test {
 protected:
  void SetUp() override {
    box->SetFocus();
    frame->Show();
    ASSERT_TRUE(SettleUntil([this] { return frame->IsActive() && box->HasFocus(); }));
    Settle();
  }

  void TearDown() override {
    frame->Destroy();
    Settle();
  }

  void Type(const char* text) {
    for (const char* c = text; *c != '\0'; ++c) {
      keys.Char(*c);
      Settle();
    }
  }

  wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "frame");
  TextBox* box = new TextBox(frame);
  wxUIActionSimulator keys;
};

TEST_F(TypedText, IsUndoneInOneStepAndBroughtBack) {
  box->ChangeValue("set");
  EXPECT_FALSE(box->CanUndo());
  box->SetInsertionPointEnd();
  Type("abc");
  ASSERT_EQ(box->GetValue(), "setabc");
  EXPECT_TRUE(box->CanUndo());
  box->Undo();
  EXPECT_EQ(box->GetValue(), "set");
  EXPECT_TRUE(box->CanUndo());
  box->Undo();
  EXPECT_EQ(box->GetValue(), "setabc");
}

TEST_F(TypedText, IsUndoneByItsKeys) {
  Type("ab");
  keys.Char('Z', wxMOD_CONTROL);
  EXPECT_TRUE(SettleUntil([this] { return box->GetValue().empty(); })) << box->GetValue();
  keys.Char('Z', wxMOD_CONTROL);
  EXPECT_TRUE(SettleUntil([this] { return box->GetValue() == "ab"; })) << box->GetValue();
}

TEST_F(TypedText, ComesBackAfterADeletion) {
  box->ChangeValue("abcdef");
  box->SetSelection(1, 5);
  keys.Char(WXK_DELETE);
  ASSERT_TRUE(SettleUntil([this] { return box->GetValue() == "af"; }));
  box->Undo();
  EXPECT_EQ(box->GetValue(), "abcdef");
}

TEST_F(TypedText, CannotBeUndoneAfterTheProgramSetsAnotherText) {
  Type("ab");
  box->ChangeValue("set");
  EXPECT_FALSE(box->CanUndo());
  box->Undo();
  EXPECT_EQ(box->GetValue(), "set");
}

}  // namespace
}  // namespace quillon
