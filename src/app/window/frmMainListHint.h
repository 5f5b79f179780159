#pragma once

#include <wx/panel.h>
#include <wx/statbmp.h>

#include <array>
#include <functional>

namespace quillon {

/// What an empty list says: that files can be dropped there, and the keys of the two other ways to add them. It lies
/// over the middle of the list. While files are dragged over the list, a frame shows where they go.
class ListHint {
 public:
  /// `dropTarget` makes a drop target that does what the list's own does.
  ListHint(wxWindow& parent, const std::function<wxDropTarget*()>& dropTarget);

  void Show(bool shown);
  void ShowFrame(bool shown);
  /// Draws the hint in the theme's current colours.
  void UseColours();
  /// Places the hint in the middle of the list, as far as it fits in below the headings.
  void Place(const wxRect& list);

 private:
  wxPanel* panel_;  // like the frame's edges owned by its parent
  std::array<wxPanel*, 4> edges_{};
  wxStaticBitmap* picture_;
  bool wanted_ = false;
  bool fits_ = true;
};

}  // namespace quillon
