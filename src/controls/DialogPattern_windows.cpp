#include "controls/DialogPattern.h"

namespace quillon {

std::string DialogPattern(const std::string& pattern) {
  return pattern;
}

}  // namespace quillon
