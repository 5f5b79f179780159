#include "controls/WxText.h"

namespace quillon {

std::string PathFromWx(const wxString& path) {
  return FromWx(path);
}

}  // namespace quillon
