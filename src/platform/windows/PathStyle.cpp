#include "platform/PathStyle.h"

namespace quillon {

PathStyle SystemPathStyle() {
  return PathStyle::kWindows;
}

}  // namespace quillon
