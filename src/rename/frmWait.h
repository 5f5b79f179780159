#pragma once

#include <wx/toplevel.h>

#include <string>

#include "filelist/WindowPorts.h"

namespace quillon {

/// A small window that shows the progress of a run; the user cannot close it. It opens over the modal dialog that is
/// open at the time, else over `parent`, and is always on top when that is. Each change is painted at once.
class frmWait final : public ProgressDisplay {
 public:
  explicit frmWait(wxWindow* parent) : parent_(parent) {}
  frmWait(const frmWait&) = delete;
  frmWait& operator=(const frmWait&) = delete;
  ~frmWait() override { End(); }

  void Begin(const std::string& headline, const std::string& line) override;
  void Update(const std::string& percentText, const std::string& path) override;
  void End() override;

 private:
  class Window;
  [[nodiscard]] Window* Shown() const;

  wxWindow* parent_;
  wxWindowRef window_;  ///< a Window; only between Begin and End
};

}  // namespace quillon
