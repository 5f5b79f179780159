#pragma once

#include <wx/window.h>

#include "base/Ports.h"

namespace quillon {

class MessageDialog;

/// Shows message boxes over the dialog that is open at the time.
class WxMessageBoxes final : public MessageBoxes {
 public:
  /// `parent` owns the boxes while no dialog is open; null before there is a window.
  explicit WxMessageBoxes(wxWindow* parent) : parent_(parent) {}
  bool Show(const Message& message) override;
  FailureAnswer ShowFailure(const FailureMessage& failure) override;
  QuestionAnswer AskQuestion(const QuestionMessage& question) override;

  /// Closes the box about a batch's failure, if one is open, which ends the batch.
  bool StopBatch();

 private:
  int Ask(MessageDialog& dialog, wxWindow* owner);

  wxWindow* parent_;
  MessageDialog* failure_ = nullptr;  // null unless it is open
};

}  // namespace quillon
