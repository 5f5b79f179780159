#include "platform/LocalTime.h"

namespace quillon {

std::optional<std::tm> LocalTime(std::int64_t seconds) {
  const auto moment = static_cast<std::time_t>(seconds);
  std::tm local = {};
  if (::localtime_r(&moment, &local) == nullptr) return std::nullopt;
  return local;
}

}  // namespace quillon
