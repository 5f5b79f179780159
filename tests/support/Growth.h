#pragma once

#include <chrono>

namespace quillon::test {

/// The seconds that one call takes.
template <class Work>
double Seconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// True when the time that `work(rows)` reports grows as the square of the rows does, from 5,000 to 100,000. Linear
/// work takes 20 times as long, up to 200 times where the caches no longer hold it all, and well under a second;
/// quadratic work takes 400 times as long, and seconds. A busy machine is given three chances.
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
