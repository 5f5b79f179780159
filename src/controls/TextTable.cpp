#include "controls/TextTable.h"

#include <algorithm>

#include "controls/WxText.h"

namespace quillon {

wxString TextTable::Shown(const std::string& text) {
  std::string line = text;
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c >= '\0' && c < ' '; }, ' ');
  return ToWx(line);
}

}  // namespace quillon
