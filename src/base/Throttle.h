#pragma once

#include <chrono>

namespace quillon {

/// Limits how often something is done: at most once per interval. The first call is always due.
class Throttle {
 public:
  using Clock = std::chrono::steady_clock;

  explicit Throttle(Clock::duration interval) : interval_(interval) {}

  [[nodiscard]] bool Due() {
    const Clock::time_point now = Clock::now();
    if (now < next_) return false;
    next_ = now + interval_;
    return true;
  }

 private:
  Clock::duration interval_;
  Clock::time_point next_;
};

/// How often progress is shown.
inline constexpr std::chrono::milliseconds kProgressInterval(30);

}  // namespace quillon
