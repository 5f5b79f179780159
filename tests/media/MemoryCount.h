#pragma once

#include <cstddef>

namespace quillon::test {

/// The number of bytes that this program has allocated with new and not yet freed.
[[nodiscard]] std::size_t MemoryInUse();

/// The maximum of that number since the last call of RestartMemoryPeak.
[[nodiscard]] std::size_t MemoryPeak();
void RestartMemoryPeak();

}  // namespace quillon::test
