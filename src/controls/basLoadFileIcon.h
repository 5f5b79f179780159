#pragma once

#include <wx/bitmap.h>

#include <string>

namespace quillon {

/// The small icon that the desktop gives the file, as a picture for the list; our own picture of the media type where
/// the desktop has none.
[[nodiscard]] wxBitmap LoadFileIcon(const std::string& path, const std::string& mediaType, int pixels);

}  // namespace quillon
