#pragma once

#include <wx/window.h>

#include <cstdint>

/// Conversion of window measures: settings and layout use twips (1/1440 inch), windows use pixels of their screen.
namespace quillon {

/// Converts twips to pixels at the window's resolution, rounded.
[[nodiscard]] int ToPixels(const wxWindow& window, std::int32_t twips);
[[nodiscard]] std::int32_t ToTwips(const wxWindow& window, int pixels);

/// Updates a stored length in twips only when it no longer gives these pixels, so that rounding errors do not add up
/// over runs.
void UpdateTwips(const wxWindow& window, std::int32_t& twips, int pixels);

}  // namespace quillon
