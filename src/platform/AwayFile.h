#pragma once

#include <cstdint>

namespace quillon {

/// True for these attributes of a file on Windows: its contents are not on this computer, and would be fetched from a
/// network or a tape if it were read. The numbers are those of the system's FILE_ATTRIBUTE_ constants.
[[nodiscard]] constexpr bool IsAwayFile(std::uint32_t attributes) {
  constexpr std::uint32_t kOffline = 0x1000;
  constexpr std::uint32_t kRecallOnOpen = 0x40000;
  constexpr std::uint32_t kRecallOnDataAccess = 0x400000;
  return (attributes & (kOffline | kRecallOnOpen | kRecallOnDataAccess)) != 0;
}

}  // namespace quillon
