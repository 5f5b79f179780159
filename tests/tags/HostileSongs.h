#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillon::test {

/// A file that is made to cost its reader time, memory or stack: `start`, then repetitions of `pattern`.
struct HostileSong {
  const char* name;
  const char* type;
  std::uint64_t size;
  std::string start;
  std::string pattern;
  const char* title = "";  ///< what is read nevertheless
};

[[nodiscard]] std::vector<HostileSong> HostileSongs();

}  // namespace quillon::test
