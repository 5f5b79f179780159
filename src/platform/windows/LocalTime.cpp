#include "platform/LocalTime.h"

namespace quillon {

std::optional<std::tm> LocalTime(std::int64_t seconds) {
  const __time64_t moment = seconds;
  std::tm local = {};
  if (::_localtime64_s(&local, &moment) != 0) return std::nullopt;
  return local;
}

}  // namespace quillon
