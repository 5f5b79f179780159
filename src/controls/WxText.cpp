#include "controls/WxText.h"

#include "base/Text.h"

namespace quillon {

wxString ToWx(std::string_view text) {
  wxString converted = wxString::FromUTF8(text.data(), text.size());
  if (converted.empty() && !text.empty()) converted = wxString::FromUTF8(WithReplacementCharacters(text));
  return converted;
}

std::string FromWx(const wxString& text) {
  return text.utf8_string();
}

std::vector<std::string> PathsFromWx(const wxArrayString& paths) {
  std::vector<std::string> converted;
  converted.reserve(paths.size());
  for (const wxString& path : paths) converted.push_back(PathFromWx(path));
  return converted;
}

}  // namespace quillon
