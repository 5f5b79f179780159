#include "paths/WideTwins.h"

#include "base/Text.h"
#include "paths/basFileControl.h"

namespace quillon {

std::string WithWideTwins(std::string_view name) {
  constexpr char32_t kFromAscii = 0xFEE0;  // Unicode keeps both in the same order
  std::string twins;
  twins.reserve(name.size());
  for (const char c : name) {
    if (!IsInvalidInName(c)) {
      twins += c;
    } else if (c != '\r') {
      AppendUtf8(twins, kFromAscii + static_cast<unsigned char>(c));
    }
  }
  return twins;
}

}  // namespace quillon
