#include "controls/ShortenedToFit.h"

#include "base/Text.h"
#include "controls/WxText.h"
#include "paths/basFileControl.h"

namespace quillon {

wxString ShortenedToFit(const wxWindow& control, std::string_view path, int width) {
  const auto fits = [&](const wxString& text) { return control.GetTextExtent(text).x <= width; };
  if (fits(ToWx(path))) return ToWx(path);
  std::size_t fitting = 0;
  std::size_t tooLong = CharacterCount(path);
  while (tooLong - fitting > 1) {
    const std::size_t middle = fitting + (tooLong - fitting) / 2;
    (fits(ToWx(ShortenPath(path, middle))) ? fitting : tooLong) = middle;
  }
  return ToWx(ShortenPath(path, fitting));
}

}  // namespace quillon
