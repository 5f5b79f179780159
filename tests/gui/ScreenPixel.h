#pragma once

#include <wx/colour.h>
#include <wx/gdicmn.h>

namespace quillon::test {

/// What a person sees there: with the pictures that others than the toolkit have drawn.
[[nodiscard]] wxColour ScreenPixel(wxPoint place);

}  // namespace quillon::test
