#pragma once

#include <wx/panel.h>
#include <wx/stattext.h>
#include <wx/statusbr.h>

#include <functional>

namespace quillon {

/// Covers a panel of the status bar with a warning sign and a text in the colours of a warning, which are the same in
/// light and dark themes. A click counts as one on the panel.
class ModeWarning {
 public:
  ModeWarning(wxStatusBar& bar, int panel, std::function<void()> clicked);

  /// Shows the text; an empty one uncovers the panel.
  void Show(const wxString& text);

  /// The width that the warning needs for this text, in pixels.
  [[nodiscard]] int WidthFor(const wxString& text) const;

 private:
  void Make();
  void Place();

  wxStatusBar& bar_;
  int panel_;
  std::function<void()> clicked_;
  wxPanel* cover_ = nullptr;  // both owned by the bar, like every wx child
  wxStaticText* text_ = nullptr;
};

}  // namespace quillon
