#pragma once

#include <wx/colour.h>
#include <wx/gdicmn.h>

namespace quillon::test {

/// The colour on the screen at this place, including what others than the toolkit have drawn.
[[nodiscard]] wxColour ScreenPixel(wxPoint place);

}  // namespace quillon::test
