#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "platform/WholeFile.h"

namespace quillon::test {

/// Reads a whole file of any size through the program's own reader; nullopt on failure.
[[nodiscard]] inline std::optional<std::string> ContentOf(const std::string& path) {
  Result<std::string, ReadFailure> read = ReadWholeFile(path, std::numeric_limits<std::uint64_t>::max());
  return read ? std::optional(*std::move(read)) : std::nullopt;
}

}  // namespace quillon::test
