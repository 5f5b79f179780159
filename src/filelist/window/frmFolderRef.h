#pragma once

#include <wx/dialog.h>
#include <wx/stattext.h>
#include <wx/timer.h>

#include <functional>
#include <string>

#include "filelist/WindowPorts.h"

namespace quillon {

/// The progress window of a folder search, with a button to cancel it. It appears only when the search takes long. One
/// window serves every search of its parent, which deletes it.
class frmFolderRef final : public wxDialog, public SearchDisplay {
 public:
  /// `cancel` cancels the running search.
  frmFolderRef(wxWindow* parent, std::function<void()> cancel);

  void Begin(const std::string& status, const std::string& target) override;
  void ShowFolder(const std::string& folder) override;
  void End() override;

 private:
  void OnTimer();

  std::function<void()> cancel_;
  wxStaticText* lblStatus_ = nullptr;
  wxStaticText* lblTarget_ = nullptr;
  wxStaticText* lblFolder_ = nullptr;
  wxTimer timFolderRef_;
  bool searching_ = false;
};

}  // namespace quillon
