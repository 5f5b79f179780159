#pragma once

/// The one question about code page 932's table that each system answers in its own way.
namespace quillon {

inline constexpr char32_t kNoCharacter = 0;

/// What a system knows about code page 932.
class AnsiPairs {
 public:
  AnsiPairs();
  AnsiPairs(const AnsiPairs&) = delete;
  AnsiPairs& operator=(const AnsiPairs&) = delete;
  ~AnsiPairs();

  /// The character of a two-byte code; kNoCharacter where the pair is unassigned.
  [[nodiscard]] char32_t Decode(unsigned char lead, unsigned char trail) const;

 private:
  void* converter_ = nullptr;
};

}  // namespace quillon
