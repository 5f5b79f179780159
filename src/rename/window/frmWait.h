#pragma once

#include <wx/toplevel.h>

#include <string>

#include "filelist/WindowPorts.h"

namespace quillon {

/// A small window that shows the progress of a run, with a button to cancel it, which Esc presses, too; the user cannot
/// close it otherwise. It opens over the modal dialog that is open at the time, else over `parent`, and is always on
/// top when that is. Each change is painted at once. A run that lasts gets the keyboard, for Esc.
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

  /// As the button does.
  void Cancel() { cancelled_ = true; }

 private:
  class Window;
  [[nodiscard]] Window* Shown() const;

  wxWindow* parent_;
  wxWindowRef window_;  ///< a Window; only between Begin and End
  bool cancelled_ = false;
};

}  // namespace quillon
