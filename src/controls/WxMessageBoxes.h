#pragma once

#include <wx/window.h>

#include "base/Ports.h"

namespace quillon {

class MessageDialog;

/// Message boxes over whatever dialog is open at the time.
class WxMessageBoxes final : public MessageBoxes {
 public:
  /// `parent` is used while no dialog is open; null before there is a window.
  explicit WxMessageBoxes(wxWindow* parent) : parent_(parent) {}
  bool Show(const Message& message) override;
  FailureAnswer ShowFailure(const FailureMessage& failure) override;

  /// Closes the box that tells a batch's failure, if one is open; the batch ends.
  bool StopBatch();

 private:
  int Ask(MessageDialog& dialog, wxWindow* owner);

  wxWindow* parent_;
  MessageDialog* failure_ = nullptr;  // while it is open
};

}  // namespace quillon
