#pragma once

#include <wx/slider.h>

#include <cstdint>
#include <functional>
#include <string>

class wxPopupWindow;
class wxStaticText;

namespace quillon {

/// The slider of a player: its value is a position in milliseconds. From the press of a mouse button, or of a key that
/// moves it, until the release the user controls it, and it shows the position in a tip beside its thumb. A move
/// without holding, such as by the wheel, counts as a press and a release.
class PositionSlider final : public wxSlider {
 public:
  struct Handlers {
    std::function<void()> pressed;
    std::function<void(std::int32_t value)> released;  ///< also when the focus or the mouse capture is lost
    std::function<std::string(std::int32_t value)> tip;
  };

  PositionSlider(wxWindow* parent, Handlers handlers);

  /// Sets the maximum, and the step sizes that depend on it.
  void SetLength(std::int32_t length);
  /// Sets the value without calling the handlers.
  void SetPosition(std::int32_t position);

 private:
  enum class Holder { kNobody, kMouse, kKey };

  void BindMouse();
  void BindKeys();
  void Press(Holder holder);
  void Release();
  void OnMoved();
  void ShowTip();
  void PlaceTip();

  Handlers handlers_;
  Holder holder_ = Holder::kNobody;
  int heldKey_ = 0;
  bool settled_ = true;  // no event of the last release is outstanding
  wxPopupWindow* tip_ = nullptr;
  wxStaticText* tipText_ = nullptr;
};

}  // namespace quillon
