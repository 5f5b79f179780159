#pragma once

#include <wx/bitmap.h>

#include <string>

namespace quillon {

/// The desktop's small icon for the file, as a bitmap for the list; where the desktop has none, the program's picture
/// of the media type.
[[nodiscard]] wxBitmap LoadFileIcon(const std::string& path, const std::string& mediaType, int pixels);

}  // namespace quillon
