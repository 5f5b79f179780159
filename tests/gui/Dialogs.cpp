#include "gui/Dialogs.h"

#include <gtest/gtest.h>
#include <wx/dirdlg.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>

#include <utility>

#include "controls/WxText.h"
#include "gui/FileDialog.h"

namespace quillon::test {
namespace {

Message MessageOf(const wxMessageDialogBase& box) {
  Message message;
  message.caption = FromWx(box.GetCaption());
  message.text = FromWx(box.GetMessage());
  const long style = box.GetMessageDialogStyle();
  if ((style & wxICON_ERROR) != 0) message.icon = MessageIcon::kStop;
  if ((style & wxICON_EXCLAMATION) != 0) message.icon = MessageIcon::kExclamation;
  if ((style & wxICON_QUESTION) != 0) message.icon = MessageIcon::kQuestion;
  if ((style & wxYES_NO) != 0) message.buttons = MessageButtons::kYesNo;
  if ((style & wxCANCEL) != 0) message.buttons = MessageButtons::kOkCancel;
  return message;
}

int WrongDialog(const wxDialog& dialog, const char* expected) {
  const auto* box = dynamic_cast<const wxMessageDialogBase*>(&dialog);
  ADD_FAILURE() << "expected " << expected << ", got "
                << FromWx(box == nullptr ? dialog.GetTitle() : box->GetCaption() + ": " + box->GetMessage());
  return wxID_CANCEL;
}

}  // namespace

Dialogs::~Dialogs() {
  EXPECT_TRUE(answers_.empty()) << answers_.size() << " expected dialogs did not come";
}

void Dialogs::Answer(bool yes) {
  AnswerAfter({}, yes);
}

void Dialogs::AnswerAfter(const std::function<void()>& during, bool yes) {
  answers_.emplace_back([this, during, yes](wxDialog& dialog) { return AnswerBox(dialog, during, yes); });
}

void Dialogs::ChooseFolder(const std::string& path) {
  answers_.emplace_back([this, path](wxDialog& dialog) { return GiveFolder(dialog, path); });
}

void Dialogs::Use(const std::function<void(wxDialog&)>& act) {
  answers_.emplace_back([act](wxDialog& dialog) {
    dialog.CallAfter([act, &dialog] { act(dialog); });
    return wxID_NONE;
  });
}

std::vector<Message> Dialogs::TakeShown() {
  return std::exchange(shown_, {});
}

int Dialogs::Enter(wxDialog* dialog) {
  if (answers_.empty()) return WrongDialog(*dialog, "no dialog");
  const AnswerTo answer = answers_.front();
  answers_.pop_front();
  return answer(*dialog);
}

int Dialogs::AnswerBox(wxDialog& dialog, const std::function<void()>& during, bool yes) {
  const auto* box = dynamic_cast<wxMessageDialogBase*>(&dialog);
  if (box == nullptr) return WrongDialog(dialog, "a message box");
  shown_.push_back(MessageOf(*box));
  if (during) during();
  if (shown_.back().buttons == MessageButtons::kYesNo) return yes ? wxID_YES : wxID_NO;
  return yes ? wxID_OK : wxID_CANCEL;
}

int Dialogs::GiveFolder(wxDialog& dialog, const std::string& path) {
  auto* folders = dynamic_cast<wxDirDialog*>(&dialog);
  if (folders == nullptr) return WrongDialog(dialog, "a folder dialog");
  prompt_ = FromWx(folders->GetMessage());
  startFolder_ = FromWx(folders->GetPath());
  if (path.empty()) return wxID_CANCEL;
  folders->wxDirDialogBase::SetPath(ToWx(path));  // GTK's override only changes the native dialog, which is not shown
  return wxID_OK;
}

void Dialogs::ChooseFile(const std::string& path) {
  answers_.emplace_back([path](wxDialog& dialog) {
    auto* files = dynamic_cast<wxFileDialog*>(&dialog);
    if (files == nullptr) return WrongDialog(dialog, "a file dialog");
    return path.empty() ? static_cast<int>(wxID_CANCEL) : AnswerWithFile(*files, path);
  });
}

}  // namespace quillon::test
