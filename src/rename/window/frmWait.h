#pragma once

#include <wx/toplevel.h>

#include <string>

#include "filelist/WindowPorts.h"

namespace quillon {

/// A small window that shows the progress of a run, with a button to cancel it. Esc presses the button, too; the user
/// cannot close the window otherwise. It opens over the current modal dialog or, without one, over `parent`, and is
/// always on top when that is. Each change is painted at once. A long run moves the keyboard focus to it, for Esc.
class frmWait final : public ProgressDisplay {
 public:
  explicit frmWait(wxWindow* parent) : parent_(parent) {}
  frmWait(const frmWait&) = delete;
  frmWait& operator=(const frmWait&) = delete;
  ~frmWait() override { End(); }

  void Begin(const std::string& headline, const std::string& line) override;
  void Update(int percent, const std::string& text, const std::string& path) override;
  void End() override;
  [[nodiscard]] bool Cancelled() const override { return cancelled_; }

  /// Cancels the run, as the button does.
  void Cancel() { cancelled_ = true; }

 private:
  class Window;
  [[nodiscard]] Window* Shown() const;

  wxWindow* parent_;
  wxWindowRef window_;  ///< a Window; only between Begin and End
  bool cancelled_ = false;
};

}  // namespace quillon
