#pragma once

#include <cstdint>
#include <ctime>
#include <optional>

namespace quillon {

/// A moment, in seconds since 1970-01-01 00:00 UTC, as the clocks here show it; nullopt for a moment beyond the
/// system's calendar.
[[nodiscard]] std::optional<std::tm> LocalTime(std::int64_t seconds);

}  // namespace quillon
