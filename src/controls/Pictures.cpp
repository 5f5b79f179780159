#include "controls/Pictures.h"

#include <wx/bitmap.h>
#include <wx/colour.h>
#include <wx/icon.h>
#include <wx/image.h>

#include <regex>
#include <string>
#include <utility>

#include "controls/PictureData.h"
#include "controls/WxText.h"

namespace quillon {
namespace {

constexpr std::string_view kInk = "#000000";

std::string ColourText(const wxColour& colour) {
  return FromWx(wxString::Format("#%02x%02x%02x", colour.Red(), colour.Green(), colour.Blue()));
}

std::string InInk(std::string text, const wxColour& ink) {
  const std::string colour = ColourText(ink);
  for (std::size_t at = text.find(kInk); at != std::string::npos; at = text.find(kInk, at + colour.size())) {
    text.replace(at, kInk.size(), colour);
  }
  return text;
}

}  // namespace

wxBitmap BitmapOf(const Pixels& pixels) {
  wxImage image(pixels.width, pixels.height);
  image.InitAlpha();
  unsigned char* colours = image.GetData();
  unsigned char* alpha = image.GetAlpha();
  for (std::size_t i = 0; i + 3 < pixels.rgba.size(); i += 4) {
    *colours++ = pixels.rgba[i];
    *colours++ = pixels.rgba[i + 1];
    *colours++ = pixels.rgba[i + 2];
    *alpha++ = pixels.rgba[i + 3];
  }
  return wxBitmap(image);
}

wxBitmapBundle Picture(std::string_view name, int dip, const wxColour& ink) {
  std::string text(PictureData(name));
  if (text.empty()) return {};
  if (ink.IsOk()) text = InInk(std::move(text), ink);
  return wxBitmapBundle::FromSVG(text.data(), wxSize(dip, dip));
}

wxBitmapBundle GreyPicture(std::string_view name, int dip, const wxColour& grey) {
  static const std::regex kColour("#[0-9a-fA-F]{6}");
  const std::string text = std::regex_replace(std::string(PictureData(name)), kColour, ColourText(grey));
  if (text.empty()) return {};
  return wxBitmapBundle::FromSVG(text.c_str(), wxSize(dip, dip));
}

wxIconBundle ProgramIcons() {
  wxIconBundle icons;
  for (const int size : {16, 24, 32, 48, 64}) {
    wxIcon icon;
    icon.CopyFromBitmap(Picture("quillon", size, *wxBLACK).GetBitmap(wxSize(size, size)));
    icons.AddIcon(icon);
  }
  return icons;
}

}  // namespace quillon
