#pragma once

#include <chrono>

namespace quillon::test {

/// Returns the seconds that one call takes.
template <class Work>
double Seconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// True when the time returned by `work(rows)` grows quadratically from 5,000 to 100,000 rows. Linear work takes 20
/// times as long (up to 200 times when it no longer fits the caches) and well under a second; quadratic work takes 400
/// times as long, and seconds. Measured up to three times, in case the machine is busy.
template <class Work>
bool GrowsQuadratically(Work work) {
  constexpr double kSuspicious = 1.0;
  for (int attempt = 0; attempt < 3; ++attempt) {
    const double large = work(100000);
    if (large < kSuspicious || large < 200 * work(5000)) return false;
  }
  return true;
}

}  // namespace quillon::test
