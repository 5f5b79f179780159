#include <wx/strconv.h>

#include "controls/WxText.h"

namespace quillon {

std::string PathFromWx(const wxString& path) {
  const wxCharBuffer bytes = path.fn_str();
  return bytes.length() > 0 ? std::string(bytes.data(), bytes.length()) : FromWx(path);
}

}  // namespace quillon
