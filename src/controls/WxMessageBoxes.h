#pragma once

#include <wx/window.h>

#include "base/Ports.h"

namespace quillon {

/// Message boxes of the system, over whatever dialog is open at the time; their buttons are Japanese in every locale.
class WxMessageBoxes final : public MessageBoxes {
 public:
  /// `parent` is used while no dialog is open; null before there is a window.
  explicit WxMessageBoxes(wxWindow* parent) : parent_(parent) {}
  bool Show(const Message& message) override;

 private:
  wxWindow* parent_;
};

}  // namespace quillon
