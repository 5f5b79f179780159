#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/collpane.h>
#include <wx/frame.h>
#include <wx/statbmp.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include "controls/MessageDialog.h"
#include "controls/WxMessageBoxes.h"
#include "controls/WxText.h"
#include "gui/Dialogs.h"
#include "gui/MainWindow.h"
#include "gui/Settle.h"
#include "gui/SystemView.h"

namespace quillon::test {
namespace {

const Message kYesNoQuestion = {"caption", "text", MessageIcon::kQuestion, MessageButtons::kYesNo};

template <class Control>
Control* Find(const wxWindow& dialog, const char* name) {
  return dynamic_cast<Control*>(wxWindow::FindWindowByName(name, &dialog));
}

void Press(const wxDialog& dialog, const char* name) {
  auto* const button = Find<wxButton>(dialog, name);
  ASSERT_NE(button, nullptr);
  wxCommandEvent event(wxEVT_BUTTON, button->GetId());
  button->ProcessWindowEvent(event);
}

TEST(MessageDialog, ShowsThePictureOfEveryKind) {
  std::vector<wxImage> seen;
  for (const MessageIcon icon :
       {MessageIcon::kExclamation, MessageIcon::kStop, MessageIcon::kInformation, MessageIcon::kQuestion}) {
    const MessageDialog dialog(nullptr, {{"caption", "text", icon}});
    const auto* const picture = Find<wxStaticBitmap>(dialog, "picIcon");
    ASSERT_NE(picture, nullptr);
    ASSERT_TRUE(picture->GetBitmap().IsOk());
    const wxImage image = picture->GetBitmap().ConvertToImage();
    EXPECT_GE(image.GetWidth(), 32);
    for (const wxImage& other : seen) {
      const bool same =
          other.GetSize() == image.GetSize() &&
          std::equal(image.GetData(), image.GetData() + image.GetWidth() * image.GetHeight() * 3, other.GetData());
      EXPECT_FALSE(same);
    }
    seen.push_back(image);
  }
}

TEST(MessageDialog, HasNoControlsThatTheMessageDoesNotAskFor) {
  const MessageDialog plain(nullptr, {{"caption", "text"}});
  EXPECT_EQ(Find<wxCheckBox>(plain, "chkTellNoMore"), nullptr);
  EXPECT_EQ(Find<wxCollapsiblePane>(plain, "paneDetails"), nullptr);
  const MessageDialog failure(nullptr, {{"caption", "text"}, "one\r\ntwo", true});
  ASSERT_NE(Find<wxCheckBox>(failure, "chkTellNoMore"), nullptr);
  EXPECT_EQ(FromWx(Find<wxCheckBox>(failure, "chkTellNoMore")->GetLabelText()), "以後のエラーを表示しない(S)");
  const auto* const pane = Find<wxCollapsiblePane>(failure, "paneDetails");
  ASSERT_NE(pane, nullptr);
  EXPECT_TRUE(pane->IsCollapsed());
  EXPECT_EQ(FromWx(Find<wxTextCtrl>(failure, "txtDetails")->GetValue()), "one\ntwo");
}

TEST(MessageDialog, ItsButtonsAndKeysAnswer) {
  struct Row {
    MessageButtons buttons;
    const char* pressed;  ///< null for Esc
    bool expected;
  };
  for (const Row& row :
       {Row{MessageButtons::kYesNo, "cmdYes", true}, Row{MessageButtons::kYesNo, "cmdNo", false},
        Row{MessageButtons::kYesNo, nullptr, false}, Row{MessageButtons::kOkCancel, "cmdOK", true},
        Row{MessageButtons::kOkCancel, "cmdCancel", false}, Row{MessageButtons::kOkCancel, nullptr, false},
        Row{MessageButtons::kOk, "cmdOK", true}, Row{MessageButtons::kOk, nullptr, true}}) {
    SCOPED_TRACE(row.pressed == nullptr ? "Esc" : row.pressed);
    Dialogs dialogs;
    dialogs.Use([&](wxDialog& dialog) {
      if (row.pressed != nullptr) return Press(dialog, row.pressed);
      dialog.Close();  // as its frame's button and Esc do
    });
    EXPECT_EQ(WxMessageBoxes(nullptr).Show({"caption", "text", MessageIcon::kQuestion, row.buttons}), row.expected);
  }
}

TEST(MessageDialog, ItsAccessKeysWork) {
  Dialogs dialogs;
  dialogs.Use([&](wxDialog& dialog) {
    EXPECT_TRUE(SettleUntil([&] { return dialog.IsActive(); }));
    auto* const pane = Find<wxCollapsiblePane>(dialog, "paneDetails");
    ASSERT_NE(pane, nullptr);
    wxUIActionSimulator().Char('D', wxMOD_ALT);
    EXPECT_TRUE(SettleUntil([&] { return pane->IsExpanded(); }));
    wxUIActionSimulator().Char('S', wxMOD_ALT);
    auto* const box = Find<wxCheckBox>(dialog, "chkTellNoMore");
    EXPECT_TRUE(SettleUntil([&] { return box->GetValue(); }));
    Press(dialog, "cmdOK");
  });
  EXPECT_EQ(WxMessageBoxes(nullptr).ShowFailure({{"caption", "text"}, "details", true}), FailureAnswer::kTellNoMore);
}

TEST(MessageDialog, AQuestionMayHaveAThirdAnswer) {
  struct Row {
    const char* pressed;  ///< null for Esc
    QuestionAnswer expected;
  };
  for (const Row& row : {Row{"cmdYes", QuestionAnswer::kYes}, Row{"cmdNo", QuestionAnswer::kNo},
                         Row{"cmdFurther", QuestionAnswer::kFurther}, Row{nullptr, QuestionAnswer::kNo}}) {
    Dialogs dialogs;
    dialogs.Use([&](wxDialog& dialog) {
      if (row.pressed != nullptr) return Press(dialog, row.pressed);
      dialog.Close();
    });
    EXPECT_EQ(WxMessageBoxes(nullptr).AskQuestion({kYesNoQuestion, "details", "third(&S)"}), row.expected);
  }
  const MessageDialog plain(nullptr, {kYesNoQuestion});
  EXPECT_EQ(Find<wxButton>(plain, "cmdFurther"), nullptr);
}

TEST(MessageDialog, TheThirdAnswerIsReachedByKeys) {
  for (const bool byAccessKey : {true, false}) {
    Dialogs dialogs;
    dialogs.Use([&](wxDialog& dialog) {
      EXPECT_TRUE(SettleUntil([&] { return dialog.IsActive(); }));
      auto* const button = Find<wxButton>(dialog, "cmdFurther");
      ASSERT_NE(button, nullptr);
      EXPECT_TRUE(SettleUntil([&] { return Find<wxButton>(dialog, "cmdYes")->HasFocus(); })) << "Enter means Yes";
      EXPECT_EQ(AccessibleName(*button).substr(0, 5), "third");
      if (byAccessKey) {
        wxUIActionSimulator().Char('S', wxMOD_ALT);
      } else {
        wxUIActionSimulator().Char(WXK_TAB, wxMOD_SHIFT);
        EXPECT_TRUE(SettleUntil([&] { return button->HasFocus(); }));
        wxUIActionSimulator().Char(WXK_SPACE);
      }
    });
    EXPECT_EQ(WxMessageBoxes(nullptr).AskQuestion({kYesNoQuestion, "", "third(&S)"}), QuestionAnswer::kFurther);
  }
}

class FailingBatch : public MainWindowTest {
 protected:
  void SetUp() override {
    for (const char* const name : {"a.txt", "b.txt", "c.txt"}) folder.Write(name, name);
    OptionValues options = Options();
    options.system.suppressConfirmations = true;
    OpenFolder(options);
    for (int row = 1; row <= 3; ++row) List().SetRenameName(row, "");
  }
};

TEST_F(FailingBatch, ShowsTheFailedRowAndCanBeSilenced) {
  dialogs.Use([this](wxDialog& dialog) {
    EXPECT_EQ(SelectedRows(), std::vector<int>{1}) << "before the box opens";
    auto* const details = Find<wxTextCtrl>(dialog, "txtDetails");
    ASSERT_NE(details, nullptr);
    EXPECT_EQ(FromWx(details->GetValue()), "ファイル： " + folder.At("a.txt"));
    Press(dialog, "cmdOK");
  });
  dialogs.Use([this](wxDialog& dialog) {
    EXPECT_EQ(SelectedRows(), std::vector<int>{2});
    Find<wxCheckBox>(dialog, "chkTellNoMore")->SetValue(true);
    Press(dialog, "cmdOK");
  });
  dialogs.Answer();
  Run(Command::mnuAllUpdate);
  ASSERT_EQ(dialogs.TakeShown().size(), 1U) << "the summary alone";
}

TEST_F(FailingBatch, EndsWhenTheMainWindowIsClosed) {
  dialogs.Use([this](wxDialog&) { Frame().Close(); });
  Post(Command::mnuAllUpdate);
  EXPECT_TRUE(Until([this] { return !IsOpen(); }));
  EXPECT_TRUE(dialogs.TakeShown().empty());
}

}  // namespace
}  // namespace quillon::test
