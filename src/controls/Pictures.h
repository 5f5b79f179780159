#pragma once

#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>

#include <string_view>

#include "platform/desktop/FileIcon.h"

/// The program's own pictures, drawn as SVG in resources/icons and built into the program.
namespace quillon {

/// A picture of the desktop's as a bitmap.
[[nodiscard]] wxBitmap BitmapOf(const Pixels& pixels);

/// The picture of this name (a file's name without ".svg") for a nominal size in DIP; sharp at every scale. What the
/// SVG draws in its ink (#000000) takes the colour `ink`, its other colours stay. An unknown name gives an empty
/// bundle.
[[nodiscard]] wxBitmapBundle Picture(std::string_view name, int dip, const wxColour& ink);

/// The program's icon in the sizes that window frames and task bars show.
[[nodiscard]] wxIconBundle ProgramIcons();

}  // namespace quillon
