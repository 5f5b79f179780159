#include "platform/TemporaryName.h"

#include <cstddef>
#include <cstdint>
#include <random>

namespace quillon {
namespace {

constexpr std::string_view kDigits = "0123456789abcdefghijklmnopqrstuv";
constexpr std::size_t kDigitCount = 12;
constexpr std::string_view kMarkEnding = ".mark";

}  // namespace

std::string TemporaryName() {
  std::random_device random;
  std::uint64_t bits = std::uint64_t{random()} << 32u | random();
  std::string name(kTemporaryPrefix);
  for (std::size_t i = 0; i < kDigitCount; ++i, bits >>= 5u) name += kDigits[bits & 31u];
  return name;
}

std::string MarkName(std::string_view temporaryName) {
  return std::string(temporaryName) + std::string(kMarkEnding);
}

std::optional<std::string> MarkedName(std::string_view markName) {
  if (!markName.ends_with(kMarkEnding)) return std::nullopt;
  const std::string_view name = markName.substr(0, markName.size() - kMarkEnding.size());
  if (name.size() != kTemporaryPrefix.size() + kDigitCount || !name.starts_with(kTemporaryPrefix)) return std::nullopt;
  if (name.find_first_not_of(kDigits, kTemporaryPrefix.size()) != std::string_view::npos) return std::nullopt;
  return std::string(name);
}

}  // namespace quillon
