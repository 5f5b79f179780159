#pragma once

#include <algorithm>
#include <chrono>

namespace quillon {

/// A point in time at which an operation must have ended.
class Deadline {
 public:
  using Duration = std::chrono::milliseconds;

  explicit Deadline(Duration limit) : end_(Clock::now() + limit) {}

  [[nodiscard]] bool Passed() const { return Clock::now() >= end_; }
  /// Never negative.
  [[nodiscard]] Duration Left() const {
    return std::max(std::chrono::duration_cast<Duration>(end_ - Clock::now()), Duration(0));
  }

 private:
  using Clock = std::chrono::steady_clock;

  Clock::time_point end_;
};

}  // namespace quillon
