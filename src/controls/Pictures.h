#pragma once

#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>

#include <string_view>

#include "platform/desktop/FileIcon.h"

/// The program's own pictures, drawn as SVG in resources/icons and built into the program.
namespace quillon {

/// Converts a picture from the desktop to a bitmap.
[[nodiscard]] wxBitmap BitmapOf(const Pixels& pixels);

/// The picture of this name (the SVG file's name without ".svg") for a nominal size in DIP; sharp at every scale. The
/// SVG's black (#000000) is replaced with `ink`; its other colours stay. An unknown name gives an empty bundle.
[[nodiscard]] wxBitmapBundle Picture(std::string_view name, int dip, const wxColour& ink);

/// The same with every colour replaced by `grey`: the picture of a tool that cannot be used.
[[nodiscard]] wxBitmapBundle GreyPicture(std::string_view name, int dip, const wxColour& grey);

/// The program's icon in the sizes used by window frames and task bars.
[[nodiscard]] wxIconBundle ProgramIcons();

}  // namespace quillon
