#pragma once

#include <memory>

/// The system-dependent lookup in code page 932's table.
namespace quillon {

inline constexpr char32_t kNoCharacter = 0;

/// The system's table of the two-byte codes of code page 932.
class AnsiPairs {
 public:
  AnsiPairs();

  /// The character of a two-byte code; kNoCharacter where the pair is unassigned.
  [[nodiscard]] char32_t Decode(unsigned char lead, unsigned char trail) const;

 private:
  std::shared_ptr<void> converter_;  ///< used on Linux only
};

}  // namespace quillon
