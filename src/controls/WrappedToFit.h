#pragma once

#include <wx/window.h>

#include <string_view>

namespace quillon {

/// The text with line breaks added where a line would be wider than `width` pixels in the control's font. Japanese may
/// break between any two characters, but no line begins with a closing mark or ends with an opening one. A single word
/// wider than the line is not broken.
[[nodiscard]] wxString WrappedToFit(wxWindow& control, std::string_view text, int width);

}  // namespace quillon
