#include "controls/basLoadFileIcon.h"

#include <wx/settings.h>

#include <string_view>

#include "controls/Pictures.h"
#include "platform/desktop/FileIcon.h"

namespace quillon {
namespace {

std::string_view PictureOf(std::string_view mediaType) {
  if (mediaType == "MIDI") return "file-midi";
  if (mediaType == "MP3" || mediaType == "WAVE") return "file-audio";
  if (mediaType == "MPEG" || mediaType == "AVI") return "file-video";
  if (mediaType == "HTML") return "file-html";
  return "file";
}

}  // namespace

wxBitmap LoadFileIcon(const std::string& path, const std::string& mediaType, int pixels) {
  if (const std::optional<Pixels> icon = SmallFileIcon(path, pixels)) {
    wxBitmap bitmap = BitmapOf(*icon);
    if (icon->width == pixels && icon->height == pixels) return bitmap;
    return wxBitmap(bitmap.ConvertToImage().Rescale(pixels, pixels, wxIMAGE_QUALITY_HIGH));
  }
  const wxBitmapBundle picture =
      Picture(PictureOf(mediaType), pixels, wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
  return picture.GetBitmap(wxSize(pixels, pixels));
}

}  // namespace quillon
