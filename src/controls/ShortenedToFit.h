#pragma once

#include <wx/window.h>

#include <string_view>

namespace quillon {

/// The path, or a text that ends with one, with "..." in place of as few of its first folders as `width` pixels ask for
/// in the control's font; it can still be too wide.
[[nodiscard]] wxString ShortenedToFit(const wxWindow& control, std::string_view path, int width);

}  // namespace quillon
