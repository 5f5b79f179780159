#include "controls/PositionSlider.h"

#include <algorithm>
#include <utility>

namespace quillon {

PositionSlider::PositionSlider(wxWindow* parent, Handlers /*handlers*/) : wxSlider(parent, wxID_ANY, 0, 0, 1) {}

void PositionSlider::SetLength(std::int32_t length) {
  SetMax(std::max(length, 1));
}

}  // namespace quillon
