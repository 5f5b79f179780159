#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "platform/WholeFile.h"

namespace quillon::test {

/// A file's bytes by any path that the program can read, of any size; nullopt when it cannot.
[[nodiscard]] inline std::optional<std::string> ContentOf(const std::string& path) {
  Result<std::string, ReadFailure> read = ReadWholeFile(path, std::numeric_limits<std::uint64_t>::max());
  return read ? std::optional(*std::move(read)) : std::nullopt;
}

}  // namespace quillon::test
