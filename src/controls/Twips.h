#pragma once

#include <wx/window.h>

#include <cstdint>

/// Window measures: settings and layout are in twips (1/1440 inch), windows in pixels of their screen.
namespace quillon {

/// Twips to pixels at the window's resolution, rounded.
[[nodiscard]] int ToPixels(const wxWindow& window, std::int32_t twips);
[[nodiscard]] std::int32_t ToTwips(const wxWindow& window, int pixels);

}  // namespace quillon
