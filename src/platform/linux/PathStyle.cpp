#include "platform/PathStyle.h"

namespace quillon {

PathStyle SystemPathStyle() {
  return PathStyle::kLinux;
}

}  // namespace quillon
