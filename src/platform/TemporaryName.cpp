#include "platform/TemporaryName.h"

#include <cstddef>
#include <cstdint>
#include <random>
#include <string_view>

namespace quillon {

std::string TemporaryName() {
  constexpr std::string_view kDigits = "0123456789abcdefghijklmnopqrstuv";
  std::random_device random;
  std::uint64_t bits = std::uint64_t{random()} << 32u | random();
  std::string name = ".quillon-";
  for (int i = 0; i < 12; ++i, bits >>= 5u) name += kDigits[bits & 31u];
  return name;
}

}  // namespace quillon
