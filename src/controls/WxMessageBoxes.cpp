#include "controls/WxMessageBoxes.h"

#include "base/Finally.h"
#include "controls/MessageDialog.h"
#include "controls/TopmostDialog.h"

namespace quillon {
namespace {

// A box over the main window would open behind the wait window, which is over it, too, but not modal.
wxWindow* OwnerOfBoxes(wxWindow* parent) {
  for (wxWindow* window : wxTopLevelWindows) {
    if (window->GetName() == kWaitWindow && window->IsShown()) return window;
  }
  return TopmostDialog(parent);
}

}  // namespace

bool WxMessageBoxes::Show(const Message& message) {
  wxWindow* const owner = OwnerOfBoxes(parent_);
  MessageDialog dialog(owner, {message});
  const int answer = Ask(dialog, owner);
  return answer == wxID_YES || answer == wxID_OK;
}

FailureAnswer WxMessageBoxes::ShowFailure(const FailureMessage& failure) {
  wxWindow* const owner = OwnerOfBoxes(parent_);
  MessageDialog dialog(owner, failure);
  failure_ = failure.inBatch ? &dialog : nullptr;
  const Finally closed([this] { failure_ = nullptr; });
  if (Ask(dialog, owner) == wxID_ABORT) return FailureAnswer::kStop;
  return dialog.TellsNoMore() ? FailureAnswer::kTellNoMore : FailureAnswer::kTold;
}

QuestionAnswer WxMessageBoxes::AskQuestion(const QuestionMessage& question) {
  wxWindow* const owner = OwnerOfBoxes(parent_);
  MessageDialog dialog(owner, {question.message, question.details}, question.further);
  switch (Ask(dialog, owner)) {
    case wxID_OK:
    case wxID_YES: return QuestionAnswer::kYes;
    case wxID_MORE: return QuestionAnswer::kFurther;
    default: return QuestionAnswer::kNo;
  }
}

bool WxMessageBoxes::StopBatch() {
  if (failure_ == nullptr || !failure_->IsModal()) return false;
  failure_->EndModal(wxID_ABORT);
  return true;
}

int WxMessageBoxes::Ask(MessageDialog& dialog, wxWindow* owner) {
  // Windows gives the focus to another program when the owner of a closing box is disabled.
  const bool disabled = owner != nullptr && !owner->IsThisEnabled();
  if (disabled) owner->Enable();
  const int answer = dialog.ShowModal();
  if (disabled) owner->Disable();
  return answer;
}

}  // namespace quillon
