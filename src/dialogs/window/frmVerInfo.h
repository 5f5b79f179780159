#pragma once

#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include <functional>
#include <string>

namespace quillon {

/// The version box.
class frmVerInfo final : public wxDialog {
 public:
  /// `open` opens the product's web address with the shell. `front` keeps the box above all windows, like the main
  /// window.
  frmVerInfo(wxWindow* parent, bool regexAvailable, bool front, std::function<void(const std::string&)> open);

 private:
  // The layout, in the order of the Tab key.
  void Build(bool regexAvailable);
  void AddIcon(wxSizer& column);
  void AddLabel(wxSizer& column, const char* name, const std::string& text, float scale = 1);
  void AddAddress(wxSizer& column);
  wxWindow* MakeInformation(const std::string& text);
  [[nodiscard]] wxSize SizeToRead(wxTextCtrl& box, const std::string& text) const;

  std::function<void(const std::string&)> open_;
};

}  // namespace quillon
