#pragma once

#include <wx/slider.h>

#include <cstdint>
#include <functional>
#include <string>

class wxPopupWindow;
class wxStaticText;

namespace quillon {

/// The slider of a player: its value is a position in milliseconds. From the press of a mouse button, or of a key that
/// moves it, until the release it belongs to the user, and shows the position in a tip beside its thumb. What moves it
/// at once, as the wheel does, is a press and a release.
class PositionSlider final : public wxSlider {
 public:
  struct Handlers {
    std::function<void()> pressed;
    std::function<void(std::int32_t value)> released;  ///< also when the focus or the mouse is taken away meanwhile
    std::function<std::string(std::int32_t value)> tip;
  };

  PositionSlider(wxWindow* parent, Handlers handlers);

  /// The maximum; steps follow it.
  void SetLength(std::int32_t length);
  /// The value, set by the program.
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
  bool settled_ = true;  // nothing more comes of a release
  wxPopupWindow* tip_ = nullptr;
  wxStaticText* tipText_ = nullptr;
};

}  // namespace quillon
