#pragma once

#include <wx/dialog.h>
#include <wx/stattext.h>
#include <wx/timer.h>

#include <functional>
#include <string>

#include "filelist/WindowPorts.h"

namespace quillon {

/// The progress window of a folder search, with a button to cancel it.
class frmFolderRef final : public wxDialog {
 public:
  /// `cancel` cancels the running search.
  frmFolderRef(wxWindow* parent, std::function<void()> cancel);

  void SetTarget(const std::string& target);
  void SetFolder(const std::string& folder);
  void Appear();
  void Vanish();

 private:
  std::function<void()> cancel_;
  wxStaticText* lblStatus_ = nullptr;
  wxStaticText* lblTarget_ = nullptr;
  wxStaticText* lblFolder_ = nullptr;
  bool wanted_ = false;
};

/// Shows the progress window when a search takes long. One window serves every search of its parent, which deletes it;
/// the first long search makes it.
class LongSearch final : public SearchDisplay {
 public:
  /// `cancel` cancels the running search.
  LongSearch(wxWindow& parent, std::function<void()> cancel);

  void Begin(const std::string& status, const std::string& target) override;
  void ShowFolder(const std::string& folder) override;
  void End() override;

  [[nodiscard]] frmFolderRef& Window();

 private:
  void OnTimer();

  wxWindow& parent_;
  std::function<void()> cancel_;
  std::string target_;
  std::string folder_;
  frmFolderRef* window_ = nullptr;
  wxTimer timFolderRef_;
};

}  // namespace quillon
