#pragma once

#include <memory>

/// The one question about code page 932's table that each system answers in its own way.
namespace quillon {

inline constexpr char32_t kNoCharacter = 0;

/// What a system knows about code page 932.
class AnsiPairs {
 public:
  AnsiPairs();

  /// The character of a two-byte code; kNoCharacter where the pair is unassigned.
  [[nodiscard]] char32_t Decode(unsigned char lead, unsigned char trail) const;

 private:
  std::shared_ptr<void> converter_;  ///< where a system needs one
};

}  // namespace quillon
