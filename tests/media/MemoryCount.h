#pragma once

#include <cstddef>

namespace quillon::test {

/// What this program has asked for with new and not given back yet, in bytes.
[[nodiscard]] std::size_t MemoryInUse();

/// The most of it since the last call of RestartMemoryPeak.
[[nodiscard]] std::size_t MemoryPeak();
void RestartMemoryPeak();

}  // namespace quillon::test
