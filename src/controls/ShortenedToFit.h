#pragma once

#include <wx/window.h>

#include <string_view>

namespace quillon {

/// Shortens a path, or a text that ends with one, to `width` pixels in the control's font by replacing as few of its
/// first folders as possible with "...". The result can still be too wide.
[[nodiscard]] wxString ShortenedToFit(const wxWindow& control, std::string_view path, int width);

}  // namespace quillon
